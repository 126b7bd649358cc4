// The selector panel with the keyboard alone: into the view in front, to its toolbar and back.
#include <gmock/gmock.h>
#include <windows.h>

#include <commctrl.h>

#include <string>

#include "tests/integration/explorer/running_explorer.h"

namespace {

using namespace explorer_tests;
using testing::SizeIs;

constexpr int kHistoryList = 32000;
constexpr int kFavoritesTree = 104;

class PanelKeyboardTest : public RunningExplorer {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt", "some text");
    Begin(1);
  }

  HWND History() const { return fixture_.PanelChild(kHistoryList); }
  HWND Favorites() const { return fixture_.PanelChild(kFavoritesTree); }
};

TEST_F(PanelKeyboardTest, ThePanelGivesTheKeyboardToTheViewInFront) {
  SetFocus(fixture_.Panel());
  EXPECT_EQ(GetFocus(), fixture_.FolderTree());
  SendToPanel(107);
  SetFocus(fixture_.Panel());
  EXPECT_EQ(GetFocus(), History());
  SendToPanel(108);
  SetFocus(fixture_.Panel());
  EXPECT_EQ(GetFocus(), Favorites());
}

TEST_F(PanelKeyboardTest, TheWindowAroundThePanelGivesTheKeyboardOn) {
  SetFocus(GetParent(fixture_.Panel()));
  EXPECT_EQ(GetFocus(), fixture_.FolderTree());
  SendToPanel(107);
  SetFocus(GetParent(fixture_.Panel()));
  EXPECT_EQ(GetFocus(), History());
  SendToPanel(108);
  SetFocus(GetParent(fixture_.Panel()));
  EXPECT_EQ(GetFocus(), Favorites());
}

TEST_F(PanelKeyboardTest, TheKeyboardFollowsFromViewToView) {
  SendToPanel(107);
  SetFocus(History());
  SendToPanel(108);
  EXPECT_EQ(GetFocus(), Favorites());
  SendToPanel(107);
  EXPECT_EQ(GetFocus(), History());
  SetFocus(fixture_.FileList());
  SendToPanel(108);
  EXPECT_EQ(GetFocus(), fixture_.FileList());  // was elsewhere and stays there
}

TEST_F(PanelKeyboardTest, TabLeadsToTheToolbarAndBack) {
  for (const auto& [command, toolbar, view] :
       {std::tuple(107, kHistoryToolbar, kHistoryList), std::tuple(108, kFavoritesToolbar, kFavoritesTree)}) {
    SendToPanel(command);
    SetFocus(fixture_.PanelChild(view));
    Type(VK_TAB);
    EXPECT_EQ(GetFocus(), Toolbar(toolbar));
    EXPECT_EQ(HotCommand(toolbar), 106);
    Type(VK_TAB);
    EXPECT_EQ(GetFocus(), fixture_.PanelChild(view));
    EXPECT_EQ(HotCommand(toolbar), -1);
    Type(VK_TAB);
    Type(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), fixture_.PanelChild(view));
  }
}

TEST_F(PanelKeyboardTest, TabLeadsBackwardsWithShift) {
  for (const auto& [command, toolbar, view] :
       {std::tuple(107, kHistoryToolbar, kHistoryList), std::tuple(108, kFavoritesToolbar, kFavoritesTree)}) {
    SendToPanel(command);
    SetFocus(fixture_.PanelChild(view));
    TypeWith(VK_SHIFT, VK_TAB);
    EXPECT_EQ(GetFocus(), Toolbar(toolbar));
    TypeWith(VK_SHIFT, VK_TAB);
    EXPECT_EQ(GetFocus(), fixture_.PanelChild(view));
  }
}

TEST_F(PanelKeyboardTest, TabLeadsFromTheFolderTreeThroughBothToolbars) {
  SetFocus(fixture_.FolderTree());
  const LRESULT selected = SendMessageA(fixture_.FolderTree(), TVM_GETNEXTITEM, TVGN_CARET, 0);
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), Toolbar(kFoldersToolbar));
  EXPECT_EQ(HotCommand(kFoldersToolbar), 106);
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), Toolbar(kSelectorToolbar));
  EXPECT_EQ(HotCommand(kFoldersToolbar), -1);
  EXPECT_EQ(HotCommand(kSelectorToolbar), 103);
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), fixture_.FolderTree());
  EXPECT_EQ(HotCommand(kSelectorToolbar), -1);
  EXPECT_EQ(SendMessageA(fixture_.FolderTree(), TVM_GETNEXTITEM, TVGN_CARET, 0), selected);
}

TEST_F(PanelKeyboardTest, ShiftTabLeadsBackwardsFromTheFolderTree) {
  SetFocus(fixture_.FolderTree());
  TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(GetFocus(), Toolbar(kSelectorToolbar));
  TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(GetFocus(), Toolbar(kFoldersToolbar));
  TypeWith(VK_SHIFT, VK_TAB);
  EXPECT_EQ(GetFocus(), fixture_.FolderTree());
}

TEST_F(PanelKeyboardTest, EscapeLeadsBackToTheFolderTree) {
  for (const int toolbar : {kFoldersToolbar, kSelectorToolbar}) {
    SetFocus(Toolbar(toolbar));
    Type(VK_ESCAPE);
    EXPECT_EQ(GetFocus(), fixture_.FolderTree()) << toolbar;
  }
}

