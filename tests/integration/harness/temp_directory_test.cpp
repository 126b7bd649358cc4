#include "tests/support/temp_directory.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

namespace test_support {
namespace {

TEST(TempDirectory, MakesFilesAndFoldersAndRemovesThemAll) {
  std::wstring path;
  std::wstring file;
  {
    TempDirectory directory;
    path = directory.path();
    file = directory.AddFile(L"a\\b\\model.obj", "v 0 0 0\n");
    EXPECT_NE(GetFileAttributesW(file.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_TRUE(GetFileAttributesW(directory.AddFolder(L"empty").c_str()) & FILE_ATTRIBUTE_DIRECTORY);
  }
  EXPECT_EQ(GetFileAttributesW(file.c_str()), INVALID_FILE_ATTRIBUTES);
  EXPECT_EQ(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
}  // namespace test_support
