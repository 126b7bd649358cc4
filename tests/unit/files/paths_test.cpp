#include "base/files/paths.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "base/files/name_case.h"

namespace base {
namespace {

using testing::ElementsAre;

TEST(Paths, ExtensionIsWhatFollowsTheLastDot) {
  EXPECT_EQ(ExtensionOf(L"a.b.obj"), L"obj");
  EXPECT_EQ(ExtensionOf(L"name"), L"");
  EXPECT_EQ(ExtensionOf(L"name."), L"");
  EXPECT_EQ(ExtensionOf(L".profile"), L"");
}

TEST(Paths, ParentEndsAtTheRoot) {
  EXPECT_EQ(ParentOfPath(L"C:\\a\\b"), L"C:\\a");
  EXPECT_EQ(ParentOfPath(L"C:\\a"), L"C:\\");
  EXPECT_EQ(ParentOfPath(L"C:\\"), L"");
  EXPECT_EQ(ParentOfPath(L"\\\\server\\share\\x"), L"\\\\server\\share");
  EXPECT_EQ(ParentOfPath(L"\\\\server\\share"), L"");
  EXPECT_EQ(ParentOfPath(L""), L"");
}

TEST(Paths, ChainGoesFromTheRootToTheFolder) {
  EXPECT_THAT(PathChain(L"C:\\a\\b"), ElementsAre(L"C:\\", L"C:\\a", L"C:\\a\\b"));
  EXPECT_THAT(PathChain(L"\\\\s\\t\\u"), ElementsAre(L"\\\\s\\t", L"\\\\s\\t\\u"));
  EXPECT_TRUE(PathChain(L"").empty());
}

TEST(Paths, JoinAddsOneSeparator) {
  EXPECT_EQ(JoinPath(L"C:\\", L"a"), L"C:\\a");
  EXPECT_EQ(JoinPath(L"C:\\a", L"b"), L"C:\\a\\b");
}

TEST(Paths, NameOfARootIsTheRoot) {
  EXPECT_EQ(NameOfPath(L"C:\\"), L"C:\\");
  EXPECT_EQ(NameOfPath(L"C:\\a\\b.txt"), L"b.txt");
  EXPECT_EQ(NameOfPath(L"\\\\server\\share"), L"\\\\server\\share");
}

TEST(Paths, WithinMeansTheFolderItselfOrBelow) {
  EXPECT_TRUE(IsWithin(L"C:\\a\\b", L"c:\\A"));
  EXPECT_TRUE(IsWithin(L"C:\\a", L"C:\\a"));
  EXPECT_TRUE(IsWithin(L"C:\\a", L"C:\\"));
  EXPECT_FALSE(IsWithin(L"C:\\ab", L"C:\\a"));
  EXPECT_FALSE(IsWithin(L"C:\\a", L"C:\\a\\b"));
}

TEST(Paths, ExtendedFormTakesTheNameLiterally) {
  EXPECT_EQ(ExtendedPath(L"C:\\a."), L"\\\\?\\C:\\a.");
  EXPECT_EQ(ExtendedPath(L"\\\\server\\share\\x"), L"\\\\?\\UNC\\server\\share\\x");
  EXPECT_EQ(ExtendedPath(L"\\\\?\\C:\\a"), L"\\\\?\\C:\\a");
}

TEST(TypedPath, IsTidied) {
  EXPECT_EQ(TidyTypedPath(L"  \"C:\\My Files\\\"  "), L"C:\\My Files");
  EXPECT_EQ(TidyTypedPath(L"c:"), L"c:\\");
  EXPECT_EQ(TidyTypedPath(L"C:/a/b/"), L"C:\\a\\b");
  EXPECT_EQ(TidyTypedPath(L"file:///C:/a"), L"C:\\a");
  EXPECT_EQ(TidyTypedPath(L"C:\\"), L"C:\\");
  EXPECT_EQ(TidyTypedPath(L"\\\\?\\C:\\a."), L"C:\\a.");
  EXPECT_EQ(TidyTypedPath(L"\\\\?\\UNC\\server\\share"), L"\\\\server\\share");
  EXPECT_EQ(TidyTypedPath(L"\"\""), L"");
  EXPECT_EQ(TidyTypedPath(L"   "), L"");
}

TEST(TypedPath, OnlyWholePathsAreAbsolute) {
  EXPECT_TRUE(IsAbsolutePath(L"C:\\x"));
  EXPECT_TRUE(IsAbsolutePath(L"\\\\server\\share"));
  EXPECT_FALSE(IsAbsolutePath(L"x\\y"));
  EXPECT_FALSE(IsAbsolutePath(L"C:x"));
  EXPECT_FALSE(IsAbsolutePath(L"\\x"));
}

TEST(OddNames, ReservedWordsAndTrailingDotsNeedTheExtendedForm) {
  for (const wchar_t* name : {L"con", L"NUL.txt", L"com1", L"LPT9.x", L"name.", L"name "}) {
    EXPECT_TRUE(NeedsExtendedPath(name)) << testing::PrintToString(std::wstring(name));
  }
  for (const wchar_t* name : {L"console", L"com0", L"com10", L"a.con", L"name", L".x"}) {
    EXPECT_FALSE(NeedsExtendedPath(name)) << testing::PrintToString(std::wstring(name));
  }
}

TEST(OddNames, TheShellGetsOnlyPathsThatItWouldNotMisread) {
  EXPECT_TRUE(ShellCanExpress(L"C:\\a\\b.txt"));
  EXPECT_FALSE(ShellCanExpress(L"C:\\a.\\b"));
  EXPECT_FALSE(ShellCanExpress(L"C:\\a\\nul"));
  EXPECT_FALSE(ShellCanExpress(L"C:\\" + std::wstring(300, L'x')));
  EXPECT_FALSE(ShellCanExpress(L""));
}

TEST(OddNames, TheShellGetsNoWildcardsAndNoCharactersThatNamesCannotHave) {
  for (const wchar_t character : std::wstring(L"?*\"<>|/:\n\x01\x7F\uF05C")) {
    const std::wstring name = L"img" + std::wstring(1, character) + L".png";
    EXPECT_FALSE(ShellCanExpress(L"C:\\a\\" + name)) << static_cast<int>(character);
    EXPECT_FALSE(ShellCanExpress(L"C:\\" + name + L"\\b.txt")) << static_cast<int>(character);
  }
  EXPECT_TRUE(ShellCanExpress(L"\\\\server\\share\\a\\b"));
}

TEST(OddNames, ABackslashInANameDoesNotSplitIt) {
  const std::wstring path = PathInFolder(L"C:\\tex", L"tex\\wood.png");
  EXPECT_EQ(ParentOfPath(path), L"C:\\tex");
  EXPECT_EQ(NameOfPath(path), L"tex\uF05Cwood.png");
  EXPECT_FALSE(ShellCanExpress(path));
  EXPECT_EQ(PathInFolder(L"C:\\", L"plain"), L"C:\\plain");
}

TEST(NameOfCopy, KeepsTheExtension) {
  EXPECT_EQ(NameOfCopy(L"a.tar.gz", 1), L"a.tar - Copy.gz");
  EXPECT_EQ(NameOfCopy(L"folder", 3), L"folder - Copy (3)");
  EXPECT_EQ(NameOfCopy(L".profile", 1), L".profile - Copy");
}

TEST(NameCase, FoldsLettersOnly) {
  EXPECT_EQ(FoldedName(L"ReadMe-1.tx\u00E9"), L"README-1.TX\u00C9");
  EXPECT_TRUE(EqualsIgnoringCase(L"readme", L"README"));
  EXPECT_FALSE(EqualsIgnoringCase(L"readme", L"readme1"));
}

TEST(NewNames, AreRefusedWithAReason) {
  for (const wchar_t* name :
       {L"model (2).obj", L".profile", L" leading", L"console", L"com0", L"nul1", L"plān"}) {
    EXPECT_EQ(ReasonAgainstName(name), L"") << testing::PrintToString(std::wstring(name));
  }
  EXPECT_EQ(ReasonAgainstName(L""), L"A name cannot be empty.");
  EXPECT_EQ(ReasonAgainstName(L".."), L"This name is reserved.");
  EXPECT_EQ(ReasonAgainstName(L"dot."), L"A name cannot end with a dot.");
  EXPECT_EQ(ReasonAgainstName(L"trail. "), L"A name cannot end with a blank.");
  EXPECT_EQ(ReasonAgainstName(L"a\tb"), L"A name cannot contain control characters.");
  EXPECT_EQ(ReasonAgainstName(std::wstring(256, L'a')), L"The name is longer than 255 characters.");
  EXPECT_EQ(ReasonAgainstName(std::wstring(255, L'a')), L"");
  for (const wchar_t character : std::wstring(L"<>:\"/\\|?*")) {
    EXPECT_EQ(ReasonAgainstName(L"a" + std::wstring(1, character)),
              L"A name cannot contain any of the characters \\ / : * ? \" < > |");
  }
  for (const wchar_t* name : {L"nul", L"NUL.txt", L"Con", L"aux.tar.gz", L"com1", L"LPT9.x", L"com\u00B9",
                              L"conin$", L"nul .txt"}) {
    EXPECT_EQ(ReasonAgainstName(name), L"This name is reserved for a device of the system.");
  }
}

}  // namespace
}  // namespace base