TEST_F(PanelKeyboardTest, TabWithCtrlOrAltIsLeftToOthers) {
  for (const HWND window : {fixture_.FolderTree(), Toolbar(kFoldersToolbar), Toolbar(kSelectorToolbar)}) {
    for (const int modifier : {VK_CONTROL, VK_MENU}) {
      SetFocus(window);
      TypeWith(modifier, VK_TAB);
      EXPECT_EQ(GetFocus(), window) << modifier;
    }
  }
}

TEST_F(PanelKeyboardTest, TheTreeKeepsItsOtherKeys) {
  SetFocus(fixture_.FolderTree());
  const LRESULT before = SendMessageA(fixture_.FolderTree(), TVM_GETNEXTITEM, TVGN_CARET, 0);
  Type(VK_UP);
  EXPECT_NE(SendMessageA(fixture_.FolderTree(), TVM_GETNEXTITEM, TVGN_CARET, 0), before);
  EXPECT_EQ(GetFocus(), fixture_.FolderTree());
}

TEST_F(PanelKeyboardTest, TheLowerToolbarsButtonsArePressedByKeys) {
  SetFocus(fixture_.FolderTree());
  TypeWith(VK_SHIFT, VK_TAB);
  GoTo(kSelectorToolbar, 105);
  std::string caption;
  {
    const ModalVisitor visitor([&](HWND dialog) {
      caption = test_support::TextOf(dialog);
      PostMessageA(dialog, WM_COMMAND, IDOK, 0);
    });
    Type(VK_RETURN);
  }
  EXPECT_EQ(caption, "Explore Options");
}

TEST_F(PanelKeyboardTest, ATreeThatItsControlDestroysIsLeftOut) {
  SetFocus(Toolbar(kFoldersToolbar));
  DestroyWindow(GetParent(fixture_.FolderTree()));
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), Toolbar(kSelectorToolbar));
  Type(VK_TAB);
  EXPECT_EQ(GetFocus(), Toolbar(kFoldersToolbar));
}

TEST_F(PanelKeyboardTest, ArrowKeysLeadFromButtonToButtonAndStopAtTheEnds) {
  SendToPanel(107);
  SetFocus(Toolbar(kHistoryToolbar));
  std::vector<int> visited{HotCommand(kHistoryToolbar)};
  for (int i = 0; i < 6; ++i) {
    Type(VK_RIGHT);
    visited.push_back(HotCommand(kHistoryToolbar));
  }
  EXPECT_THAT(visited, testing::ElementsAre(106, 107, 108, 134, 135, 133, 133));
  Type(VK_HOME);
  EXPECT_EQ(HotCommand(kHistoryToolbar), 106);
  Type(VK_LEFT);
  EXPECT_EQ(HotCommand(kHistoryToolbar), 106);
  Type(VK_END);
  EXPECT_EQ(HotCommand(kHistoryToolbar), 133);
}

TEST_F(PanelKeyboardTest, DisabledButtonsAreLeftOut) {
  SendToPanel(107);
  SetFocus(Toolbar(kHistoryToolbar));
  SendMessageA(Toolbar(kHistoryToolbar), TB_ENABLEBUTTON, 134, FALSE);
  GoTo(kHistoryToolbar, 108);
  Type(VK_RIGHT);
  EXPECT_EQ(HotCommand(kHistoryToolbar), 135);
}

TEST_F(PanelKeyboardTest, EnterAndSpacePressAButton) {
  SendToPanel(107);
  SetFocus(Toolbar(kHistoryToolbar));
  const LRESULT before = SendMessageA(History(), LB_GETITEMHEIGHT, 0, 0);
  GoTo(kHistoryToolbar, 135);
  Type(VK_RETURN);
  EXPECT_NE(SendMessageA(History(), LB_GETITEMHEIGHT, 0, 0), before);
  Type(VK_SPACE);
  EXPECT_EQ(SendMessageA(History(), LB_GETITEMHEIGHT, 0, 0), before);
  GoTo(kHistoryToolbar, 133);
  fixture_.boxes().AnswerWith(IDNO);
  Type(VK_RETURN);
  EXPECT_THAT(fixture_.boxes().boxes(), SizeIs(1));
}

TEST_F(PanelKeyboardTest, TheSortingMenuIsOpenedByKeys) {
  SendToPanel(107);
  SetFocus(Toolbar(kHistoryToolbar));
  GoTo(kHistoryToolbar, 134);
  std::vector<std::string> texts;
  {
    const ModalVisitor visitor([&](HWND window) { texts = MenuTexts(MenuOf(window)); });
    Type(VK_RETURN);
  }
  EXPECT_THAT(texts, SizeIs(4));
}

TEST_F(PanelKeyboardTest, AFavoritesFolderIsMadeByKeysAndItsLabelTakesThem) {
  SendToPanel(108);
  SetFocus(Favorites());
  Type(VK_HOME);
  Type(VK_TAB);
  GoTo(kFavoritesToolbar, 129);
  Type(VK_RETURN);
  const auto edit = reinterpret_cast<HWND>(SendMessageA(Favorites(), TVM_GETEDITCONTROL, 0, 0));
  ASSERT_NE(edit, nullptr);
  EXPECT_EQ(GetFocus(), edit);
  EXPECT_EQ(SendMessageA(Favorites(), TVM_GETCOUNT, 0, 0), 2);
}

}  // namespace
