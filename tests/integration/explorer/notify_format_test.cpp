// Hosts whose windows take 8-bit and hosts whose windows take wide notifications: the toolbars' tooltips show
// their texts in both.
#include <gtest/gtest.h>

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <map>
#include <string>

#include "tests/integration/explorer/running_explorer.h"

namespace explorer_tests {
namespace {

constexpr int kToolbars[] = {kCommandToolbar, kFoldersToolbar, kHistoryToolbar, kFavoritesToolbar,
                             kSelectorToolbar};

// Windows that answer for themselves which form they take, as a host's page does that is a narrow or a wide
// window.
class WindowsThatTake {
 public:
  // Every window of windowClass, below the procedures that others put on it later, or the parent of every
  // such window, on top of those that it has.
  enum class Which { kWindows, kParents };
  WindowsThatTake(LRESULT format, const char* windowClass, Which which)
      : format_(format), windowClass_(windowClass), which_(which) {
    current_ = this;
    hook_ = SetWindowsHookExA(WH_CBT, OnCreation, nullptr, GetCurrentThreadId());
  }
  ~WindowsThatTake() {
    UnhookWindowsHookEx(hook_);
    for (const auto& [window, procedure] : procedures_) {
      if (which_ == Which::kParents && IsWindow(window)) Put(window, procedure);
    }
    current_ = nullptr;
  }
  WindowsThatTake(const WindowsThatTake&) = delete;
  WindowsThatTake& operator=(const WindowsThatTake&) = delete;

  // How often one of them was asked.
  size_t asked() const { return asked_; }
  bool Has(HWND window) const { return procedures_.contains(window); }

 private:
  static LRESULT CALLBACK OnCreation(int code, WPARAM window, LPARAM creation) {
    if (code == HCBT_CREATEWND) {
      std::array<char, 64> name = {};
      GetClassNameA(reinterpret_cast<HWND>(window), name.data(), static_cast<int>(name.size()));
      const HWND parent = reinterpret_cast<CBT_CREATEWNDA*>(creation)->lpcs->hwndParent;
      if (current_->windowClass_ == name.data()) {
        current_->Take(current_->which_ == Which::kParents ? parent : reinterpret_cast<HWND>(window));
      }
    }
    return CallNextHookEx(nullptr, code, window, creation);
  }
  void Take(HWND window) {
    if (window != nullptr && !Has(window)) procedures_[window] = Put(window, Procedure);
  }
  // Leaves the window's character set as it is.
  static WNDPROC Put(HWND window, WNDPROC procedure) {
    const auto value = reinterpret_cast<LONG_PTR>(procedure);
    return reinterpret_cast<WNDPROC>(IsWindowUnicode(window)
                                         ? SetWindowLongPtrW(window, GWLP_WNDPROC, value)
                                         : SetWindowLongPtrA(window, GWLP_WNDPROC, value));
  }
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFYFORMAT && lParam == NF_QUERY) {
      ++current_->asked_;
      return current_->format_;
    }
    const WNDPROC previous = current_->procedures_[window];
    return IsWindowUnicode(window) ? CallWindowProcW(previous, window, message, wParam, lParam)
                                   : CallWindowProcA(previous, window, message, wParam, lParam);
  }

  static inline WindowsThatTake* current_ = nullptr;
  LRESULT format_;
  std::string windowClass_;
  Which which_;
  HHOOK hook_ = nullptr;
  size_t asked_ = 0;
  std::map<HWND, WNDPROC> procedures_;
};

