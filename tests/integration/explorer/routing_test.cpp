// Where each command of the toolbars goes, sent as the toolbars send it and seen from outside.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <algorithm>
#include <string>
#include <vector>

#include "src/host/vc64_imp.h"
#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

using test_support::PumpMessages;
using test_support::WaitUntil;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::SizeIs;

constexpr int kHistoryList = 32000;
constexpr int kFavoritesTree = 104;

class RoutingTest : public RunningExplorer {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\below\\inner.txt");
    fixture_.directory().AddFile(L"files\\a.txt", "some text");
    fixture_.directory().AddFile(L"files\\b.txt");
    Begin(3);
  }

  bool PanelShows(int id) const {
    return (GetWindowLongPtrA(fixture_.PanelChild(id), GWL_STYLE) & WS_VISIBLE) != 0;
  }
  // The text of the tree's selected item.
  std::string SelectedInTree(HWND tree) const {
    TVITEMA item = {};
    char text[MAX_PATH] = "";
    item.mask = TVIF_TEXT;
    item.hItem = reinterpret_cast<HTREEITEM>(SendMessageA(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
    item.pszText = text;
    item.cchTextMax = sizeof(text);
    if (!SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item))) return {};
    return item.pszText;
  }
  HWND Favorites() const { return fixture_.PanelChild(kFavoritesTree); }
  int FavoritesCount() const { return static_cast<int>(SendMessageA(Favorites(), TVM_GETCOUNT, 0, 0)); }
  void SelectFavoritesRoot() const {
    SendMessageA(Favorites(), TVM_SELECTITEM, TVGN_CARET,
                 SendMessageA(Favorites(), TVM_GETNEXTITEM, TVGN_ROOT, 0));
  }
  // The path in the "Add Favorite" dialog that the action opens; empty when none comes up.
  template <typename Action>
  std::string PathOffered(const Action& action) {
    std::string path;
    const ModalVisitor visitor([&](HWND dialog) { path = test_support::TextOf(GetDlgItem(dialog, 103)); });
    action();
    return path;
  }
  void AddToHistory(const std::string& name) {
    std::string path = FilePath(name);
    ASSERT_EQ(fixture_.SayWithHost({{"addpathtohistorylist", path.data()}}), 0U);
  }
  LRESULT HistoryCount() const { return SendMessageA(fixture_.PanelChild(kHistoryList), LB_GETCOUNT, 0, 0); }
  size_t Documents() { return fixture_.workbench().documents().documents().size(); }
};

// ---- Commands of the explorer window
// -----------------------------------------------------------------------------

TEST_F(RoutingTest, TheDockingMenuIsTheHostsAtTheCursor) {
  HWND menuWindow = nullptr;
  POINT place = {-1, -1};
  fixture_.services().Override<host::op::ShowDockingMenu>([&](HWND window, std::int32_t x, std::int32_t y) {
    menuWindow = window;
    place = {x, y};
  });
  POINT cursor = {};
  GetCursorPos(&cursor);
  Press(kCommandToolbar, 99);
  EXPECT_EQ(menuWindow, fixture_.ExplorerWindow());
  EXPECT_EQ(place.x, cursor.x);
  EXPECT_EQ(place.y, cursor.y);
}

TEST_F(RoutingTest, UpGoesUpFromEitherToolbar) {
  for (const int toolbar : {kCommandToolbar, kFoldersToolbar}) {
    fixture_.DoubleClickFile("below");
    ASSERT_TRUE(fixture_.WaitForFile("inner.txt"));
    ASSERT_TRUE(WaitUntil([&] { return IsEnabled(toolbar, 101); }));
    Press(toolbar, 101);
    EXPECT_TRUE(fixture_.WaitForFile("a.txt")) << toolbar;
  }
}

TEST_F(RoutingTest, BothUpButtonsAreOffWhereThereIsNothingAbove) {
  EXPECT_TRUE(IsEnabled(kCommandToolbar, 101));
  EXPECT_TRUE(IsEnabled(kFoldersToolbar, 101));
  SendToExplorer(2009);  // the desktop
  EXPECT_TRUE(
      WaitUntil([&] { return !IsEnabled(kCommandToolbar, 101) && !IsEnabled(kFoldersToolbar, 101); }));
}

TEST_F(RoutingTest, RefreshReadsTheFolderAgainFromEitherToolbar) {
  fixture_.directory().AddFile(L"files\\c.txt");
  Press(kCommandToolbar, 102);
  EXPECT_TRUE(fixture_.WaitForFile("c.txt"));
  fixture_.directory().AddFile(L"files\\d.txt");
  Press(kSelectorToolbar, 102);
  EXPECT_TRUE(fixture_.WaitForFile("d.txt"));
}

