#include "src/explorer/directory_path.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

TEST(DirectoryPath, SeparatorsAndDrivesStandForThemselves) {
  for (const char* const path : {"\\\\server\\share", "\\textures", "/textures", "c:\\textures", "c:", "c:textures"}) {
    EXPECT_TRUE(IsAbsolutePath(path)) << path;
  }
}

TEST(DirectoryPath, EverythingElseIsRelative) {
  for (const char* const path : {"textures", "..\\textures", "", "t", ".", "textures:c"}) {
    EXPECT_FALSE(IsAbsolutePath(path)) << path;
  }
}

TEST(NameOfPath, IsWhatStandsBehindTheLastSeparator) {
  EXPECT_STREQ(NameOfPath("c:\\objects\\tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("c:/objects\\a/tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("c:tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("tree.obj"), "tree.obj");
  EXPECT_STREQ(NameOfPath("c:\\objects\\"), "");
  EXPECT_STREQ(NameOfPath(""), "");
}

}  // namespace
}  // namespace file_explorer
