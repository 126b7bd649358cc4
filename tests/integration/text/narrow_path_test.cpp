#include "base/text/narrow_path.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "base/text/code_page.h"
#include "tests/support/temp_directory.h"

namespace base {
namespace {

using test_support::TempDirectory;

// Names that code page 1252 lacks or would bend, beside the file that it would bend them into.
struct Row {
  const wchar_t* name;
  const wchar_t* bent;
};
constexpr Row kRows[] = {
    {L"pl\u0101n.obj", L"plan.obj"},
    {L"\uFF41.obj", L"a.obj"},
    {L"\u0441\u0442\u0430\u043D.obj", L"ctah.obj"},
    {L"\u30E2\u30C7\u30EB.obj", L"x.obj"},
    {L"pl\u0101n with a long name.obj", L"plan with a long name.obj"},
};

std::string ContentOf(const std::string& path) {
  char buffer[64] = "";
  const HANDLE file =
      CreateFileA(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return "(none)";
  DWORD read = 0;
  ReadFile(file, buffer, sizeof(buffer) - 1, &read, nullptr);
  CloseHandle(file);
  return buffer;
}

TEST(NarrowPath, LeadsToTheVeryFileOrNowhere) {
  const TempDirectory directory;
  for (const Row& row : kRows) {
    const std::wstring path = directory.AddFile(row.name, "the right one");
    directory.AddFile(row.bent, "the wrong one");
    const auto narrow = NarrowPath(path);
    if (narrow) {
      EXPECT_EQ(ContentOf(*narrow), "the right one") << *narrow;
    }
    if (GetACP() == CP_UTF8) {
      EXPECT_EQ(narrow, ExactNarrow(path));
    }
  }
}

TEST(NarrowPath, TheShortNameIsTakenWhereTheFileSystemKeepsOne) {
  if (GetACP() == CP_UTF8) return;  // there the path needs none
  const TempDirectory directory;
  const std::wstring path = directory.AddFile(L"pl\u0101n with a long name.obj");
  wchar_t shortForm[MAX_PATH] = L"";
  ASSERT_NE(GetShortPathNameW(path.c_str(), shortForm, MAX_PATH), 0u);
  const std::wstring shortName = std::wstring(shortForm).substr(std::wstring(shortForm).rfind(L'\\') + 1);
  const auto inCodePage = ExactNarrow(shortName);
  ASSERT_TRUE(inCodePage);
  // Folders that need no short name keep theirs.
  EXPECT_EQ(NarrowPath(path), directory.narrow() + "\\" + *inCodePage);
}

TEST(NarrowPath, APathOfTheCodePageIsGivenAsItIsAndNeedNotExist) {
  EXPECT_EQ(NarrowPath(L"c:\\no such\\file.obj"), "c:\\no such\\file.obj");
  EXPECT_EQ(NarrowPath(L""), "");
}

TEST(NarrowPath, AFileThatDoesNotExistHasNoShortForm) {
  if (GetACP() == CP_UTF8) return;  // there the path needs none
  const TempDirectory directory;
  directory.AddFile(L"plan.obj");
  EXPECT_EQ(NarrowPath(directory.Join(L"pl\u0101n.obj")), std::nullopt);
}

TEST(NarrowPath, HalfASurrogatePairIsNeverGivenBent) {
  const TempDirectory directory;
  const std::wstring name = directory.path() + L"\\a" + static_cast<wchar_t>(0xD83D) + L".obj";
  EXPECT_EQ(NarrowPath(name), std::nullopt);
}

TEST(NarrowPath, FoldersOfTheWayAreShortenedToo) {
  const TempDirectory directory;
  const std::wstring path = directory.AddFile(L"pl\u0101ne \u0434\u0438\u0440\\plan.obj", "the right one");
  directory.AddFile(L"plane \u0434\u0438\u0440\\plan.obj", "the wrong one");
  const auto narrow = NarrowPath(path);
  if (narrow) {
    EXPECT_EQ(ContentOf(*narrow), "the right one") << *narrow;
  }
}

TEST(WithLongNames, LeadsBackToTheNamesThatPeopleSee) {
  const TempDirectory directory;
  const std::wstring path = directory.AddFile(L"pl\u0101ne \u0434\u0438\u0440\\pl\u0101n.obj");
  wchar_t shortForm[MAX_PATH] = L"";
  ASSERT_NE(GetShortPathNameW(path.c_str(), shortForm, MAX_PATH), 0u);
  EXPECT_EQ(WithLongNames(shortForm).substr(3), path.substr(3));
  for (const wchar_t* const kept : {L"c:\\", L"", L"c:\\no~such\\plan~1.obj", L"\\\\server\\share\\a~b", L"c:\\a\\"}) {
    EXPECT_EQ(WithLongNames(kept), kept);
  }
}

TEST(IsSameObject, TellsFilesApartByWhatTheyAre) {
  const TempDirectory directory;
  const std::wstring one = directory.AddFile(L"one.obj");
  const std::wstring two = directory.AddFile(L"two.obj");
  EXPECT_TRUE(IsSameObject(one, one));
  EXPECT_TRUE(IsSameObject(one, directory.Join(L"ONE.obj")));
  EXPECT_TRUE(IsSameObject(directory.path(), directory.path() + L"\\."));
  EXPECT_FALSE(IsSameObject(one, two));
  EXPECT_FALSE(IsSameObject(directory.Join(L"gone"), directory.Join(L"gone")));
}

}  // namespace
}  // namespace base