class NotifyFormatTest : public RunningExplorer, public testing::WithParamInterface<int> {
 protected:
  // What the toolbar's tooltip control shows for a command, in either form of the question.
  std::string Shown(int toolbar, int command) const {
    const auto tips = reinterpret_cast<HWND>(SendMessageA(Toolbar(toolbar), TB_GETTOOLTIPS, 0, 0));
    TTTOOLINFOA tool = {};
    std::array<char, 1024> text = {};
    tool.cbSize = sizeof(tool);
    tool.hwnd = Toolbar(toolbar);
    tool.uId = static_cast<UINT_PTR>(command);
    tool.lpszText = text.data();
    SendMessageA(tips, TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
    return text.data();
  }
  void ExpectTooltips() const {
    EXPECT_EQ(Shown(kCommandToolbar, 117), "Thumb Nail Mode");
    EXPECT_EQ(Shown(kFoldersToolbar, 106), "Show Files and Folder View");
    EXPECT_EQ(Shown(kHistoryToolbar, 134), "History list sorting method");
    EXPECT_EQ(Shown(kFavoritesToolbar, 129), "Create new Favorites folder");
    EXPECT_EQ(Shown(kSelectorToolbar, 119), "Search for Files Locally");
  }
};

TEST_P(NotifyFormatTest, TheToolbarsSpeakEightBitTextWhateverTheirParentTakes) {
  const WindowsThatTake parents(GetParam(), TOOLBARCLASSNAMEA, WindowsThatTake::Which::kParents);
  Begin(0);
  ASSERT_TRUE(parents.Has(fixture_.Panel()));
  ASSERT_TRUE(parents.Has(fixture_.ExplorerWindow()));
  EXPECT_GE(parents.asked(), std::size(kToolbars)) << "each toolbar asked when it was made";
  for (const int toolbar : kToolbars) {
    EXPECT_EQ(SendMessageA(Toolbar(toolbar), TB_GETUNICODEFORMAT, 0, 0), FALSE) << toolbar;
  }
  ExpectTooltips();
}

// What a host brings about that has the controls in its page ask again.
TEST_P(NotifyFormatTest, ToolbarsThatHaveComeToSpeakTheParentsFormGetTheirTextsInIt) {
  Begin(0);
  for (const int toolbar : kToolbars) {
    SendMessageA(Toolbar(toolbar), TB_SETUNICODEFORMAT, GetParam() == NFR_UNICODE, 0);
  }
  ExpectTooltips();
}

INSTANTIATE_TEST_SUITE_P(Hosts, NotifyFormatTest, testing::Values(NFR_ANSI, NFR_UNICODE));

class OwnAnswerTest : public RunningExplorer {
 protected:
  static LRESULT AskedBy(HWND control, HWND parent) {
    return SendMessageA(parent, WM_NOTIFYFORMAT, reinterpret_cast<WPARAM>(control), NF_QUERY);
  }
};

TEST_F(OwnAnswerTest, TheModulesControlsAreToldEightBitAndTheHostsAreTheHosts) {
  const WindowsThatTake page(NFR_UNICODE, "WorkbenchPanelPage", WindowsThatTake::Which::kWindows);
  Begin(0);
  ASSERT_TRUE(page.Has(fixture_.Panel()));
  for (const int toolbar : kToolbars) {
    EXPECT_EQ(AskedBy(Toolbar(toolbar), GetParent(Toolbar(toolbar))), NFR_ANSI) << toolbar;
  }
  EXPECT_EQ(AskedBy(fixture_.PanelChild(104), fixture_.Panel()), NFR_ANSI) << "the favourites";
  const HWND hosts = CreateWindowExW(0, L"STATIC", L"", WS_CHILD, 0, 0, 10, 10, fixture_.Panel(), nullptr,
                                     GetModuleHandleW(nullptr), nullptr);
  ASSERT_NE(hosts, nullptr);
  EXPECT_EQ(AskedBy(hosts, fixture_.Panel()), NFR_UNICODE);
  DestroyWindow(hosts);
  fixture_.Close();
}

LRESULT CALLBACK WideProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  return CallWindowProcW(reinterpret_cast<WNDPROC>(GetPropW(window, L"before")), window, message, wParam,
                         lParam);
}

TEST_F(OwnAnswerTest, AnExplorerWindowWithAWideProcedureStillTakesEightBitText) {
  Begin(0);
  const HWND window = fixture_.ExplorerWindow();
  const LONG_PTR before = GetWindowLongPtrW(window, GWLP_WNDPROC);
  SetPropW(window, L"before", reinterpret_cast<HANDLE>(before));
  SetWindowLongPtrW(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WideProcedure));
  EXPECT_TRUE(IsWindowUnicode(window));
  EXPECT_EQ(AskedBy(Toolbar(kCommandToolbar), window), NFR_ANSI);
  SetWindowLongPtrW(window, GWLP_WNDPROC, before);
  RemovePropW(window, L"before");
}

}  // namespace
}  // namespace explorer_tests
