#include "workbench/controls/model/merge_sorter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace controls {
namespace {

TEST(MergeSorter, SortsAnyLengthInSteps) {
  std::mt19937 random(7);
  for (size_t length : {0u, 1u, 2u, 3u, 7u, 8u, 9u, 100u, 1000u}) {
    std::vector<int> values(length);
    for (int& value : values) value = static_cast<int>(random() % 50);
    std::vector<int> expected = values;
    std::sort(expected.begin(), expected.end());
    MergeSorter<int> sorter(values);
    int steps = 0;
    while (!sorter.Step(7, [](int a, int b) { return a < b; })) {
      ASSERT_LT(++steps, 100000);
    }
    EXPECT_EQ(sorter.TakeItems(), expected);
  }
}

TEST(MergeSorter, KeepsTheOrderOfEqualItems) {
  std::vector<std::pair<int, int>> values;
  for (int i = 0; i < 200; ++i) values.emplace_back(i % 3, i);
  MergeSorter<std::pair<int, int>> sorter(values);
  while (!sorter.Step(10, [](const auto& a, const auto& b) { return a.first < b.first; })) {
  }
  const auto sorted = sorter.TakeItems();
  EXPECT_TRUE(std::is_sorted(sorted.begin(), sorted.end()));
}

TEST(MergeSorter, AStepMakesNoMoreComparisonsThanAllowed) {
  std::vector<int> values(500);
  for (int i = 0; i < 500; ++i) values[static_cast<size_t>(i)] = 500 - i;
  MergeSorter<int> sorter(values);
  bool done = false;
  while (!done) {
    int comparisons = 0;
    done = sorter.Step(13, [&](int a, int b) {
      ++comparisons;
      return a < b;
    });
    EXPECT_LE(comparisons, 13);
  }
}

TEST(MergeSorter, AComparisonThatContradictsItselfStillEnds) {
  std::mt19937 random(3);
  std::vector<int> values(300, 1);
  MergeSorter<int> sorter(values);
  int steps = 0;
  while (!sorter.Step(50, [&](int, int) { return random() % 2 == 0; })) {
    ASSERT_LT(++steps, 10000);
  }
  EXPECT_EQ(sorter.TakeItems().size(), 300u);
}

}  // namespace
}  // namespace controls
