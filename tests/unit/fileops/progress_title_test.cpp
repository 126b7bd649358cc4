#include "src/fileops/progress_title.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

// Deliberate: the plural stands for no item at all, the singular for any other number.
TEST(ProgressTitleQuirk, AnyNumberOfItemsIsOneFile) {
  EXPECT_EQ(ProgressTitle(true, 1), "Moving file...");
  EXPECT_EQ(ProgressTitle(true, 17), "Moving file...");
  EXPECT_EQ(ProgressTitle(false, 1), "Copying file...");
  EXPECT_EQ(ProgressTitle(false, 17), "Copying file...");
}

TEST(ProgressTitleQuirk, NoItemIsSeveralFiles) {
  EXPECT_EQ(ProgressTitle(true, 0), "Moving 0 files...");
  EXPECT_EQ(ProgressTitle(false, 0), "Copying 0 files...");
}

}  // namespace
}  // namespace file_explorer
