// The explorer's page of the utility panel.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

constexpr int kFolders = 32001;
constexpr int kHistory = 32002;
constexpr int kFavorites = 32003;
constexpr int kCommands = 32004;
constexpr int kHistoryList = 32000;
constexpr int kFavoritesTree = 104;

class SelectorAreaTest : public testing::Test {
 protected:
  void SetUp() override {
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_NE(fixture_.FolderTree(), nullptr);
  }

  bool Shows(int id) const {
    const HWND child = fixture_.PanelChild(id);
    return child != nullptr && (GetWindowLongPtrA(child, GWL_STYLE) & WS_VISIBLE) != 0;
  }
  bool ShowsFolderTree() const {
    HWND child = fixture_.FolderTree();
    while (GetParent(child) != fixture_.Panel()) child = GetParent(child);
    return (GetWindowLongPtrA(child, GWL_STYLE) & WS_VISIBLE) != 0;
  }
  void ExpectView(int view) {
    EXPECT_EQ(Shows(kFolders), view == 0);
    EXPECT_EQ(Shows(kCommands), view == 0);
    EXPECT_EQ(ShowsFolderTree(), view == 0);
    EXPECT_EQ(Shows(kHistory), view == 1);
    EXPECT_EQ(Shows(kHistoryList), view == 1);
    EXPECT_EQ(Shows(kFavorites), view == 2);
    EXPECT_EQ(Shows(kFavoritesTree), view == 2);
    for (const int toolbar : {kFolders, kHistory, kFavorites}) {
      for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(SendMessageA(fixture_.PanelChild(toolbar), TB_ISBUTTONCHECKED, static_cast<WPARAM>(106 + i), 0) != 0,
                  i == view)
            << toolbar;
      }
    }
  }
  RECT Bounds(HWND window) const {
    RECT bounds = {};
    GetWindowRect(window, &bounds);
    MapWindowPoints(nullptr, fixture_.Panel(), reinterpret_cast<POINT*>(&bounds), 2);
    return bounds;
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(SelectorAreaTest, StartsWithTheFolders) { ExpectView(0); }

TEST_F(SelectorAreaTest, KeywordsShowTheirViewAndBringThePanelToTheFront) {
  struct Row {
    const char* keyword;
    int view;
  };
  for (const Row& row : {Row{"showhistorypanel", 1}, Row{"showfavoritespanel", 2}, Row{"showfolderviewpanel", 0}}) {
    fixture_.services().ClearCalls();
    fixture_.SayWithHost({{row.keyword, nullptr}});
    EXPECT_EQ(fixture_.services().CountCalls("ShowUtilityPanel"), 1) << row.keyword;
    ExpectView(row.view);
  }
}

TEST_F(SelectorAreaTest, ShutdownBeforeAShowKeywordChangesNothing) {
  EXPECT_EQ(fixture_.SayWithHost({{"shutdown", nullptr}, {"showhistorypanel", nullptr}}), 0U);
  ExpectView(1);
}

TEST_F(SelectorAreaTest, ToolbarCommandsShowTheirView) {
  SendMessageA(fixture_.Panel(), WM_COMMAND, 108, 0);
  ExpectView(2);
  SendMessageA(fixture_.Panel(), WM_COMMAND, 107, 0);
  ExpectView(1);
  SendMessageA(fixture_.Panel(), WM_COMMAND, 106, 0);
  ExpectView(0);
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 108, 0);
  ExpectView(2);
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 107, 0);
  ExpectView(1);
}

TEST_F(SelectorAreaTest, ViewsShareThePlaceBelowTheLabelToolbar) {
  RECT client = {};
  GetClientRect(fixture_.Panel(), &client);
  const RECT label = Bounds(fixture_.PanelChild(kFolders));
  const RECT commands = Bounds(fixture_.PanelChild(kCommands));
  const RECT history = Bounds(fixture_.PanelChild(kHistoryList));
  const RECT favorites = Bounds(fixture_.PanelChild(kFavoritesTree));
  HWND folderView = fixture_.FolderTree();
  while (GetParent(folderView) != fixture_.Panel()) folderView = GetParent(folderView);
  const RECT folders = Bounds(folderView);
  EXPECT_EQ(history.top, label.bottom);
  EXPECT_EQ(history.right, client.right);
  EXPECT_EQ(favorites.top, label.bottom);
  EXPECT_EQ(favorites.right, client.right + 1);
  EXPECT_EQ(favorites.bottom, client.bottom + 1);
  EXPECT_EQ(folders.top, label.bottom);
  EXPECT_EQ(folders.bottom, client.bottom - (commands.bottom - commands.top));
}

