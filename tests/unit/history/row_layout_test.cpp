#include "src/history/row_layout.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

TEST(RowLayout, HeightsOfBothKinds) {
  EXPECT_EQ(RowHeight(true, 16), 66);
  EXPECT_EQ(RowHeight(false, 16), 18);
  EXPECT_EQ(RowHeight(false, 24), 26);
}

TEST(RowLayout, TallRowsAreWider) {
  EXPECT_EQ(RowExtent(100, 7, false), 107);
  EXPECT_EQ(RowExtent(100, 7, true), 172);
}

TEST(RowLayout, LinesOfATallRow) {
  const TallRowLines lines = LinesOfTallRow(1000, 66, 13);
  EXPECT_EQ(lines.path, 1000 + 11 + 5 + 6);
  EXPECT_EQ(lines.time, 1000 + 33 + 6);
  EXPECT_EQ(lines.third, 1000 + 44 + 5 + 6);
}

TEST(RowLayout, TheTextIsIndentedByHalfADialogUnit) {
  EXPECT_EQ(TextIndent(8), 4);
  EXPECT_EQ(TextIndent(7), 2);
}

TEST(RowLayout, PicturesAreCentredAndNeverOutside) {
  EXPECT_EQ(CentreInThumbnail(32), 16);
  EXPECT_EQ(CentreInThumbnail(64), 0);
  EXPECT_EQ(CentreInThumbnail(256), 0);
}

TEST(LastAccess, ReadsLikeADate) {
  EXPECT_EQ(LastAccessText({2026, 11, 0, 16, 2, 5, 0, 0}), "Last access: Nov 16 2026, 2:05");
  EXPECT_EQ(LastAccessText({2009, 1, 0, 5, 9, 7, 59, 0}), "Last access: Jan 5 2009, 9:07");
  EXPECT_EQ(LastAccessText({2026, 12, 0, 31, 23, 59, 0, 0}), "Last access: Dec 31 2026, 23:59");
  EXPECT_EQ(LastAccessText({2026, 5, 0, 1, 0, 0, 0, 0}), "Last access: May 1 2026, 0:00");
}

TEST(LastAccess, AMonthThatDoesNotExistGivesNothing) {
  EXPECT_EQ(LastAccessText({2026, 0, 0, 1, 0, 0, 0, 0}), "");
  EXPECT_EQ(LastAccessText({2026, 13, 0, 1, 0, 0, 0, 0}), "");
}

TEST(RowNavigation, StaysWithinTheList) {
  EXPECT_EQ(NextRow(RowStep::kDown, -1, 5, 3), 0);
  EXPECT_EQ(NextRow(RowStep::kDown, 4, 5, 3), 4);
  EXPECT_EQ(NextRow(RowStep::kUp, 0, 5, 3), 0);
  EXPECT_EQ(NextRow(RowStep::kUp, -1, 5, 3), 4);
  EXPECT_EQ(NextRow(RowStep::kPageDown, 0, 50, 10), 9);
  EXPECT_EQ(NextRow(RowStep::kPageUp, 20, 50, 10), 11);
  EXPECT_EQ(NextRow(RowStep::kLast, 2, 50, 10), 49);
  EXPECT_EQ(NextRow(RowStep::kFirst, 2, 50, 10), 0);
  EXPECT_EQ(NextRow(RowStep::kPageDown, 1, 50, 1), 2);
  EXPECT_EQ(NextRow(RowStep::kDown, 0, 0, 10), -1);
}

}  // namespace
}  // namespace file_explorer
