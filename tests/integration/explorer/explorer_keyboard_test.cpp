// The explorer window with the keyboard alone: file list, command toolbar, "Select:" box.
#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace {

using namespace explorer_tests;
using testing::ElementsAre;
using testing::IsEmpty;

class ExplorerKeyboardTest : public RunningExplorer {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\abc.txt", "some text");
    fixture_.directory().AddFile(L"files\\xyz.txt", "some text");
    Begin(2);
    SetFocus(List());
    ASSERT_EQ(GetFocus(), List());
  }

  // A key in the queue, from which its character comes too.
  void PressKey(WPARAM key) {
    PostMessageA(GetFocus(), WM_KEYDOWN, key, 1);
    fixture_.workbench().Pump();
  }
  HWND List() const { return fixture_.FileList(); }
  HWND Box() const { return fixture_.SelectEdit(); }
  std::string BoxText() const { return test_support::TextOf(Box()); }
};

TEST_F(ExplorerKeyboardTest, TabLeadsFromTheListThroughToolbarAndBox) {
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), fixture_.CommandToolbar());
  EXPECT_EQ(HotCommand(kCommandToolbar), 99);
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), Box());
  EXPECT_EQ(HotCommand(kCommandToolbar), -1);
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), List());
}

TEST_F(ExplorerKeyboardTest, ShiftTabLeadsTheOtherWayRound) {
  TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(GetFocus(), Box());
  TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(GetFocus(), fixture_.CommandToolbar());
  TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(GetFocus(), List());
}

TEST_F(ExplorerKeyboardTest, TheWayIsTheSameForKeysFromTheQueue) {
  PressKey(VK_TAB);
  EXPECT_EQ(GetFocus(), fixture_.CommandToolbar());
  PressKey(VK_TAB);
  EXPECT_EQ(GetFocus(), Box());
  PressKey(VK_TAB);
  EXPECT_EQ(GetFocus(), List());
  EXPECT_EQ(BoxText(), "");
  EXPECT_THAT(fixture_.SelectedNames(), IsEmpty());
}

TEST_F(ExplorerKeyboardTest, EscapeLeadsBackToTheList) {
  SetFocus(fixture_.CommandToolbar());
  PressKey(VK_ESCAPE);
  EXPECT_EQ(GetFocus(), List());
  SetFocus(Box());
  PressKey(VK_ESCAPE);
  EXPECT_EQ(GetFocus(), List());
}

TEST_F(ExplorerKeyboardTest, TabWithCtrlOrAltIsLeftToOthers) {
  for (const HWND window : {List(), fixture_.CommandToolbar(), Box()}) {
    for (const int modifier : {VK_CONTROL, VK_MENU}) {
      SetFocus(window);
      TypeWith(modifier, VK_TAB);
      EXPECT_EQ(GetFocus(), window) << modifier;
    }
  }
}

TEST_F(ExplorerKeyboardTest, TheWindowGivesTheKeyboardToItsList) {
  SetFocus(fixture_.Panel());
  SetFocus(fixture_.ExplorerWindow());
  EXPECT_EQ(GetFocus(), List());
}

TEST_F(ExplorerKeyboardTest, TheToolbarsButtonsAreChosenAndPressedByKeys) {
  Type(VK_TAB);
  GoTo(kCommandToolbar, 114);
  Type(VK_SPACE);
  EXPECT_TRUE(IsChecked(kCommandToolbar, 114));
  GoTo(kCommandToolbar, 115);
  Type(VK_RETURN);
  EXPECT_TRUE(IsChecked(kCommandToolbar, 115));
  EXPECT_FALSE(IsChecked(kCommandToolbar, 114));
  EXPECT_EQ(GetFocus(), fixture_.CommandToolbar());
  Type(VK_HOME);
  EXPECT_EQ(HotCommand(kCommandToolbar), 99);
}

TEST_F(ExplorerKeyboardTest, TheGoToMenuIsOpenedByKeys) {
  Type(VK_TAB);
  GoTo(kCommandToolbar, 924);
  std::vector<std::string> texts;
  {
    const ModalVisitor visitor([&](HWND window) { texts = MenuTexts(MenuOf(window)); });
    Type(VK_RETURN);
  }
  EXPECT_THAT(texts, testing::Not(IsEmpty()));
}

TEST_F(ExplorerKeyboardTest, DisabledButtonsAreLeftOut) {
  ASSERT_FALSE(IsEnabled(kCommandToolbar, 126)) << "nothing is selected";
  Type(VK_TAB);
  Type(VK_END);
  EXPECT_NE(HotCommand(kCommandToolbar), 126);
  Select({"abc.txt"});
  ASSERT_TRUE(test_support::WaitUntil([&] { return IsEnabled(kCommandToolbar, 126); }));
  Type(VK_END);
  EXPECT_EQ(HotCommand(kCommandToolbar), 126);
}

TEST_F(ExplorerKeyboardTest, WhatIsTypedIntoTheBoxSelects) {
  TypeWith(VK_SHIFT, VK_TAB);
  ASSERT_EQ(GetFocus(), Box());
  SendMessageA(Box(), WM_CHAR, 'x', 1);
  EXPECT_EQ(BoxText(), "x");
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("xyz.txt"));
}

TEST_F(ExplorerKeyboardTest, LeavingTheBoxLeavesTextAndSelection) {
  for (const WPARAM key : {VK_TAB, VK_ESCAPE}) {
    SetFocus(Box());
    SendMessageA(Box(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>("x"));
    Select({"abc.txt"});
    PressKey(key);
    EXPECT_EQ(GetFocus(), List());
    EXPECT_EQ(BoxText(), "x");
    EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("abc.txt")) << "no character, no new selection";
  }
}

TEST_F(ExplorerKeyboardTest, TheListKeepsItsOtherKeys) {
  Select({"abc.txt"});
  PressKey(VK_DOWN);
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("xyz.txt"));
  const std::string folder = ShownPath();
  PressKey(VK_BACK);
  EXPECT_TRUE(WaitForPath(folder.substr(0, folder.rfind('\\'))));
}

TEST_F(ExplorerKeyboardTest, AListThatItsControlDestroysIsLeftOut) {
  Type(VK_TAB);
  DestroyWindow(GetParent(List()));
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), Box());
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), fixture_.CommandToolbar());
  Type(VK_ESCAPE);
  TypeWith(VK_SHIFT, VK_TAB);
}

}  // namespace
