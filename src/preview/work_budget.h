// The time that one preview may take. Everything that works on a file's bytes spends steps and stops when the
// budget is used up, so that no file, however it was made, holds a program up. What counts is the time that
// the thread itself works: a preview is made on a busy machine too, only later. A thread that mostly waits,
// for a disk, gets a multiple of that time.
#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>

namespace file_explorer::preview {

class WorkBudget {
 public:
  // How long the calling thread has worked, from any start.
  using Clock = std::chrono::nanoseconds (*)();
  static std::chrono::nanoseconds ThreadTime();

  // time counts from now, on the calling thread, which is to do the work. steps: a further limit that does
  // not depend on the machine; a step is about the work on a word of text or a pixel. `cancelled` may be set
  // by another thread at any time; may be null.
  explicit WorkBudget(std::chrono::milliseconds time, std::uint64_t steps = kUnlimitedSteps,
                      const std::atomic<bool>* cancelled = nullptr, Clock clock = ThreadTime);

  // False when the budget is used up; it stays so.
  bool Spend(std::uint64_t steps = 1) {
    untilLook_ -= static_cast<std::int64_t>(steps);
    return untilLook_ > 0 ? !exhausted_ : Look();
  }
  bool exhausted() const { return exhausted_; }

  static constexpr std::uint64_t kUnlimitedSteps = ~std::uint64_t{0};

 private:
  bool Look();
  bool IsTimeOver();

  Clock clock_;
  std::chrono::nanoseconds end_;                     // by clock_
  std::chrono::steady_clock::time_point mayBeOver_;  // before that, no thread can have worked for so long
  std::chrono::steady_clock::time_point last_;       // however little the thread has worked
  std::uint64_t stepsLeft_;
  const std::atomic<bool>* cancelled_;
  std::int64_t untilLook_;  // steps until the clock is looked at
  bool exhausted_ = false;
};

}  // namespace file_explorer::preview