TEST_F(RoutingTest, HomeIsTheHomeDirectoryFromEitherToolbar) {
  const std::string home = ShownPath();
  for (const int toolbar : {kCommandToolbar, kSelectorToolbar}) {
    fixture_.DoubleClickFile("below");
    ASSERT_TRUE(fixture_.WaitForFile("inner.txt"));
    Press(toolbar, 103);
    EXPECT_TRUE(WaitForPath(home)) << toolbar;
    ASSERT_TRUE(fixture_.WaitForFile("a.txt"));
  }
}

TEST_F(RoutingTest, DisplayModesAreChosenByTheirButtons) {
  for (const int command : {114, 116, 115, 117, 113}) {
    Press(kCommandToolbar, command);
    for (int button = 113; button <= 117; ++button)
      EXPECT_EQ(IsChecked(kCommandToolbar, button), button == command);
  }
}

TEST_F(RoutingTest, TheExplorersNewFolderIsMadeInTheFileView) {
  Press(kCommandToolbar, 118);
  EXPECT_TRUE(WaitUntil([&] { return fixture_.FileNames().size() == 4; }));
  EXPECT_NE(SendMessageA(fixture_.FileList(), LVM_GETEDITCONTROL, 0, 0), 0);  // to be named at once
  SendMessageA(fixture_.FileList(), LVM_CANCELEDITLABEL, 0, 0);
}

TEST_F(RoutingTest, ThePanelsNewFolderIsMadeUnderTheTreesSelection) {
  ASSERT_EQ(SelectedInTree(fixture_.FolderTree()), "files");
  Press(kSelectorToolbar, 118);
  EXPECT_TRUE(WaitUntil([&] { return SendMessageA(fixture_.FolderTree(), TVM_GETEDITCONTROL, 0, 0) != 0; }));
  SendMessageA(fixture_.FolderTree(), TVM_ENDEDITLABELNOW, TRUE, 0);
  EXPECT_TRUE(WaitUntil([&] { return fixture_.FileNames().size() == 4; }));
  EXPECT_EQ(SendMessageA(fixture_.FileList(), LVM_GETEDITCONTROL, 0, 0), 0);
}

TEST_F(RoutingTest, SearchIsAnotherPluginFromThePanelToo) {
  int searches = 0;
  fixture_.workbench().RegisterPlugin(host::kFileSelectionPluginGuid, [&](auto, auto) { ++searches; });
  Press(kSelectorToolbar, 119);
  EXPECT_EQ(searches, 1);
  SendToExplorer(119);
  EXPECT_EQ(searches, 2);
}

TEST_F(RoutingTest, CutAndCopyPutTheSelectionOnTheClipboard) {
  for (const int command : {120, 121}) {
    OleSetClipboard(nullptr);
    Select({"a.txt"});
    Press(kCommandToolbar, command);
    EXPECT_TRUE(WaitUntil([] { return IsClipboardFormatAvailable(CF_HDROP) != FALSE; })) << command;
  }
  OleSetClipboard(nullptr);
}

TEST_F(RoutingTest, PastePutsTheClipboardsFilesIntoTheFolderShown) {
  Select({"a.txt"});
  Press(kCommandToolbar, 121);
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.txt"));
  ASSERT_TRUE(WaitUntil([&] { return IsEnabled(kCommandToolbar, 122); }));
  Press(kCommandToolbar, 122);
  EXPECT_TRUE(fixture_.WaitForFile("a.txt"));
  OleSetClipboard(nullptr);
}

TEST_F(RoutingTest, RenameEditsTheNameInTheList) {
  Select({"a.txt"});
  Press(kCommandToolbar, 125);
  EXPECT_TRUE(WaitUntil([&] { return SendMessageA(fixture_.FileList(), LVM_GETEDITCONTROL, 0, 0) != 0; }));
  SendMessageA(fixture_.FileList(), LVM_CANCELEDITLABEL, 0, 0);
}

TEST_F(RoutingTest, DeleteDeletesTheSelectionAfterOneQuestion) {
  Select({"a.txt"});
  fixture_.boxes().AnswerWith(IDYES);
  Press(kCommandToolbar, 126);
  EXPECT_TRUE(WaitUntil([&] { return fixture_.IndexOf("a.txt") < 0; }));
  ASSERT_EQ(fixture_.boxes().boxes().size(), 1u);
  EXPECT_EQ(fixture_.boxes().boxes().front().caption, "Delete");
  EXPECT_THAT(fixture_.boxes().boxes().front().text, HasSubstr("a.txt"));
}