TEST_F(SelectorAreaTest, TheHostMayRedrawAfterEachToolbarThatIsSized) {
  RECT client = {};
  GetClientRect(fixture_.Panel(), &client);
  fixture_.services().ClearCalls();
  SendMessageA(fixture_.Panel(), WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
  EXPECT_EQ(fixture_.services().CountCalls("RedrawBracket"), 4);
}

TEST_F(SelectorAreaTest, LabelsHeadTheirToolbars) {
  struct Row {
    int id;
    const char* label;
  };
  for (const Row& row : {Row{kFolders, "Folders: "}, Row{kHistory, "History:"}, Row{kFavorites, "Favorites:"}}) {
    const HWND toolbar = fixture_.PanelChild(row.id);
    const HWND label = test_support::FindDescendant(toolbar, "Static");
    ASSERT_NE(label, nullptr);
    EXPECT_EQ(test_support::TextOf(label), row.label);
    RECT spacer = {};
    SendMessageA(toolbar, TB_GETRECT, 128, reinterpret_cast<LPARAM>(&spacer));
    RECT place = {};
    GetWindowRect(label, &place);
    MapWindowPoints(nullptr, toolbar, reinterpret_cast<POINT*>(&place), 2);
    EXPECT_EQ(place.left, 6);
    EXPECT_GE(spacer.right, place.right) << row.label;
  }
}

TEST_F(SelectorAreaTest, DestroyingOneToolbarKeepsTheSharedPictures) {
  const auto images = SendMessageA(fixture_.PanelChild(kFolders), TB_GETIMAGELIST, 0, 0);
  for (const int id : {kHistory, kFavorites, kCommands}) {
    EXPECT_EQ(SendMessageA(fixture_.PanelChild(id), TB_GETIMAGELIST, 0, 0), images);
  }
  DestroyWindow(fixture_.PanelChild(kHistory));
  EXPECT_GE(ImageList_GetImageCount(reinterpret_cast<HIMAGELIST>(images)), 38);
}

TEST_F(SelectorAreaTest, UnknownCommandsGoToTheExplorerAndThenToTheHost) {
  // The host's own procedure is the one below the module's.
  static int hostSaw;
  static WNDPROC hostProcedure;
  hostSaw = 0;
  fixture_.Close();
  fixture_.Start();
  fixture_.services().Override<host::op::CreateUtilityPanel>([&](auto...) {
    const HWND page = CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 200, 300, fixture_.workbench().window(), nullptr,
                                      nullptr, nullptr);
    hostProcedure = reinterpret_cast<WNDPROC>(GetWindowLongPtrA(page, GWLP_WNDPROC));
    const WNDPROC counting = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
      if (message == WM_COMMAND && wParam == 119) ++hostSaw;
      return CallWindowProcA(hostProcedure, window, message, wParam, lParam);
    };
    SetWindowLongPtrA(page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(counting));
    return page;
  });
  ASSERT_TRUE(fixture_.LoadExplorer());
  int searches = 0;
  fixture_.workbench().RegisterPlugin(host::kFileSelectionPluginGuid, [&](auto, auto) { ++searches; });
  const HWND panel = test_support::FindDescendant(fixture_.workbench().window(), "SysTreeView32");
  ASSERT_NE(panel, nullptr);
  HWND page = panel;
  while (GetDlgItem(page, kHistoryList) == nullptr) page = GetParent(page);
  SendMessageA(page, WM_COMMAND, 119, 0);
  EXPECT_EQ(searches, 1);
  EXPECT_EQ(hostSaw, 1);
  fixture_.Close();
}

// A host whose windows slide in dispatches messages while it docks one: the page is shown, and the selector area made,
// before there is a file view.
class DispatchingHostTest : public testing::Test {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\here.obj");
    fixture_.directory().AddFile(L"profile.ini", "[Explore]\nFileView_ShowGridLines=0\n");
    fixture_.options().dispatchWhileDocking = true;
    fixture_.Start();
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(DispatchingHostTest, TheStartDirectoryIsAppliedOnceBothViewsExist) {
  bool treeCameFirst = false;
  fixture_.services().Override<host::op::GetStoredRectangle>([&](const char*, RECT*) {  // asked for after docking
    treeCameFirst = fixture_.FolderTree() != nullptr && fixture_.FileList() == nullptr;
    return 0;
  });
  ASSERT_TRUE(fixture_.LoadExplorer());
  EXPECT_TRUE(treeCameFirst);
  EXPECT_TRUE(fixture_.WaitForFile("here.obj"));
}

TEST_F(DispatchingHostTest, TheFileViewGetsTheUsersOptions) {
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_TRUE(fixture_.WaitForFile("here.obj"));
  const auto style = SendMessageA(fixture_.FileList(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
  EXPECT_EQ(style & LVS_EX_GRIDLINES, 0);
}

TEST_F(DispatchingHostTest, GoingElsewhereBeforeTheNextShowIsNotUndone) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_TRUE(fixture_.WaitForFile("below"));
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  fixture_.SayWithHost({{"showhistorypanel", nullptr}, {"showfolderviewpanel", nullptr}});
  fixture_.workbench().Pump();
  EXPECT_GE(fixture_.IndexOf("inner.obj"), 0);
}

}  // namespace
