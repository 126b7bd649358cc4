// The four orders of the history, and the extension that one of them goes by.
#include "src/history/history_order.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <tuple>
#include <utility>

namespace file_explorer {
namespace {

using testing::ElementsAre;

struct Sample {
  std::string name;
  int day;  // of January 2026; 0 makes a date that does not exist
};

std::vector<std::string> Sorted(const std::vector<Sample>& samples, int method) {
  HistoryEntries entries;
  for (const Sample& sample : samples) {
    auto entry = std::make_unique<HistoryEntry>();
    entry->displayName = sample.name;
    entry->lastAccess = {2026, 1, 0, static_cast<std::uint16_t>(sample.day), 0, 0, 0, 0};
    entries.push_back(std::move(entry));
  }
  SortHistory(entries, method, FoldAsciiCase);
  std::vector<std::string> names;
  for (const auto& entry : entries) names.push_back(entry->displayName);
  return names;
}

TEST(HistoryOrder, NewestFirst) {
  EXPECT_THAT(Sorted({{"old", 1}, {"new", 20}, {"middle", 7}}, kSortNewestFirst),
              ElementsAre("new", "middle", "old"));
}

TEST(HistoryOrder, OldestFirst) {
  EXPECT_THAT(Sorted({{"old", 1}, {"new", 20}, {"middle", 7}}, kSortOldestFirst),
              ElementsAre("old", "middle", "new"));
}

TEST(HistoryOrder, EqualTimesKeepTheirOrder) {
  for (const int method : {kSortNewestFirst, kSortOldestFirst}) {
    EXPECT_THAT(Sorted({{"c", 3}, {"a", 3}, {"b", 3}}, method), ElementsAre("c", "a", "b"));
  }
}

TEST(HistoryOrder, ADateThatDoesNotExistIsUndecided) {
  EXPECT_THAT(Sorted({{"x", 0}, {"y", 0}, {"z", 0}}, kSortNewestFirst), ElementsAre("x", "y", "z"));
}

TEST(HistoryOrder, NamesWithoutRegardToCase) {
  EXPECT_THAT(Sorted({{"beta", 1}, {"Alpha", 1}, {"GAMMA", 1}}, kSortByName),
              ElementsAre("Alpha", "beta", "GAMMA"));
}

TEST(HistoryOrder, EqualNamesKeepTheirOrder) {
  EXPECT_THAT(Sorted({{"Same", 1}, {"a", 1}, {"SAME", 1}, {"same", 1}}, kSortByName),
              ElementsAre("a", "Same", "SAME", "same"));
}

TEST(HistoryOrder, ExtensionsThenNames) {
  EXPECT_THAT(Sorted({{"b.3ds", 1}, {"a.obj", 1}, {"A.3DS", 1}}, kSortByExtension),
              ElementsAre("A.3DS", "b.3ds", "a.obj"));
}

TEST(HistoryOrder, EntriesWithoutADotKeepTheirOrder) {
  EXPECT_THAT(Sorted({{"zeta", 1}, {"alpha", 1}, {"mu", 1}}, kSortByExtension),
              ElementsAre("zeta", "alpha", "mu"));
}

TEST(HistoryOrder, AMethodOutsideTheFourLeavesTheOrder) {
  for (const int method : {-1, 4, 99}) {
    EXPECT_THAT(Sorted({{"b", 2}, {"a", 1}}, method), ElementsAre("b", "a")) << method;
  }
}

TEST(HistoryOrder, ManyEntriesAreSortedStably) {
  HistoryEntries entries;
  for (int i = 0; i < 5000; ++i) {
    auto entry = std::make_unique<HistoryEntry>();
    entry->displayName = std::string(1, static_cast<char>('a' + i * 7 % 26));
    entry->fullPath = std::to_string(100000 + i);
    entries.push_back(std::move(entry));
  }
  SortHistory(entries, kSortByName, FoldAsciiCase);
  EXPECT_TRUE(std::is_sorted(entries.begin(), entries.end(), [](const auto& a, const auto& b) {
    return std::tie(a->displayName, a->fullPath) < std::tie(b->displayName, b->fullPath);
  }));
}

TEST(HistoryExtension, IsTheLastOneWithNumericOnesBehindIt) {
  EXPECT_EQ(HistoryExtension("model.obj"), ".obj");
  EXPECT_EQ(HistoryExtension("scene.3ds.001"), ".3ds.001");
  EXPECT_EQ(HistoryExtension("my.file.001"), ".file.001");
  EXPECT_EQ(HistoryExtension("a.3ds"), ".3ds");
  EXPECT_EQ(HistoryExtension("v1.2.obj"), ".obj");
  EXPECT_EQ(HistoryExtension("archive.tar.gz"), ".gz");
}

TEST(HistoryExtension, OddNames) {
  EXPECT_EQ(HistoryExtension(""), "");
  EXPECT_EQ(HistoryExtension("README"), "");
  EXPECT_EQ(HistoryExtension("ends."), ".");
  EXPECT_EQ(HistoryExtension(".profile"), ".profile");
  EXPECT_EQ(HistoryExtension("1.2.3"), ".2.3");
  EXPECT_EQ(HistoryExtension("..."), ".");
}

}  // namespace
}  // namespace file_explorer
