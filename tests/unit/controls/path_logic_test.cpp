#include "workbench/controls/model/path_logic.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace controls {
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

TEST(NewNames, AreRefusedWithAReason) {
  EXPECT_EQ(ReasonAgainstName(L"model (2).obj"), L"");
  EXPECT_NE(ReasonAgainstName(L""), L"");
  EXPECT_NE(ReasonAgainstName(L".."), L"");
  EXPECT_NE(ReasonAgainstName(L"a/b"), L"");
  EXPECT_NE(ReasonAgainstName(L"a\tb"), L"");
  EXPECT_NE(ReasonAgainstName(std::wstring(256, L'a')), L"");
}

}  // namespace
}  // namespace controls
