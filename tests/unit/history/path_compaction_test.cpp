#include "src/history/path_compaction.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

std::string Compact(std::string_view path, int room) {
  return CompactPath(path, room, [](std::string_view text) { return static_cast<int>(text.size()); });
}

TEST(PathCompaction, APathThatFitsIsWhole) {
  EXPECT_EQ(Compact("C:\\one\\two\\a.obj", 16), "C:\\one\\two\\a.obj");
}

TEST(PathCompaction, FolderNamesGoFromTheLeftOneByOne) {
  EXPECT_EQ(Compact("C:\\first\\second\\third\\a.obj", 27), "C:\\first\\second\\third\\a.obj");
  EXPECT_EQ(Compact("C:\\first\\second\\third\\a.obj", 26), "C:\\..\\second\\third\\a.obj");
  EXPECT_EQ(Compact("C:\\first\\second\\third\\a.obj", 23), "C:\\..\\..\\third\\a.obj");
  EXPECT_EQ(Compact("C:\\first\\second\\third\\a.obj", 19), "C:\\..\\..\\..\\a.obj");
}

TEST(PathCompaction, WithAllFoldersGoneItMayStillBeTooWide) {
  EXPECT_EQ(Compact("C:\\first\\second\\a.obj", 6), "C:\\..\\..\\a.obj");
}

TEST(PathCompaction, ANameThatFillsTheRoomStandsAlone) {
  EXPECT_EQ(Compact("C:\\first\\model.obj", 9), "model.obj");
  EXPECT_EQ(Compact("C:\\first\\model.obj", 3), "model.obj");
  EXPECT_EQ(Compact("C:\\first\\model.obj", -5), "model.obj");
}

TEST(PathCompaction, ADoubledSeparatorSplitsNothing) {
  EXPECT_EQ(Compact("\\\\server\\share\\folder\\a.obj", 25), "\\\\server\\..\\folder\\a.obj");
  EXPECT_EQ(Compact("\\\\server\\share\\folder\\a.obj", 10), "\\\\server\\..\\..\\a.obj");
  EXPECT_EQ(Compact("C:\\a\\\\b\\cc\\x", 11), "C:\\..\\cc\\x");
}

TEST(PathCompaction, PathsWithoutFolders) {
  EXPECT_EQ(Compact("model.obj", 100), "model.obj");
  EXPECT_EQ(Compact("model.obj", 2), "model.obj");
  EXPECT_EQ(Compact("C:\\model.obj", 10), "C:\\model.obj");
  EXPECT_EQ(Compact("", 10), "");
  EXPECT_EQ(Compact("", 0), "");
}

}  // namespace
}  // namespace file_explorer
