#include "workbench/app/dialogs/color_services.h"

#include <gtest/gtest.h>

#include "tests/integration/documents/dialog_driver.h"
#include "tests/integration/documents/view_host.h"
#include "tests/support/wait_until.h"

namespace document_tests {
namespace {

// A bitmap to draw a button on.
class Canvas {
 public:
  Canvas() : dc_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof info.bmiHeader, 80, -30, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    previous_ = SelectObject(dc_, bitmap_);
  }
  ~Canvas() {
    SelectObject(dc_, previous_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
  }
  void Draw(UINT state, float r, float g, float b) {
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_BUTTON;
    item.itemState = state;
    item.hDC = dc_;
    item.rcItem = {0, 0, 80, 30};
    workbench::DrawColorButton(&item, r, g, b);
  }
  COLORREF At(int x, int y) const { return GetPixel(dc_, x, y); }
  int Differences(const Canvas& other) const {
    int count = 0;
    for (int y = 0; y < 30; ++y) {
      for (int x = 0; x < 80; ++x) count += At(x, y) != other.At(x, y);
    }
    return count;
  }

 private:
  HDC dc_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ previous_ = nullptr;
};

TEST(DrawColorButton, FillsTheMiddleWithTheTruncatedColour) {
  Canvas canvas;
  canvas.Draw(0, 1.0f, 0.5f, 0.0f);
  EXPECT_EQ(canvas.At(40, 15), RGB(255, 127, 0));
  EXPECT_EQ(canvas.At(10, 15), RGB(255, 127, 0));
  EXPECT_NE(canvas.At(1, 1), RGB(255, 127, 0)) << "the button's edge is around it";
}

TEST(DrawColorButton, ShowsPressedFocusedAndDisabledDifferently) {
  Canvas normal;
  Canvas pressed;
  Canvas focused;
  Canvas disabled;
  normal.Draw(0, 1, 0, 0);
  pressed.Draw(ODS_SELECTED, 1, 0, 0);
  focused.Draw(ODS_FOCUS, 1, 0, 0);
  disabled.Draw(ODS_DISABLED, 1, 0, 0);
  EXPECT_GT(normal.Differences(pressed), 20);
  EXPECT_GT(normal.Differences(focused), 20);
  EXPECT_EQ(focused.At(40, 15), RGB(255, 0, 0));
  EXPECT_NE(disabled.At(40, 15), RGB(255, 0, 0));
}

TEST(DrawColorButton, IgnoresANullItem) {
  workbench::DrawColorButton(nullptr, 1, 0, 0);
  const DRAWITEMSTRUCT item = {};
  workbench::DrawColorButton(&item, 1, 0, 0);
}

int drawnTimes = 0;

LRESULT CALLBACK CountDraws(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == WM_DRAWITEM) {
    ++drawnTimes;
    workbench::DrawColorButton(reinterpret_cast<const DRAWITEMSTRUCT*>(lParam), 0, 1, 0);
    return TRUE;
  }
  return DefWindowProcW(window, message, wParam, lParam);
}

TEST(RepaintColorButton, PaintsTheButtonAtOnce) {
  ViewHost host;
  SetWindowLongPtrW(host.window(), GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(CountDraws));
  const HWND button = CreateWindowExW(0, L"BUTTON", L"", WS_CHILD | WS_VISIBLE | BS_OWNERDRAW, 10, 10, 80, 30,
                                      host.window(), reinterpret_cast<HMENU>(921), nullptr, nullptr);
  ASSERT_NE(button, nullptr);
  test_support::PumpMessages();
  const int before = drawnTimes;
  workbench::RepaintColorButton(host.window(), 921, 0, 1, 0);
  EXPECT_EQ(drawnTimes, before + 1);
  const HDC dc = GetDC(button);
  EXPECT_EQ(GetPixel(dc, 40, 15), RGB(0, 255, 0));
  ReleaseDC(button, dc);
  workbench::RepaintColorButton(host.window(), 1, 0, 1, 0);  // no such control
  workbench::RepaintColorButton(nullptr, 921, 0, 1, 0);
  EXPECT_EQ(drawnTimes, before + 1);
}

constexpr int kRedEdit = 706;  // the system picker's own field

TEST(PickColor, HasTheTitleAndGivesTheColourThatWasPicked) {
  ViewHost host;
  float r = 0.5f;
  float g = 0.25f;
  float b = 1.0f;
  const DialogDriver driver([](HWND dialog) {
    EXPECT_EQ(WindowText(dialog), L"Text Files Color");
    EXPECT_EQ(GetDlgItemInt(dialog, kRedEdit, nullptr, FALSE), 127u);
    SetDlgItemInt(dialog, kRedEdit, 200, FALSE);
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(workbench::PickColor(host.window(), "Text Files Color", &r, &g, &b));
  EXPECT_EQ(static_cast<int>(r * 255.0f), 200);
  EXPECT_EQ(g, 0.25f) << "what was not changed keeps its exact value";
  EXPECT_EQ(b, 1.0f);
}

TEST(PickColor, ChangesNothingOnCancelOrWithoutAChange) {
  ViewHost host;
  for (const int button : {IDCANCEL, IDOK}) {
    float r = 0.123f;
    float g = 0.456f;
    float b = 0.789f;
    const DialogDriver driver([button](HWND dialog) {
      if (button == IDCANCEL) SetDlgItemInt(dialog, kRedEdit, 9, FALSE);
      Press(dialog, button);
    });
    EXPECT_FALSE(workbench::PickColor(host.window(), nullptr, &r, &g, &b));
    EXPECT_EQ(r, 0.123f);
    EXPECT_EQ(g, 0.456f);
    EXPECT_EQ(b, 0.789f);
  }
}

TEST(PickColor, RefusesNullColours) {
  float value = 0;
  EXPECT_FALSE(workbench::PickColor(nullptr, "x", nullptr, &value, &value));
  EXPECT_FALSE(workbench::PickColor(nullptr, "x", &value, &value, nullptr));
}

}  // namespace
}  // namespace document_tests
