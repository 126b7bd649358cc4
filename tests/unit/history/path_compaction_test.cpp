#include "src/history/path_compaction.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

std::wstring Compact(std::wstring_view path, int room) {
  return CompactPath(path, room, [](std::wstring_view text) { return static_cast<int>(text.size()); });
}

TEST(PathCompaction, APathThatFitsIsWhole) {
  EXPECT_EQ(Compact(L"C:\\one\\two\\a.obj", 16), L"C:\\one\\two\\a.obj");
}

TEST(PathCompaction, FolderNamesGoFromTheLeftOneByOne) {
  EXPECT_EQ(Compact(L"C:\\first\\second\\third\\a.obj", 27), L"C:\\first\\second\\third\\a.obj");
  EXPECT_EQ(Compact(L"C:\\first\\second\\third\\a.obj", 26), L"C:\\..\\second\\third\\a.obj");
  EXPECT_EQ(Compact(L"C:\\first\\second\\third\\a.obj", 23), L"C:\\..\\..\\third\\a.obj");
  EXPECT_EQ(Compact(L"C:\\first\\second\\third\\a.obj", 19), L"C:\\..\\..\\..\\a.obj");
}

TEST(PathCompaction, WithAllFoldersGoneItMayStillBeTooWide) {
  EXPECT_EQ(Compact(L"C:\\first\\second\\a.obj", 6), L"C:\\..\\..\\a.obj");
}

TEST(PathCompaction, ANameThatFillsTheRoomStandsAlone) {
  EXPECT_EQ(Compact(L"C:\\first\\model.obj", 9), L"model.obj");
  EXPECT_EQ(Compact(L"C:\\first\\model.obj", 3), L"model.obj");
  EXPECT_EQ(Compact(L"C:\\first\\model.obj", -5), L"model.obj");
}

TEST(PathCompaction, ADoubledSeparatorSplitsNothing) {
  EXPECT_EQ(Compact(L"\\\\server\\share\\folder\\a.obj", 25), L"\\\\server\\..\\folder\\a.obj");
  EXPECT_EQ(Compact(L"\\\\server\\share\\folder\\a.obj", 10), L"\\\\server\\..\\..\\a.obj");
  EXPECT_EQ(Compact(L"C:\\a\\\\b\\cc\\x", 11), L"C:\\..\\cc\\x");
}

TEST(PathCompaction, PathsWithoutFolders) {
  EXPECT_EQ(Compact(L"model.obj", 100), L"model.obj");
  EXPECT_EQ(Compact(L"model.obj", 2), L"model.obj");
  EXPECT_EQ(Compact(L"C:\\model.obj", 10), L"C:\\model.obj");
  EXPECT_EQ(Compact(L"", 10), L"");
  EXPECT_EQ(Compact(L"", 0), L"");
}

}  // namespace
}  // namespace file_explorer
