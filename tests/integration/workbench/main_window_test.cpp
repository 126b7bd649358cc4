// The main window: menu, status line, its remembered place, the working folder, two runs in one process.
#include <windows.h>

#include <commctrl.h>

#include <algorithm>
#include <vector>

#include "src/host/vc64_tx.h"
#include "tests/integration/workbench/workbench_fixture.h"
#include "tests/support/explorer/leak_count.h"
#include "tests/support/high_contrast.h"

namespace workbench {
namespace {

using MainWindowTest = WorkbenchTest;

TEST_F(MainWindowTest, TheSizeOfTheOptionsIsTheWindows) {
  Start();
  RECT rect = {};
  GetWindowRect(host().window(), &rect);
  EXPECT_EQ(rect.right - rect.left, 1000);
  EXPECT_EQ(rect.bottom - rect.top, 700);
}

TEST_F(MainWindowTest, ThePlaceIsRemembered) {
  Start();
  SetWindowPos(host().window(), nullptr, 40, 50, 900, 640, SWP_NOZORDER);
  WorkbenchOptions options = Options();
  options.size.reset();
  Start(std::move(options));
  RECT rect = {};
  GetWindowRect(host().window(), &rect);
  EXPECT_EQ(ToRect(rect), (Rect{40, 50, 940, 690}));
}

TEST_F(MainWindowTest, ADamagedPlaceGivesTheDefault) {
  for (const wchar_t* text : {L"1,2,3", L"a,b,c,d,e", L"10,10,5,5,0", L"1,2,300,400,0,7"}) {
    Stop();
    WritePrivateProfileStringW(L"Workbench-Layout", L"Main-Window", text,
                               folder_.Join(L"workbench.ini").c_str());
    WorkbenchOptions options = Options();
    options.size.reset();
    Start(std::move(options));
    RECT rect = {};
    GetWindowRect(host().window(), &rect);
    const int width = std::min(host().theme().Scale(1180), GetSystemMetrics(SM_CXSCREEN));
    EXPECT_EQ(rect.right - rect.left, width) << text;
  }
}

// Messages that a window's procedure was given, each passed on to the procedure that was there.
class MessagesOf {
 public:
  explicit MessagesOf(HWND window) : window_(window) {
    SetPropW(window, L"MessagesOf", this);
    previous_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MessagesOf::Procedure)));
  }
  ~MessagesOf() {
    SetWindowLongPtrW(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_));
    RemovePropW(window_, L"MessagesOf");
  }
  MessagesOf(const MessagesOf&) = delete;
  MessagesOf& operator=(const MessagesOf&) = delete;
  int Count(UINT message) const { return static_cast<int>(std::count(seen_.begin(), seen_.end(), message)); }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT id, WPARAM first, LPARAM second) {
    auto* const self = static_cast<MessagesOf*>(GetPropW(window, L"MessagesOf"));
    self->seen_.push_back(id);
    return CallWindowProcW(self->previous_, window, id, first, second);
  }

  HWND window_;
  WNDPROC previous_ = nullptr;
  std::vector<UINT> seen_;
};

