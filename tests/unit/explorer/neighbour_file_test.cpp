#include "src/explorer/neighbour_file.h"

#include <gtest/gtest.h>

#include <string_view>
#include <vector>

namespace file_explorer {
namespace {

// A list as a text: "d" for a folder, "f" for a file.
int Next(std::string_view list, int from) {
  return FindNeighbourFile(static_cast<int>(list.size()), from, Neighbour::Next,
                           [&](int row) { return list.at(static_cast<size_t>(row)) == 'f'; });
}
int Previous(std::string_view list, int from) {
  return FindNeighbourFile(static_cast<int>(list.size()), from, Neighbour::Previous,
                           [&](int row) { return list.at(static_cast<size_t>(row)) == 'f'; });
}

TEST(NeighbourFile, IsTheOneBesideInTheOrderShown) {
  EXPECT_EQ(Next("fff", 0), 1);
  EXPECT_EQ(Next("fff", 1), 2);
  EXPECT_EQ(Previous("fff", 2), 1);
  EXPECT_EQ(Previous("fff", 1), 0);
}

TEST(NeighbourFile, FoldersAreSkipped) {
  EXPECT_EQ(Next("fddf", 0), 3);
  EXPECT_EQ(Previous("fddf", 3), 0);
}

TEST(NeighbourFile, AFolderIsAStartingPointToo) {
  EXPECT_EQ(Next("dfd", 0), 1);
  EXPECT_EQ(Previous("dfd", 2), 1);
}

TEST(NeighbourFile, ThereIsNoneAtEitherEnd) {
  EXPECT_EQ(Next("fff", 2), -1);
  EXPECT_EQ(Previous("fff", 0), -1);
  EXPECT_EQ(Next("fdd", 0), -1);
  EXPECT_EQ(Previous("ddf", 2), -1);
  EXPECT_EQ(Next("f", 0), -1);
}

TEST(NeighbourFile, ThereIsNoneWithoutAStartingPoint) {
  for (const int from : {-1, 3, 100}) {
    EXPECT_EQ(Next("fff", from), -1);
    EXPECT_EQ(Previous("fff", from), -1);
  }
  EXPECT_EQ(Next("", 0), -1);
}

TEST(NeighbourFile, OnlyTheRowsOnTheWayAreLookedAt) {
  std::vector<int> asked;
  EXPECT_EQ(FindNeighbourFile(100000, 5, Neighbour::Next,
                              [&](int row) {
                                asked.push_back(row);
                                return row == 7;
                              }),
            7);
  EXPECT_EQ(asked, (std::vector<int>{6, 7}));
}

}  // namespace
}  // namespace file_explorer
