#include "src/preview/work_budget.h"

#include <gtest/gtest.h>

namespace file_explorer::preview {
namespace {

using std::chrono::milliseconds;
using std::chrono::seconds;

TEST(WorkBudget, LastsWhileThereIsTime) {
  WorkBudget budget(seconds(100));
  for (int i = 0; i < 100000; ++i) ASSERT_TRUE(budget.Spend());
  EXPECT_FALSE(budget.exhausted());
}

TEST(WorkBudget, EndsWhenTheTimeIsOverAndStaysSo) {
  WorkBudget budget(milliseconds(0));
  EXPECT_FALSE(budget.Spend(1'000'000));
  EXPECT_TRUE(budget.exhausted());
  EXPECT_FALSE(budget.Spend());
}

TEST(WorkBudget, EndsAfterItsSteps) {
  WorkBudget budget(seconds(100), 20000);
  int spent = 0;
  while (budget.Spend() && spent < 1'000'000) ++spent;
  EXPECT_GE(spent, 10000);
  EXPECT_LE(spent, 24096);  // looked at every few thousand steps
}

TEST(WorkBudget, EndsWhenItIsCancelled) {
  std::atomic<bool> cancelled = false;
  WorkBudget budget(seconds(100), WorkBudget::kUnlimitedSteps, &cancelled);
  EXPECT_TRUE(budget.Spend(1'000'000));
  cancelled = true;
  EXPECT_FALSE(budget.Spend(1'000'000));
}

}  // namespace
}  // namespace file_explorer::preview
