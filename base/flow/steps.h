// Steps that don't depend on each other, run one after the other.
#pragma once

#include <exception>
#include <utility>

namespace base {

// Runs every step, whatever became of those before. What the first failing one threw is kept, and thrown
// again by Finish, so that the caller hears of it as if the others had not been there.
//
//   IndependentSteps steps;
//   steps.Run([&] { SaveFolder(); });
//   steps.Run([&] { ClearBox(); });
//   steps.Finish();
class IndependentSteps {
 public:
  IndependentSteps() = default;
  IndependentSteps(const IndependentSteps&) = delete;
  IndependentSteps& operator=(const IndependentSteps&) = delete;

  template <class Step>
  void Run(Step&& step) {
    try {
      std::forward<Step>(step)();
    } catch (...) {
      if (!first_) first_ = std::current_exception();
    }
  }

  bool HasFailed() const { return first_ != nullptr; }

  void Finish() {
    if (first_) std::rethrow_exception(std::exchange(first_, nullptr));
  }

 private:
  std::exception_ptr first_;
};

}  // namespace base
