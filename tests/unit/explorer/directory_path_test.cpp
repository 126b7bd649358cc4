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

}  // namespace
}  // namespace file_explorer