std::string helpPage;
int RecordHelp(const char* page) {
  helpPage = page;
  return 1;
}

TEST_F(RoutingTest, HelpIsTheMainPageFromEitherToolbar) {
  const ImportHelpOpener previous = Import_IO_SetHelpOpener(RecordHelp);
  for (const int toolbar : {kCommandToolbar, kSelectorToolbar}) {
    helpPage.clear();
    Press(toolbar, 127);
    EXPECT_THAT(helpPage, HasSubstr("\\ui_file_explorer\\main.html")) << toolbar;
  }
  Import_IO_SetHelpOpener(previous);
}

TEST_F(RoutingTest, CommandsOnTheSelectionAreOffWithoutOne) {
  Select({});
  for (const int command : {120, 121, 123, 124, 125, 126, 110, 111})
    EXPECT_FALSE(IsEnabled(kCommandToolbar, command));
  Select({"a.txt"});
  for (const int command : {120, 121, 123, 124, 125, 126, 110, 111})
    EXPECT_TRUE(IsEnabled(kCommandToolbar, command));
  Select({"a.txt", "b.txt"});
  for (const int command : {120, 121, 123, 124, 125, 126}) EXPECT_TRUE(IsEnabled(kCommandToolbar, command));
  for (const int command : {110, 111}) EXPECT_FALSE(IsEnabled(kCommandToolbar, command));
}

// ---- Views of the selector area
// ----------------------------------------------------------------------------------

TEST_F(RoutingTest, TheViewButtonsOfEachLabelToolbarShowTheirView) {
  struct Step {
    int toolbar;
    int command;
    int shown;
  };
  for (const Step& step :
       {Step{kFoldersToolbar, 107, kHistoryToolbar}, Step{kHistoryToolbar, 108, kFavoritesToolbar},
        Step{kFavoritesToolbar, 106, kFoldersToolbar}, Step{kFoldersToolbar, 108, kFavoritesToolbar},
        Step{kFavoritesToolbar, 107, kHistoryToolbar}, Step{kHistoryToolbar, 106, kFoldersToolbar}}) {
    Press(step.toolbar, step.command);
    for (const int toolbar : {kFoldersToolbar, kHistoryToolbar, kFavoritesToolbar}) {
      EXPECT_EQ(PanelShows(toolbar), toolbar == step.shown) << step.toolbar << ", " << step.command;
      EXPECT_TRUE(IsChecked(toolbar, step.command));
    }
  }
}

TEST_F(RoutingTest, TheExplorersViewButtonsShowHistoryAndFavorites) {
  Press(kCommandToolbar, 107);
  EXPECT_TRUE(PanelShows(kHistoryToolbar));
  Press(kCommandToolbar, 108);
  EXPECT_TRUE(PanelShows(kFavoritesToolbar));
}

TEST_F(RoutingTest, TheViewThatIsShownIsLaidOutAnew) {
  const HWND history = fixture_.PanelChild(kHistoryList);
  SetWindowPos(history, nullptr, 0, 0, 7, 7, SWP_NOZORDER);
  Press(kFoldersToolbar, 107);
  RECT client = {};
  RECT place = {};
  GetClientRect(fixture_.Panel(), &client);
  GetWindowRect(history, &place);
  EXPECT_EQ(place.right - place.left, client.right);
}

// ---- Favourites
// --------------------------------------------------------------------------------------------------

TEST_F(RoutingTest, TheExplorerAddsTheSelectedFileToTheFavourites) {
  Select({"a.txt"});
  EXPECT_EQ(PathOffered([&] { Press(kCommandToolbar, 109); }), FilePath("a.txt"));
}

TEST_F(RoutingTest, TheFoldersToolbarAddsTheFolderOfTheTree) {
  Select({"a.txt"});
  ASSERT_EQ(SelectedInTree(fixture_.FolderTree()), "files");
  EXPECT_EQ(PathOffered([&] { Press(kFoldersToolbar, 109); }), fixture_.FilesFolder());
}

TEST_F(RoutingTest, TheFavoritesToolbarAddsTheSelectedFile) {
  Select({"b.txt"});
  Press(kFoldersToolbar, 108);
  EXPECT_EQ(PathOffered([&] { Press(kFavoritesToolbar, 132); }), FilePath("b.txt"));
}

