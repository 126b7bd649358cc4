// The "Select:" box.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class SelectBoxTest : public testing::Test {
 protected:
  void SetUp() override {
    for (const wchar_t* const name : {L"abc.3ds", L"Abcdef.obj", L"xabc.obj", L"abc", L"set", L"sat", L"sats",
                                      L"sets", L"model.3ds.bak"}) {
      fixture_.directory().AddFile(std::wstring(L"files\\") + name);
    }
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFiles(9));
  }

  // Types a text into the box, character by character; gives what is selected afterwards.
  std::vector<std::string> Type(const char* text) {
    SendMessageA(fixture_.SelectEdit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(""));
    for (const char* at = text; *at != '\0'; ++at) {
      SendMessageA(fixture_.SelectEdit(), WM_CHAR, static_cast<WPARAM>(static_cast<unsigned char>(*at)), 1);
    }
    EXPECT_EQ(test_support::TextOf(fixture_.SelectEdit()), text);
    return fixture_.SelectedNames();
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(SelectBoxTest, TextSelectsWhatBeginsWithItInAnyCase) {
  EXPECT_THAT(Type("ABC"), UnorderedElementsAre("abc", "abc.3ds", "Abcdef.obj"));
}

TEST_F(SelectBoxTest, QuotedTextSelectsTheWholeName) {
  EXPECT_THAT(Type("\"ABC\""), ElementsAre("abc"));
  EXPECT_THAT(Type("\"abc"), ElementsAre("abc"));
}

TEST_F(SelectBoxTest, EverythingHasTwoPatterns) {
  EXPECT_EQ(Type("*").size(), 9U);
  EXPECT_EQ(Type("*.*").size(), 9U);
  EXPECT_EQ(Type("?").size(), 9U);
}

TEST_F(SelectBoxTest, PatternsAreTriedWithAStarBehindThemDeliberately) {
  EXPECT_THAT(Type("*.3ds"), UnorderedElementsAre("abc.3ds", "model.3ds.bak"));
  EXPECT_THAT(Type("s[!e]t"), UnorderedElementsAre("sat", "sats"));
}

TEST_F(SelectBoxTest, OneOfTheSelectedItemsHasTheFocus) {
  ASSERT_EQ(Type("abc").size(), 3U);
  const auto focused =
      SendMessageA(fixture_.FileList(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED);
  ASSERT_GE(focused, 0);
  EXPECT_NE(SendMessageA(fixture_.FileList(), LVM_GETITEMSTATE, static_cast<WPARAM>(focused), LVIS_SELECTED),
            0);
}

TEST_F(SelectBoxTest, TheControlHearsOfTheSelection) {
  const auto enabled = [&](int command) {
    return SendMessageA(fixture_.CommandToolbar(), TB_ISBUTTONENABLED, static_cast<WPARAM>(command), 0) != 0;
  };
  Type("xabc");
  EXPECT_TRUE(test_support::WaitUntil([&] { return enabled(126) && enabled(110); })) << "one is selected";
  Type("abc");
  EXPECT_TRUE(test_support::WaitUntil([&] { return enabled(126) && !enabled(110); })) << "three are selected";
  Type("[z]");
  EXPECT_TRUE(test_support::WaitUntil([&] { return !enabled(126) && !enabled(110); })) << "none is selected";
}

TEST_F(SelectBoxTest, BlanksAroundThePatternDoNotCount) {
  EXPECT_THAT(Type(" xabc "), ElementsAre("xabc.obj"));
}

TEST_F(SelectBoxTest, AnEmptyBoxChangesNothing) {
  ASSERT_THAT(Type("xabc"), ElementsAre("xabc.obj"));
  SendMessageA(fixture_.SelectEdit(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("x"));
  SendMessageA(fixture_.SelectEdit(), EM_SETSEL, 0, -1);
  SendMessageA(fixture_.SelectEdit(), WM_CHAR, VK_BACK, 1);
  EXPECT_EQ(test_support::TextOf(fixture_.SelectEdit()), "");
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("xabc.obj"));
}

TEST_F(SelectBoxTest, AnIllFormedPatternSelectsNothing) {
  EXPECT_THAT(Type("[abc"), IsEmpty());
}

TEST_F(SelectBoxTest, TheHostIsAskedTwiceAnItemAtMostAndNeverWhenThereIsNothingToAsk) {
  workbench::HostServicesTable& services = fixture_.services();
  const auto questions = [&](const char* text, const char* last) {
    Type(text);
    services.ClearCalls();
    SendMessageA(fixture_.SelectEdit(), EM_SETSEL, 1024, 1024);
    SendMessageA(fixture_.SelectEdit(), WM_CHAR, static_cast<WPARAM>(*last), 1);
    return services.CountCalls("MatchPattern");
  };
  EXPECT_EQ(questions("z", "z"), 18) << "as typed and with a star, for each of nine";
  EXPECT_EQ(services.LastArguments("MatchPattern"), "\"zz*\", \"sets\", 1");
  EXPECT_EQ(questions("??", "*"), 9) << "the text as typed takes all of them";
  EXPECT_EQ(questions("\"", "a"), 0);
  EXPECT_EQ(questions("*.", "*"), 0);
}

TEST_F(SelectBoxTest, EveryPassSwitchesTrackSelectOnDeliberately) {
  const auto tracks = [&] {
    return (SendMessageA(fixture_.FileList(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_TRACKSELECT) != 0;
  };
  Type("  ");
  EXPECT_FALSE(tracks()) << "a blank text is no pass";
  Type("a");
  EXPECT_TRUE(tracks());
}

TEST_F(SelectBoxTest, AnotherFolderClearsTheBox) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  ASSERT_TRUE(fixture_.WaitForFile("below"));
  Type("xabc");
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  EXPECT_TRUE(test_support::WaitUntil([&] { return test_support::TextOf(fixture_.SelectEdit()).empty(); }));
}

}  // namespace
