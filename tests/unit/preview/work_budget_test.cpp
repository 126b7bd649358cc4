#include "src/preview/work_budget.h"

#include <gtest/gtest.h>

namespace file_explorer::preview {
namespace {

using std::chrono::hours;
using std::chrono::milliseconds;

std::chrono::nanoseconds worked;
std::chrono::nanoseconds Worked() { return worked; }

WorkBudget BudgetOf(milliseconds time) {
  worked = hours(5);
  return WorkBudget(time, WorkBudget::kUnlimitedSteps, nullptr, Worked);
}

TEST(WorkBudget, LastsWhileThereIsTime) {
  WorkBudget budget = BudgetOf(milliseconds(100));
  worked += milliseconds(99);
  for (int i = 0; i < 100000; ++i) ASSERT_TRUE(budget.Spend());
  EXPECT_FALSE(budget.exhausted());
}

TEST(WorkBudget, EndsWhenTheTimeIsOverAndStaysSo) {
  WorkBudget budget = BudgetOf(milliseconds(100));
  EXPECT_TRUE(budget.Spend(1'000'000));
  worked += milliseconds(100);
  EXPECT_FALSE(budget.Spend(1'000'000));
  EXPECT_TRUE(budget.exhausted());
  worked = hours(5);
  EXPECT_FALSE(budget.Spend());
}

TEST(WorkBudget, WithoutTimeNothingIsDone) {
  WorkBudget budget(milliseconds(0));
  EXPECT_FALSE(budget.Spend(1'000'000));
}

TEST(WorkBudget, EndsWhileItsThreadWorks) {
  WorkBudget budget(milliseconds(1));
  while (budget.Spend()) {
  }
  EXPECT_TRUE(budget.exhausted());
}

// Ends only if the clock goes on; it may do so in steps of some milliseconds.
TEST(WorkBudget, TheClockOfAThreadGoesOnWhileItWorks) {
  const auto before = WorkBudget::ThreadTime();
  auto now = before;
  while (now == before) now = WorkBudget::ThreadTime();
  EXPECT_GT(now, before);
}

TEST(WorkBudget, EndsAfterItsSteps) {
  WorkBudget budget(hours(1), 20000);
  int spent = 0;
  while (budget.Spend() && spent < 1'000'000) ++spent;
  EXPECT_GE(spent, 10000);
  EXPECT_LE(spent, 24096);  // looked at every few thousand steps
}

TEST(WorkBudget, EndsWhenItIsCancelled) {
  std::atomic<bool> cancelled = false;
  WorkBudget budget(hours(1), WorkBudget::kUnlimitedSteps, &cancelled);
  EXPECT_TRUE(budget.Spend(1'000'000));
  cancelled = true;
  EXPECT_FALSE(budget.Spend(1'000'000));
}

}  // namespace
}  // namespace file_explorer::preview