TEST_F(RoutingTest, TheFavoritesToolbarMakesRenamesAndDeletes) {
  Press(kFoldersToolbar, 108);
  SelectFavoritesRoot();
  const int before = FavoritesCount();
  Press(kFavoritesToolbar, 129);
  EXPECT_EQ(FavoritesCount(), before + 1);
  SendMessageA(Favorites(), TVM_ENDEDITLABELNOW, TRUE, 0);
  EXPECT_EQ(SelectedInTree(Favorites()), "New Folder");
  Press(kFavoritesToolbar, 130);
  EXPECT_NE(SendMessageA(Favorites(), TVM_GETEDITCONTROL, 0, 0), 0);
  SendMessageA(Favorites(), TVM_ENDEDITLABELNOW, TRUE, 0);
  fixture_.boxes().AnswerWith(IDYES);
  Press(kFavoritesToolbar, 131);
  EXPECT_EQ(FavoritesCount(), before);
}

// ---- History
// -----------------------------------------------------------------------------------------------------

TEST_F(RoutingTest, ClearingTheHistoryAsksFirst) {
  AddToHistory("a.txt");
  Press(kFoldersToolbar, 107);
  fixture_.boxes().AnswerWith(IDNO);
  Press(kHistoryToolbar, 133);
  EXPECT_EQ(HistoryCount(), 1);
  ASSERT_THAT(fixture_.boxes().boxes(), SizeIs(1));
  EXPECT_EQ(fixture_.boxes().boxes()[0].text,
            "Are you sure you want to delete all the items in the history list?");
  EXPECT_THAT(fixture_.boxes().boxes()[0].buttons, ElementsAre(IDYES, IDNO));
  fixture_.boxes().AnswerWith(IDYES);
  Press(kHistoryToolbar, 133);
  EXPECT_EQ(HistoryCount(), 0);
}

TEST_F(RoutingTest, TheSortingMenuOpensBelowItsButtonWhichIsPressedMeanwhile) {
  Press(kFoldersToolbar, 107);
  RECT button = {};
  SendMessageA(Toolbar(kHistoryToolbar), TB_GETRECT, 134, reinterpret_cast<LPARAM>(&button));
  MapWindowPoints(Toolbar(kHistoryToolbar), nullptr, reinterpret_cast<POINT*>(&button), 2);
  RECT place = {};
  bool pressed = false;
  std::vector<std::string> texts;
  {
    const ModalVisitor visitor([&](HWND window) {
      GetWindowRect(window, &place);
      texts = MenuTexts(MenuOf(window));
      pressed = IsPressed(kHistoryToolbar, 134);
    });
    Press(kHistoryToolbar, 134);
  }
  EXPECT_TRUE(pressed);
  EXPECT_FALSE(IsPressed(kHistoryToolbar, 134));
  EXPECT_EQ(place.left, button.left);
  EXPECT_EQ(place.top, button.bottom + 1);
  EXPECT_THAT(texts, SizeIs(4));
}

TEST_F(RoutingTest, TheSortingMethodsSortTheHistory) {
  AddToHistory("b.txt");
  AddToHistory("a.txt");
  const auto first = [&] {
    char text[MAX_PATH] = "";
    SendMessageA(fixture_.PanelChild(kHistoryList), LB_GETTEXT, 0, reinterpret_cast<LPARAM>(text));
    return std::string(text);
  };
  for (int method = 0; method < 4; ++method) {
    SendToPanel(3000 + method);
    EXPECT_THAT(first(), HasSubstr(method == 1 ? "b.txt" : "a.txt")) << method;
  }
  fixture_.Close();
  EXPECT_EQ(GetPrivateProfileIntA("History", "HistorySortingMethod", -1, fixture_.ProfilePath().c_str()), 3);
}

TEST_F(RoutingTest, TheHistoryIconsAreSwitched) {
  AddToHistory("a.txt");
  Press(kFoldersToolbar, 107);
  const HWND list = fixture_.PanelChild(kHistoryList);
  const LRESULT tall = SendMessageA(list, LB_GETITEMHEIGHT, 0, 0);
  Press(kHistoryToolbar, 135);
  EXPECT_NE(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0), tall);
  Press(kHistoryToolbar, 135);
  EXPECT_EQ(SendMessageA(list, LB_GETITEMHEIGHT, 0, 0), tall);
}

class RoutingWithIconsTest : public RoutingTest {
 protected:
  void SetUp() override {
    WritePrivateProfileStringA("History", "HistoryShowIcons", "1", fixture_.ProfilePath().c_str());
    RoutingTest::SetUp();
  }
};

