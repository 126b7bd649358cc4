#include "src/preview/work_budget.h"

#include <ctime>

namespace file_explorer::preview {
namespace {

constexpr std::int64_t kStepsBetweenLooks = 4096;
constexpr int kMostWaiting = 20;  // times the time of the budget

}  // namespace

std::chrono::nanoseconds WorkBudget::ThreadTime() {
  timespec time = {};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

WorkBudget::WorkBudget(std::chrono::milliseconds time, std::uint64_t steps,
                       const std::atomic<bool>* cancelled, Clock clock)
    : clock_(clock),
      end_(clock() + time),
      mayBeOver_(std::chrono::steady_clock::now() + time),
      last_(mayBeOver_ + (kMostWaiting - 1) * time),
      stepsLeft_(steps),
      cancelled_(cancelled),
      untilLook_(kStepsBetweenLooks) {}

bool WorkBudget::Look() {
  const auto spent = static_cast<std::uint64_t>(kStepsBetweenLooks - untilLook_);
  untilLook_ = kStepsBetweenLooks;
  exhausted_ = exhausted_ || spent >= stepsLeft_ || IsTimeOver() ||
               (cancelled_ != nullptr && cancelled_->load(std::memory_order_relaxed));
  if (!exhausted_ && stepsLeft_ != kUnlimitedSteps) stepsLeft_ -= spent;
  return !exhausted_;
}

// Asking what a thread has worked takes long, the time of day does not.
bool WorkBudget::IsTimeOver() {
  const auto now = std::chrono::steady_clock::now();
  if (clock_ == ThreadTime && now < mayBeOver_) return false;
  const std::chrono::nanoseconds left = end_ - clock_();
  mayBeOver_ = now + left;
  return left <= std::chrono::nanoseconds::zero() || now >= last_;
}

}  // namespace file_explorer::preview
