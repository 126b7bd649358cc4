#include <windows.h>
// commctrl.h needs windows.h before it.
#include <commctrl.h>
#include <gtest/gtest.h>

#include <string>

#include "src/host/vc64_imp.h"
#include "tests/support/wait_until.h"

namespace {

// A window that answers requests for tooltip texts.
class TestWindow {
 public:
  TestWindow(DWORD style, HWND owner, int x, int y, int width, int height) {
    WNDCLASSA windowClass = {};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "HostlibsTestWindow";
    RegisterClassA(&windowClass);
    handle_ = CreateWindowExA(0, "HostlibsTestWindow", "", style, x, y, width, height, owner, nullptr,
                              GetModuleHandleA(nullptr), nullptr);
  }
  ~TestWindow() {
    if (IsWindow(handle_)) DestroyWindow(handle_);
  }
  TestWindow(const TestWindow&) = delete;
  TestWindow& operator=(const TestWindow&) = delete;

  HWND handle() const { return handle_; }
  RECT rect() const {
    RECT rect = {};
    GetWindowRect(handle_, &rect);
    return rect;
  }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NOTIFY && reinterpret_cast<NMHDR*>(lParam)->code == TTN_GETDISPINFOA) {
      reinterpret_cast<NMTTDISPINFOA*>(lParam)->lpszText = const_cast<char*>("the owner's text");
      return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
  }

  HWND handle_;
};

HWND ToolTipOf(HWND owner) {
  HWND tip = nullptr;
  while ((tip = FindWindowExA(nullptr, tip, TOOLTIPS_CLASSA, nullptr)) != nullptr) {
    if (GetWindow(tip, GW_OWNER) == owner) return tip;
  }
  return nullptr;
}

TEST(ToolTip, ShowsTheTextThatItsOwnerAnswersWith) {
  const TestWindow owner(WS_POPUP | WS_VISIBLE, nullptr, 0, 0, 200, 100);
  ImportToolTipControl* control = Import_IO_ToolTipControl_CreateNew(owner.handle());
  ASSERT_NE(control, nullptr);
  const HWND tip = ToolTipOf(owner.handle());
  ASSERT_NE(tip, nullptr);
  char text[256] = "";
  TTTOOLINFOA tool = {};
  tool.cbSize = TTTOOLINFOA_V2_SIZE;
  tool.hwnd = owner.handle();
  tool.uId = reinterpret_cast<UINT_PTR>(owner.handle());
  tool.lpszText = text;
  SendMessageA(tip, TTM_GETTEXTA, sizeof(text), reinterpret_cast<LPARAM>(&tool));
  EXPECT_STREQ(text, "the owner's text");
  Import_IO_ToolTipControl_Delete(control);
  EXPECT_FALSE(IsWindow(tip));
}

TEST(ToolTip, CanBeDeletedAfterItsOwnerIsGone) {
  ImportToolTipControl* control = nullptr;
  HWND tip = nullptr;
  {
    const TestWindow owner(WS_POPUP, nullptr, 0, 0, 10, 10);
    control = Import_IO_ToolTipControl_CreateNew(owner.handle());
    tip = ToolTipOf(owner.handle());
    ASSERT_NE(control, nullptr);
  }
  EXPECT_FALSE(IsWindow(tip)) << "it goes with its owner";
  Import_IO_ToolTipControl_Delete(control);
}

TEST(ToolTip, NeedsAWindow) {
  EXPECT_EQ(Import_IO_ToolTipControl_CreateNew(nullptr), nullptr);
  EXPECT_EQ(Import_IO_ToolTipControl_CreateNew(reinterpret_cast<HWND>(0x12345678)), nullptr);
  Import_IO_ToolTipControl_Delete(nullptr);
}

RECT WorkArea() {
  RECT area = {};
  SystemParametersInfoA(SPI_GETWORKAREA, 0, &area, 0);
  return area;
}

TEST(CenterWindow, MovesToTheMiddleOfTheOwner) {
  const TestWindow owner(WS_POPUP | WS_VISIBLE, nullptr, 100, 100, 600, 400);
  const TestWindow window(WS_POPUP, owner.handle(), 0, 0, 200, 100);
  ASSERT_TRUE(Import_IO_Center_Window(window.handle()));
  EXPECT_EQ(window.rect().left, 300);
  EXPECT_EQ(window.rect().top, 250);
  EXPECT_EQ(window.rect().right - window.rect().left, 200) << "the size stays";
}

TEST(CenterWindow, StaysInsideTheWorkArea) {
  const RECT area = WorkArea();
  const TestWindow owner(WS_POPUP | WS_VISIBLE, nullptr, area.right - 50, area.bottom - 50, 100, 100);
  const TestWindow window(WS_POPUP, owner.handle(), 0, 0, 300, 200);
  ASSERT_TRUE(Import_IO_Center_Window(window.handle()));
  EXPECT_EQ(window.rect().right, area.right);
  EXPECT_EQ(window.rect().bottom, area.bottom);
}

TEST(CenterWindow, WithoutAnOwnerTakesTheMiddleOfTheWorkArea) {
  const RECT area = WorkArea();
  const TestWindow window(WS_POPUP, nullptr, 0, 0, 200, 100);
  ASSERT_TRUE(Import_IO_Center_Window(window.handle()));
  EXPECT_EQ(window.rect().left, area.left + (area.right - area.left - 200) / 2);
  EXPECT_EQ(window.rect().top, area.top + (area.bottom - area.top - 100) / 2);
}

TEST(CenterWindow, AMinimisedOwnerCountsAsNone) {
  const RECT area = WorkArea();
  const TestWindow owner(WS_OVERLAPPEDWINDOW | WS_VISIBLE, nullptr, 0, 0, 300, 300);
  ShowWindow(owner.handle(), SW_MINIMIZE);
  ASSERT_TRUE(test_support::WaitUntil([&] { return IsIconic(owner.handle()) != FALSE; }));
  const TestWindow window(WS_POPUP, owner.handle(), 0, 0, 200, 100);
  ASSERT_TRUE(Import_IO_Center_Window(window.handle()));
  EXPECT_EQ(window.rect().left, area.left + (area.right - area.left - 200) / 2);
}

TEST(CenterWindow, AChildIsCentredInItsParent) {
  const TestWindow parent(WS_POPUP | WS_VISIBLE, nullptr, 200, 100, 400, 300);
  const TestWindow child(WS_CHILD | WS_VISIBLE, parent.handle(), 0, 0, 100, 50);
  ASSERT_TRUE(Import_IO_Center_Window(child.handle()));
  EXPECT_EQ(child.rect().left, 350);
  EXPECT_EQ(child.rect().top, 225);
}

TEST(CenterWindow, RefusesWhatIsNoWindow) {
  EXPECT_FALSE(Import_IO_Center_Window(nullptr));
  EXPECT_FALSE(Import_IO_Center_Window(reinterpret_cast<HWND>(0x12345678)));
}

}  // namespace