TEST_F(RoutingWithIconsTest, TheIconsButtonIsCheckedFromTheStart) {
  EXPECT_TRUE(IsChecked(kHistoryToolbar, 135));
  Press(kFoldersToolbar, 107);
  Press(kHistoryToolbar, 135);
  EXPECT_FALSE(IsChecked(kHistoryToolbar, 135));
}

// ---- The order in which a message is offered
// ---------------------------------------------------------------------

TEST_F(RoutingTest, TheHistoryGetsThePanelsMessagesOnlyWhileItIsShown) {
  AddToHistory("a.txt");
  const HWND list = fixture_.PanelChild(kHistoryList);
  SendMessageA(list, LB_SETCURSEL, 0, 0);
  const auto select = [&] {
    SendMessageA(fixture_.Panel(), WM_COMMAND, MAKEWPARAM(kHistoryList, LBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(list));
  };
  select();
  EXPECT_EQ(Documents(), 0U);
  Press(kFoldersToolbar, 107);
  SendMessageA(list, LB_SETCURSEL, 0, 0);
  select();
  EXPECT_EQ(Documents(), 1U);
}

TEST_F(RoutingTest, TheFavouritesGetThePanelsMessagesOnlyWhileTheyAreShown) {
  SelectFavoritesRoot();
  NMTVKEYDOWN key = {};
  key.hdr.hwndFrom = Favorites();
  key.hdr.idFrom = kFavoritesTree;
  key.hdr.code = static_cast<UINT>(TVN_KEYDOWN);
  key.wVKey = VK_DELETE;
  const auto press = [&] {
    SendMessageA(fixture_.Panel(), WM_NOTIFY, kFavoritesTree, reinterpret_cast<LPARAM>(&key));
  };
  press();
  EXPECT_THAT(fixture_.boxes().boxes(), SizeIs(0));
  Press(kFoldersToolbar, 108);
  SelectFavoritesRoot();
  press();
  ASSERT_THAT(fixture_.boxes().boxes(), SizeIs(1));
  EXPECT_EQ(fixture_.boxes().boxes()[0].text, "This item cannot be deleted");
}

TEST_F(RoutingTest, TheHookComesBeforeTheWindowProcedure) {
  const UINT message = host::Call<host::op::GetNotificationMessage>(fixture_.services().services());
  fixture_.services().ClearCalls();
  SendMessageA(fixture_.ExplorerWindow(), message, host::kNotifyDocked, 0);
  std::vector<std::string> actions;
  for (const workbench::ServiceCall& call : fixture_.services().calls()) {
    if (call.operation == "ShowUtilityPanel" || call.operation == "RedrawBracket")
      actions.push_back(call.operation);
  }
  // The hook shows the panel, then the procedure places the panes.
  ASSERT_GE(actions.size(), 2U);
  EXPECT_EQ(actions.front(), "ShowUtilityPanel");
  EXPECT_EQ(std::count(actions.begin(), actions.end(), "ShowUtilityPanel"), 1);
  EXPECT_EQ(actions.back(), "RedrawBracket");
}

TEST_F(RoutingTest, ADropDownSendsItsCommandAndIsNotMarkedAsHandled) {
  NMTOOLBARA dropDown = {};
  dropDown.hdr.hwndFrom = Toolbar(kCommandToolbar);
  dropDown.hdr.idFrom = kCommandToolbar;
  dropDown.hdr.code = static_cast<UINT>(TBN_DROPDOWN);
  dropDown.iItem = 114;  // any command: here one that shows without a menu
  EXPECT_EQ(SendMessageA(fixture_.ExplorerWindow(), WM_NOTIFY, kCommandToolbar,
                         reinterpret_cast<LPARAM>(&dropDown)),
            0);
  EXPECT_TRUE(IsChecked(kCommandToolbar, 114));
}

TEST_F(RoutingTest, ChangedFileTypesPaintTheListAnew) {
  const HWND list = fixture_.FileList();
  UpdateWindow(list);
  ValidateRect(list, nullptr);
  EXPECT_EQ(SendMessageA(fixture_.ExplorerWindow(), 0x414, 0, 0), 0);
  EXPECT_TRUE(GetUpdateRect(list, nullptr, FALSE));
}

TEST_F(RoutingTest, FoldersViewIsNoCommandOfTheExplorerWindow) {
  Press(kCommandToolbar, 107);
  EXPECT_EQ(SendToExplorer(106), 0);
  EXPECT_TRUE(PanelShows(kHistoryToolbar));
}

}  // namespace
}  // namespace explorer_tests
