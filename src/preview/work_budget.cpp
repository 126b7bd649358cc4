#include "src/preview/work_budget.h"

namespace file_explorer::preview {
namespace {

constexpr std::int64_t kStepsBetweenLooks = 4096;

}  // namespace

WorkBudget::WorkBudget(std::chrono::milliseconds time, std::uint64_t steps,
                       const std::atomic<bool>* cancelled)
    : end_(std::chrono::steady_clock::now() + time),
      stepsLeft_(steps),
      cancelled_(cancelled),
      untilLook_(kStepsBetweenLooks) {}

bool WorkBudget::Look() {
  const auto spent = static_cast<std::uint64_t>(kStepsBetweenLooks - untilLook_);
  untilLook_ = kStepsBetweenLooks;
  exhausted_ = exhausted_ || spent >= stepsLeft_ || std::chrono::steady_clock::now() >= end_ ||
               (cancelled_ != nullptr && cancelled_->load(std::memory_order_relaxed));
  if (!exhausted_ && stepsLeft_ != kUnlimitedSteps) stepsLeft_ -= spent;
  return !exhausted_;
}

}  // namespace file_explorer::preview