// The system tells top-level windows alone, and the common controls want to know.
TEST_F(MainWindowTest, AChangeOfColoursReachesTheControlsInside) {
  Start();
  const MessagesOf status(host().main().statusBar());
  const MessagesOf panel(host().panel().window());
  SendMessageW(host().window(), WM_SYSCOLORCHANGE, 0, 0);
  EXPECT_EQ(status.Count(WM_SYSCOLORCHANGE), 1);
  EXPECT_EQ(panel.Count(WM_SYSCOLORCHANGE), 1);
  SendMessageW(host().window(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
  EXPECT_EQ(status.Count(WM_SYSCOLORCHANGE), 2) << "high contrast brings other colours";
  SendMessageW(host().window(), WM_SETTINGCHANGE, SPI_SETWORKAREA, 0);
  EXPECT_EQ(status.Count(WM_SYSCOLORCHANGE), 2);
}

TEST_F(MainWindowTest, InHighContrastNoColourIsMixed) {
  Start();
  const COLORREF ordinary = host().theme().colors().mutedText;
  ASSERT_NE(ordinary, GetSysColor(COLOR_WINDOWTEXT));
  {
    const test_support::HighContrast contrast(GetModuleHandleW(nullptr));
    ASSERT_TRUE(contrast.installed());
    SendMessageW(host().window(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
    const ThemeColors colors = host().theme().colors();
    const std::vector<COLORREF> systems = {GetSysColor(COLOR_3DFACE), GetSysColor(COLOR_WINDOW),
                                           GetSysColor(COLOR_WINDOWTEXT), GetSysColor(COLOR_HIGHLIGHT),
                                           GetSysColor(COLOR_HIGHLIGHTTEXT)};
    for (const COLORREF color : {colors.face, colors.caption, colors.activeCaption, colors.activeText, colors.text,
                                 colors.mutedText, colors.line, colors.paper, colors.hover, colors.accent}) {
      EXPECT_NE(std::find(systems.begin(), systems.end(), color), systems.end()) << std::hex << color;
    }
  }
  SendMessageW(host().window(), WM_SETTINGCHANGE, SPI_SETHIGHCONTRAST, 0);
  EXPECT_EQ(host().theme().colors().mutedText, ordinary);
}

TEST_F(MainWindowTest, TheStatusLineHasAMessageAndASummary) {
  Start();
  host().main().SetMessage(L"A message");
  host().main().SetSummary(L"A summary");
  wchar_t text[100] = L"";
  SendMessageW(host().main().statusBar(), SB_GETTEXTW, 0, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, L"A message");
  SendMessageW(host().main().statusBar(), SB_GETTEXTW, 1, reinterpret_cast<LPARAM>(text));
  EXPECT_STREQ(text, L"A summary");
}

TEST_F(MainWindowTest, TheViewMenuListsTheWindowsAndTogglesThem) {
  Start();
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const HMENU view = GetSubMenu(host().main().menu(), kViewMenuPosition);
  SendMessageW(host().window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(view),
               MAKELPARAM(kViewMenuPosition, 0));
  wchar_t text[100] = L"";
  GetMenuStringW(view, 0, text, 100, MF_BYPOSITION);
  EXPECT_STREQ(text, L"Utility panel");
  GetMenuStringW(view, 1, text, 100, MF_BYPOSITION);
  EXPECT_STREQ(text, L"Test window");
  EXPECT_NE(GetMenuState(view, 1, MF_BYPOSITION) & MF_CHECKED, 0u);
  const int entries = GetMenuItemCount(view);
  host().Execute(kCommandFirstWindow + 1);
  EXPECT_FALSE(IsWindowVisible(window->window()));
  SendMessageW(host().window(), WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(view),
               MAKELPARAM(kViewMenuPosition, 0));
  EXPECT_EQ(GetMenuItemCount(view), entries);
  EXPECT_EQ(GetMenuState(view, 1, MF_BYPOSITION) & MF_CHECKED, 0u);
  host().Execute(kCommandFirstWindow + 1);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(MainWindowTest, TheFolderOfTheCommandLineWinsOverTheRememberedOne) {
  const std::wstring link = folder_.AddFile(L"user\\ExploreCurrentDirectory.lnk", "link");
  Start();
  EXPECT_NE(GetFileAttributesW(link.c_str()), INVALID_FILE_ATTRIBUTES) << "without a folder the link stays";
  WorkbenchOptions options = Options();
  options.folder = folder_.AddFolder(L"models");
  Start(std::move(options));
  EXPECT_EQ(Tx_Inquire_Environment("TS_WORKING_DIR"), folder_.Join(std::string("models")));
  EXPECT_EQ(GetFileAttributesW(link.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(MainWindowTest, WithoutAProfileItLiesInTheUsersDirectory) {
  WorkbenchOptions options = Options();
  options.profilePath.clear();
  Start(std::move(options));
  EXPECT_EQ(host().profilePath(), folder_.Join(std::string("user\\workbench.ini")));
}

TEST_F(MainWindowTest, ClosingEndsTheLoop) {
  Start();
  PostMessageW(host().window(), WM_CLOSE, 0, 0);
  EXPECT_EQ(host().Run(), 0);
  EXPECT_FALSE(host().isOpen());
  host().Close();
}

TEST_F(MainWindowTest, TheEndOfTheSessionSavesThePlaces) {
  Start();
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockRight);
  SetWindowPos(host().window(), nullptr, 40, 50, 900, 640, SWP_NOZORDER);
  SendMessageW(host().window(), WM_ENDSESSION, FALSE, 0);
  const PlacementStore store(folder_.Join(L"workbench.ini"));
  EXPECT_EQ(store.LoadText(L"Main-Window"), L"") << "the session goes on";
  SendMessageW(host().window(), WM_ENDSESSION, TRUE, 0);
  EXPECT_EQ(store.LoadText(L"Main-Window"), L"40,50,940,690,0");
  ASSERT_TRUE(store.Load(kTestGuid).has_value());
  EXPECT_EQ(store.Load(kTestGuid)->area, Area::Right);
}

TEST_F(MainWindowTest, ARelativeProfileLiesInTheCurrentFolder) {
  wchar_t before[MAX_PATH] = L"";
  GetCurrentDirectoryW(MAX_PATH, before);
  SetCurrentDirectoryW(folder_.path().c_str());
  WorkbenchOptions options = Options();
  options.profilePath = L"mine.ini";
  Start(std::move(options));
  SetCurrentDirectoryW(before);
  EXPECT_EQ(host().profilePath(), folder_.Join(std::string("mine.ini")));
}

TEST_F(MainWindowTest, ManyRunsInOneProcessLeaveNothingBehind) {
  const auto run = [&] {
    Start();
    auto floating = Docked(host::kMethodFloating, host::kDockBottom);
    auto docked = Docked(host::kMethodTabbedCollapsible, host::kDockBottom, kOtherGuid);
    host::Call<host::op::SetWindowState>(services(), docked->window(), host::kStateCollapsed);
    host().OpenDocument(folder_.AddFile(L"one.txt", "1"));
    host().Pump();
    floating.reset();
    docked.reset();
    Stop();
  };
  run();
  run();
  const test_support::LeakCount before = test_support::CountLeaks();
  for (int i = 0; i < 8; ++i) run();
  const test_support::LeakCount after = test_support::CountLeaks();
  EXPECT_EQ(after.windows, before.windows);
  EXPECT_EQ(after.gdiObjects, before.gdiObjects);
  EXPECT_EQ(after.hostAllocations, before.hostAllocations);
}

}  // namespace
}  // namespace workbench
