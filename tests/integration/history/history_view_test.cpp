// The history pane in a real window.
#include "src/history/history_view.h"

#include <commctrl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "src/framework/command_ids.h"
#include "tests/integration/history/history_view_fixture.h"
#include "tests/support/message_box_recorder.h"
#include "tests/support/wait_until.h"

namespace file_explorer {
namespace {

using test_support::MessageBoxRecorder;
using test_support::WaitUntil;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(HistoryViewTest, IsAHiddenOwnerDrawnListBoxOverThePanel) {
  Create();
  char name[32] = "";
  GetClassNameA(view->window(), name, sizeof(name));
  EXPECT_STRCASEEQ(name, "ListBox");
  const LONG_PTR style = GetWindowLongPtrA(view->window(), GWL_STYLE);
  EXPECT_EQ(style & (LBS_HASSTRINGS | LBS_OWNERDRAWFIXED | LBS_NOTIFY),
            LBS_HASSTRINGS | LBS_OWNERDRAWFIXED | LBS_NOTIFY);
  EXPECT_EQ(style & WS_VISIBLE, 0);
  EXPECT_NE(GetWindowLongPtrA(view->window(), GWL_EXSTYLE) & WS_EX_CLIENTEDGE, 0);
  EXPECT_EQ(GetDlgCtrlID(view->window()), kViewId);
  RECT rect = {};
  GetWindowRect(view->window(), &rect);
  EXPECT_EQ(rect.right - rect.left, 420);
}

TEST_F(HistoryViewTest, IsNotMadeWithoutAParent) {
  HistoryServices services;
  services.instance = GetModuleHandleA(nullptr);
  services.profilePath = [this] { return folder.profile(); };
  services.mainWindow = [] { return static_cast<HWND>(nullptr); };
  EXPECT_FALSE(CHistoryView::Create(nullptr, kViewId, services));
  EXPECT_FALSE(folder.Exists("history.dat"));
}

TEST_F(HistoryViewTest, SettingsAreReadAndWritten) {
  WritePrivateProfileStringA("History", "HistorySortingMethod", "2", folder.profile().c_str());
  WritePrivateProfileStringA("History", "HistoryShowIcons", "1", folder.profile().c_str());
  Create();
  EXPECT_EQ(view->GetSortingMethod(), 2);
  EXPECT_TRUE(view->GetShowIcons());
  view->SetSortingMethod(3);
  view->SetShowIcons(false);
  view.reset();
  EXPECT_EQ(Setting("HistorySortingMethod"), "3");
  EXPECT_EQ(Setting("HistoryShowIcons"), "0");
}

TEST_F(HistoryViewTest, DefaultsAreNewestFirstWithoutIcons) {
  Create();
  EXPECT_EQ(view->GetSortingMethod(), 0);
  EXPECT_FALSE(view->GetShowIcons());
}

TEST_F(HistoryViewTest, HistoryIsKeptFromRunToRun) {
  Create();
  Add("X:\\a\\one.obj");
  Add("X:\\a\\two.3ds");
  view.reset();
  EXPECT_TRUE(folder.Exists("history.dat"));
  Create();
  EXPECT_EQ(view->history().size(), 2u);
  EXPECT_EQ(Rows().size(), 2u);
}

TEST_F(HistoryViewTest, WithoutADirectoryNothingIsKeptAndNothingFails) {
  folder.Put("blocked", "a file where a folder should be");
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", folder.Path("blocked\\folder").c_str());
  Create();
  Add("X:\\a.obj");
  view.reset();
  EXPECT_FALSE(folder.Exists("history.dat"));
}

TEST_F(HistoryViewTest, ANewPathIsOnTopOfTheViewAndLastInTheList) {
  Create();
  Add("X:\\one.obj");
  Add("X:\\two.obj");
  EXPECT_THAT(Rows(), ElementsAre("two.obj", "one.obj"));
  EXPECT_EQ(view->history().entries().back()->displayName, "two.obj");
}

TEST_F(HistoryViewTest, EmptyPathsAreRefused) {
  Create();
  EXPECT_FALSE(view->AddPathToHistory(""));
  EXPECT_FALSE(view->AddPathToHistory(nullptr));
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(HistoryViewTest, SortingAgainByTheSameMethodDoesNotRefill) {
  Create();
  view->SetSortingMethod(kSortByName);
  Add("X:\\b.obj");
  Add("X:\\a.obj");
  Send(LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>("a mark that a refill removes"));
  view->SetSortingMethod(kSortByName);
  EXPECT_EQ(Rows().size(), 3u);
  view->SetSortingMethod(kSortByExtension);
  EXPECT_THAT(Rows(), ElementsAre("a.obj", "b.obj"));
}

TEST_F(HistoryViewTest, TheFontIsNinePointsOfTheSystemsSansSerif) {
  Create();
  LOGFONTA font = {};
  ASSERT_NE(GetObjectA(reinterpret_cast<HFONT>(Send(WM_GETFONT)), sizeof font, &font), 0);
  EXPECT_STREQ(font.lfFaceName, "MS Sans Serif");
  const HDC dc = GetDC(view->window());
  EXPECT_EQ(font.lfHeight, -MulDiv(9, GetDeviceCaps(dc, LOGPIXELSY), 72));
  ReleaseDC(view->window(), dc);
  EXPECT_EQ(font.lfWeight, 400);
  EXPECT_EQ(font.lfPitchAndFamily, VARIABLE_PITCH | FF_SWISS);
}

TEST_F(HistoryViewTest, RowHeights) {
  Create();
  const LRESULT compact = Send(LB_GETITEMHEIGHT);
  EXPECT_EQ(compact, GetSystemMetrics(SM_CYSMICON) + 2);
  view->SetShowIcons(true);
  EXPECT_EQ(Send(LB_GETITEMHEIGHT), 66);
  view->SetShowIcons(false);
  EXPECT_EQ(Send(LB_GETITEMHEIGHT), compact);
}

TEST_F(HistoryViewTest, CoversThePanelWhateverItsRowsAre) {
  Create();
  for (const bool showIcons : {true, false}) {
    view->SetShowIcons(showIcons);
    RECT rect = {};
    GetWindowRect(view->window(), &rect);
    EXPECT_EQ(rect.bottom - rect.top, 400);
  }
}

TEST_F(HistoryViewTest, TheHorizontalExtentFollowsTheWidestRow) {
  Create();
  EXPECT_EQ(Send(LB_GETHORIZONTALEXTENT), 0);
  Add("X:\\short.obj");
  const LRESULT narrow = Send(LB_GETHORIZONTALEXTENT);
  Add("X:\\a name that is a good deal longer than the other one.obj");
  const LRESULT wide = Send(LB_GETHORIZONTALEXTENT);
  EXPECT_GT(wide, narrow);
  Add("X:\\s.obj");
  EXPECT_EQ(Send(LB_GETHORIZONTALEXTENT), wide);
  view->SetShowIcons(true);
  EXPECT_EQ(Send(LB_GETHORIZONTALEXTENT), wide + 65);
  view->ClearHistory();
  EXPECT_EQ(Send(LB_GETHORIZONTALEXTENT), 0);
}

TEST_F(HistoryViewTest, AClickLoadsTheFileAndMovesItToTheTop) {
  // 2 and 1 January 2026.
  folder.Put("history.dat",
             "[HistoryList]\r\nNumEntries=2\r\n"
             "d0=two.obj\r\nf0=X:\\two.obj\r\nm0=EA070100000002000000000000000000F4\r\n"
             "d1=one.obj\r\nf1=X:\\one.obj\r\nm1=EA070100000001000000000000000000F3\r\n");
  Create();
  Show();
  ASSERT_THAT(Rows(), ElementsAre("two.obj", "one.obj"));
  Click(1);
  EXPECT_THAT(loaded, ElementsAre("X:\\one.obj"));
  EXPECT_THAT(Rows(), ElementsAre("one.obj", "two.obj"));
  EXPECT_EQ(Send(LB_GETCURSEL), 0);
}

TEST_F(HistoryViewTest, AReportedSelectionLoadsTheFile) {
  Create();
  view->SetSortingMethod(kSortByName);
  Add("X:\\a.obj");
  Add("X:\\b.obj");
  ReportSelection(1);
  EXPECT_THAT(loaded, ElementsAre("X:\\b.obj"));
  EXPECT_THAT(Rows(), ElementsAre("a.obj", "b.obj"));
  EXPECT_EQ(Send(LB_GETCURSEL), 0);
}

TEST_F(HistoryViewTest, ARowWithoutAPathDoesNothing) {
  folder.Put("history.dat", "[HistoryList]\r\nNumEntries=1\r\nd0=nameless\r\n");
  Create();
  ReportSelection(0);
  EXPECT_THAT(loaded, IsEmpty());
  EXPECT_EQ(view->history().size(), 1u);
}

TEST_F(HistoryViewTest, KeysMoveTheSelectionAndEnterLoads) {
  Create();
  Show();
  view->SetSortingMethod(kSortByName);
  for (const char* path : {"X:\\a.obj", "X:\\b.obj", "X:\\c.obj"}) Add(path);
  Send(WM_KEYDOWN, VK_DOWN);
  Send(WM_KEYDOWN, VK_DOWN);
  EXPECT_EQ(Send(LB_GETCURSEL), 1);
  Send(WM_KEYDOWN, VK_END);
  EXPECT_EQ(Send(LB_GETCURSEL), 2);
  Send(WM_CHAR, 'b');
  EXPECT_EQ(Send(LB_GETCURSEL), 1);
  EXPECT_THAT(loaded, IsEmpty());
  Send(WM_KEYDOWN, VK_RETURN);
  EXPECT_THAT(loaded, ElementsAre("X:\\b.obj"));
}

TEST_F(HistoryViewTest, EnterWithoutASelectionLoadsNothing) {
  Create();
  Add("X:\\a.obj");
  Send(WM_KEYDOWN, VK_RETURN);
  EXPECT_THAT(loaded, IsEmpty());
}

TEST_F(HistoryViewTest, DeletingEverythingAsksFirst) {
  Create();
  Add("X:\\a.obj");
  {
    MessageBoxRecorder boxes;
    boxes.AnswerWith(IDNO);
    view->HandleCommand(kCommandClearHistory, nullptr, panel);
    ASSERT_EQ(boxes.boxes().size(), 1u);
    EXPECT_EQ(boxes.boxes()[0].caption, "Confirmation Request");
    EXPECT_EQ(boxes.boxes()[0].text, "Are you sure you want to delete all the items in the history list?");
    EXPECT_THAT(boxes.boxes()[0].buttons, ElementsAre(IDYES, IDNO));
    EXPECT_EQ(boxes.boxes()[0].icon, static_cast<UINT>(MB_ICONQUESTION));
    EXPECT_EQ(boxes.boxes()[0].owner, panel);
  }
  EXPECT_EQ(view->history().size(), 1u);
  MessageBoxRecorder boxes;
  boxes.AnswerWith(IDYES);
  view->HandleCommand(kCommandClearHistory, nullptr, panel);
  EXPECT_EQ(view->history().size(), 0u);
  EXPECT_THAT(Rows(), IsEmpty());
}

TEST_F(HistoryViewTest, CommandsSortAndToggleIcons) {
  Create();
  for (int method = 3; method >= 0; --method) {
    EXPECT_TRUE(view->HandleCommand(kCommandFirstSorting + method, nullptr, panel));
    EXPECT_EQ(view->GetSortingMethod(), method);
  }
  EXPECT_TRUE(view->HandleCommand(kCommandHistoryIcons, nullptr, panel));
  EXPECT_TRUE(view->GetShowIcons());
  EXPECT_FALSE(view->HandleCommand(106, nullptr, panel));
}

// Runs while a menu is open: reads it and picks its third item by keys.
struct MenuVisitor {
  HWND window;
  std::vector<std::string> texts;
  int checked = -1;
  HWND toolbar = nullptr;
  bool wasPressed = false;
};
MenuVisitor* visitor = nullptr;

void CALLBACK VisitMenu(HWND, UINT, UINT_PTR id, DWORD) {
  const HWND menuWindow = FindWindowA("#32768", nullptr);
  if (menuWindow == nullptr) return;
  KillTimer(nullptr, id);
  const auto menu = reinterpret_cast<HMENU>(SendMessageA(menuWindow, MN_GETHMENU, 0, 0));
  for (int item = 0; item < GetMenuItemCount(menu); ++item) {
    char text[64] = "";
    GetMenuStringA(menu, static_cast<UINT>(item), text, sizeof(text), MF_BYPOSITION);
    visitor->texts.push_back(text);
    if (GetMenuState(menu, static_cast<UINT>(item), MF_BYPOSITION) & MF_CHECKED) visitor->checked = item;
  }
  if (visitor->toolbar != nullptr) {
    visitor->wasPressed = SendMessageA(visitor->toolbar, TB_ISBUTTONPRESSED, kCommandHistorySorting, 0) != 0;
  }
  for (int i = 0; i < 3; ++i) PostMessageA(visitor->window, WM_KEYDOWN, VK_DOWN, 0);
  PostMessageA(visitor->window, WM_KEYDOWN, VK_RETURN, 0);
}

TEST_F(HistoryViewTest, TheSortingMenuShowsTheMethodAndSetsIt) {
  Create();
  Show();
  SetForegroundWindow(panel);
  view->SetSortingMethod(kSortOldestFirst);
  MenuVisitor menu{panel, {}, -1, nullptr, false};
  visitor = &menu;
  SetTimer(nullptr, 0, 20, VisitMenu);
  view->ShowSortingMenu(panel, {100, 100});
  visitor = nullptr;
  EXPECT_THAT(menu.texts, ElementsAre("Sort by Date, Newest First", "Sort by Date, Oldest First",
                                      "Sort by Name", "Sort by Extension"));
  EXPECT_EQ(menu.checked, kSortOldestFirst);
  EXPECT_TRUE(WaitUntil([this] { return view->GetSortingMethod() == kSortByName; }));
}

TEST_F(HistoryViewTest, TheSortingButtonIsPressedWhileItsMenuIsOpen) {
  Create();
  Show();
  SetForegroundWindow(panel);
  CreateToolbar();
  MenuVisitor menu{panel, {}, -1, toolbar, false};
  visitor = &menu;
  SetTimer(nullptr, 0, 20, VisitMenu);
  SendMessageA(panel, WM_COMMAND, kCommandHistorySorting, 0);
  visitor = nullptr;
  EXPECT_TRUE(menu.wasPressed);
  EXPECT_EQ(SendMessageA(toolbar, TB_ISBUTTONPRESSED, kCommandHistorySorting, 0), 0);
  EXPECT_TRUE(WaitUntil([this] { return view->GetSortingMethod() == kSortByName; }));
}

TEST_F(HistoryViewTest, TheIconsButtonIsCheckedWhileIconsAreShown) {
  Create();
  CreateToolbar();
  for (const bool shown : {true, false}) {
    SendMessageA(panel, WM_COMMAND, kCommandHistoryIcons, 0);
    EXPECT_EQ(view->GetShowIcons(), shown);
    EXPECT_EQ(SendMessageA(toolbar, TB_ISBUTTONCHECKED, kCommandHistoryIcons, 0) != 0, shown);
  }
}

TEST_F(HistoryViewTest, TheMenuKeyOpensTheSortingMenuAndTheRightButtonDoesNot) {
  Create();
  Show();
  SetForegroundWindow(panel);
  Add("X:\\a.obj");
  MenuVisitor menu{panel, {}, -1, nullptr, false};
  visitor = &menu;
  SetTimer(nullptr, 0, 20, VisitMenu);
  SendMessageA(view->window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view->window()), -1);
  EXPECT_EQ(menu.texts.size(), 4u);
  EXPECT_TRUE(WaitUntil([this] { return view->GetSortingMethod() == kSortByName; }));
  menu.texts.clear();
  // Would not come back while a menu is open.
  SendMessageA(view->window(), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view->window()), MAKELPARAM(60, 60));
  EXPECT_THAT(menu.texts, IsEmpty());
  visitor = nullptr;
}

// What a screen reader reads of an owner-drawn list: its texts, and which row is selected.
TEST_F(HistoryViewTest, RowsKeepTheirTextsForThoseWhoAskTheListBox) {
  Create();
  Add("X:\\folder\\one.obj");
  Add("X:\\folder\\two.obj");
  for (const bool showIcons : {true, false}) {
    view->SetShowIcons(showIcons);
    EXPECT_THAT(Rows(), testing::UnorderedElementsAre("one.obj", "two.obj"));
  }
  Send(WM_KEYDOWN, VK_DOWN);
  EXPECT_EQ(Send(LB_GETCURSEL), 0);
  EXPECT_EQ(Send(LB_GETCARETINDEX), 0);
  char name[32] = "";
  GetWindowTextA(view->window(), name, sizeof name);
  EXPECT_STREQ(name, "History");
}

TEST_F(HistoryViewTest, AnyNumberIsShownAndFiftyAreSaved) {
  std::string text = "[HistoryList]\r\nNumEntries=3000\r\n";
  for (int i = 0; i < 3000; ++i) {
    const std::string number = std::to_string(i);
    text += "d" + number + "=m" + number + ".obj\r\nf" + number + "=X:\\m" + number + ".obj\r\n";
  }
  folder.Put("history.dat", text);
  Create();
  EXPECT_EQ(Send(LB_GETCOUNT), 3000);
  view.reset();
  EXPECT_NE(folder.Get("history.dat").find("NumEntries=50\r\n"), std::string::npos);
  EXPECT_EQ(folder.Get("history.bak"), text);
}

TEST_F(HistoryViewTest, AParentThatGoesFirstDoesNoHarm) {
  Create();
  Add("X:\\a.obj");
  DestroyWindow(panel);
  EXPECT_EQ(view->window(), nullptr);
  view.reset();
  EXPECT_TRUE(folder.Exists("history.dat"));
}

}  // namespace
}  // namespace file_explorer
