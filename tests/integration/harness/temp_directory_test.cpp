#include "tests/support/temp_directory.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "base/files/wine_calls.h"
#include "tests/support/machine_below.h"
#include "tests/support/only_wine.h"

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

TEST(TempDirectory, StartsEmptyWhereAnEarlierOneWasLeft) {
  std::wstring next;
  {
    const TempDirectory first;
    next = first.path();
  }
  const size_t number = next.rfind(L'_') + 1;
  next = next.substr(0, number) + std::to_wstring(std::stoi(next.substr(number)) + 1);
  ASSERT_TRUE(CreateDirectoryW(next.c_str(), nullptr));
  const HANDLE left = CreateFileW((next + L"\\left.txt").c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                  FILE_ATTRIBUTE_READONLY, nullptr);
  ASSERT_NE(left, INVALID_HANDLE_VALUE);
  CloseHandle(left);
  const TempDirectory second;
  EXPECT_EQ(second.path(), next);
  EXPECT_EQ(GetFileAttributesW((next + L"\\left.txt").c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST(TempDirectory, RemovesLinksAndOddNamesAndNothingThatLinksLeadTo) {
  EXPLORER_ONLY_WINE("links and such names of its machine") {
    const TempDirectory outside;
    const std::wstring kept = outside.AddFile(L"deep\\kept.txt");
    std::wstring path;
    {
      const TempDirectory directory;
      path = directory.path();
      const std::string below = PathBelow(directory.AddFolder(L"dir"));
      ASSERT_EQ(base::wine::MakeLink(PathBelow(outside.path()), below + "/folder"), 0);
      ASSERT_EQ(base::wine::MakeLink(PathBelow(kept), below + "/file"), 0);
      ASSERT_EQ(base::wine::MakeLink("nowhere", below + "/dangling"), 0);
      base::wine::File odd;
      ASSERT_EQ(odd.Create(below + "/what?\\*", 0644), 0);
    }
    EXPECT_EQ(GetFileAttributesW(path.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_NE(GetFileAttributesW(kept.c_str()), INVALID_FILE_ATTRIBUTES);
  }
}

}  // namespace
}  // namespace test_support
