// Hidden items in the running explorer: what the profile says, and what the options dialog changes at once.
#include <gmock/gmock.h>

#include <windows.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/dialog_visits.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using test_support::DialogVisits;
using test_support::PressButton;
using test_support::WaitUntil;

constexpr int kShowHiddenItems = 907;
constexpr int kReset = 919;

class HiddenItemsTest : public testing::Test {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\plain.obj");
    for (const std::wstring& hidden : {fixture_.directory().AddFile(L"files\\secret.obj"),
                                       fixture_.directory().AddFolder(L"files\\cellar")}) {
      ASSERT_TRUE(SetFileAttributesW(hidden.c_str(), FILE_ATTRIBUTE_HIDDEN));
    }
  }
  void Begin() {
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFile("plain.obj"));
  }
  void Options(std::function<void(HWND)> visit) {
    DialogVisits visits;
    visits.Expect("Explore Options", IDOK, std::move(visit));
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 105, 0);
    EXPECT_TRUE(visits.Done()) << "the dialog did not come up";
  }
  bool ListIs(const std::vector<std::string>& names) {
    return WaitUntil([&] { return fixture_.FileNames() == names; });
  }
  void WriteProfile(const char* key, const char* value) {
    WritePrivateProfileStringA("Explore", key, value, fixture_.ProfilePath().c_str());
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(HiddenItemsTest, AreConcealedInAFreshProfile) {
  Begin();
  EXPECT_TRUE(ListIs({"plain.obj"})) << testing::PrintToString(fixture_.FileNames());
  fixture_.directory().AddFile(L"files\\z last.obj");
  EXPECT_TRUE(ListIs({"plain.obj", "z last.obj"}));
}

TEST_F(HiddenItemsTest, AreListedWhenTheProfileSaysSo) {
  WriteProfile("FileView_ShowHiddenItems", "1");
  Begin();
  EXPECT_TRUE(ListIs({"cellar", "plain.obj", "secret.obj"})) << testing::PrintToString(fixture_.FileNames());
}

TEST_F(HiddenItemsTest, TickingTheBoxListsThemAtOnceAndClearingItTakesThemAway) {
  Begin();
  ASSERT_TRUE(ListIs({"plain.obj"}));
  Options([](HWND dialog) { PressButton(dialog, kShowHiddenItems); });
  EXPECT_TRUE(ListIs({"cellar", "plain.obj", "secret.obj"}));
  Options([](HWND dialog) { PressButton(dialog, kShowHiddenItems); });
  EXPECT_TRUE(ListIs({"plain.obj"}));
}

TEST_F(HiddenItemsTest, ResetListsThem) {
  Begin();
  ASSERT_TRUE(ListIs({"plain.obj"}));
  fixture_.boxes().AnswerWith(IDYES);
  Options([](HWND dialog) {
    PressButton(dialog, kReset);
    EXPECT_EQ(IsDlgButtonChecked(dialog, kShowHiddenItems), static_cast<UINT>(BST_CHECKED));
  });
  EXPECT_TRUE(ListIs({"cellar", "plain.obj", "secret.obj"}));
}

TEST_F(HiddenItemsTest, ASelectionOutlivesTheChange) {
  Begin();
  fixture_.ClickFile("plain.obj");
  ASSERT_TRUE(WaitUntil([&] { return fixture_.SelectedNames() == std::vector<std::string>{"plain.obj"}; }));
  Options([](HWND dialog) { PressButton(dialog, kShowHiddenItems); });
  ASSERT_TRUE(ListIs({"cellar", "plain.obj", "secret.obj"}));
  EXPECT_EQ(fixture_.SelectedNames(), std::vector<std::string>{"plain.obj"});
}

}  // namespace
