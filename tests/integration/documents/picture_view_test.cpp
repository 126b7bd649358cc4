#include <gtest/gtest.h>

#include "tests/integration/documents/view_host.h"
#include "tests/support/temp_directory.h"

namespace document_tests {
namespace {

using test_support::TempDirectory;

constexpr COLORREF kBackground = RGB(0xF0, 0xF1, 0xF3);
constexpr COLORREF kRed = RGB(255, 0, 0);

LPARAM ScreenPoint(HWND window, int x, int y) {
  POINT point = {x, y};
  ClientToScreen(window, &point);
  return MAKELPARAM(point.x, point.y);
}

void TurnWheel(HWND window, int notches, int x, int y) {
  SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, notches * WHEEL_DELTA), ScreenPoint(window, x, y));
}

class PictureViewTest : public testing::Test {
 protected:
  HWND Open(int width, int height) {
    const auto* view = host_.Open(folder_.AddFile(L"p.bmp", BitmapFile(width, height, kRed)));
    return view == nullptr ? nullptr : view->window();
  }
  TempDirectory folder_;
  ViewHost host_{200, 100};
};

TEST_F(PictureViewTest, ShowsTheWholePictureInTheMiddle) {
  ASSERT_NE(Open(1000, 250), nullptr);  // shown as 200 by 50
  EXPECT_EQ(host_.PixelAt(100, 50), kRed);
  EXPECT_EQ(host_.PixelAt(1, 27), kRed);
  EXPECT_EQ(host_.PixelAt(198, 72), kRed);
  EXPECT_EQ(host_.PixelAt(100, 20), kBackground);
  EXPECT_EQ(host_.PixelAt(100, 80), kBackground);
}

TEST_F(PictureViewTest, FollowsTheWindowsSize) {
  const HWND window = Open(1000, 1000);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(host_.PixelAt(10, 50), kBackground);
  SetWindowPos(window, nullptr, 0, 0, 60, 60, SWP_NOZORDER | SWP_NOMOVE);
  EXPECT_EQ(host_.PixelAt(2, 50), kRed);
}

TEST_F(PictureViewTest, ZoomsByTheWheelAndTheKeys) {
  const HWND window = Open(20, 20);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(host_.PixelAt(85, 50), kBackground);
  TurnWheel(window, 4, 100, 50);  // about two and a half times
  EXPECT_EQ(host_.PixelAt(85, 50), kRed);
  SendMessageW(window, WM_CHAR, '0', 0);
  EXPECT_EQ(host_.PixelAt(85, 50), kBackground);
  for (int i = 0; i < 4; ++i) SendMessageW(window, WM_CHAR, '+', 0);
  EXPECT_EQ(host_.PixelAt(85, 50), kRed);
  for (int i = 0; i < 4; ++i) SendMessageW(window, WM_CHAR, '-', 0);
  EXPECT_EQ(host_.PixelAt(85, 50), kBackground);
}

TEST_F(PictureViewTest, MovesALargePictureByDragging) {
  const HWND window = Open(400, 100);
  ASSERT_NE(window, nullptr);
  SendMessageW(window, WM_CHAR, '1', 0);
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(100, 50));
  EXPECT_EQ(GetCapture(), window);
  SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(180, 50));
  SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(180, 50));
  EXPECT_EQ(GetCapture(), nullptr);
  EXPECT_EQ(host_.PixelAt(5, 50), kRed) << "the picture covers the view however it is moved";
  EXPECT_EQ(host_.PixelAt(195, 50), kRed);
}

TEST_F(PictureViewTest, ChangesBetweenWholeAndOwnSizeByDoubleClick) {
  const HWND window = Open(2000, 100);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(host_.PixelAt(100, 10), kBackground);
  SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(100, 50));
  EXPECT_EQ(host_.PixelAt(100, 10), kRed);
  SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(100, 50));
  EXPECT_EQ(host_.PixelAt(100, 10), kBackground);
}

TEST_F(PictureViewTest, ShowsTheColoursOfAPngAndABoardWhereItIsClear) {
  const auto* view = host_.Open(folder_.AddFile(L"small.png", SmallPng()));
  ASSERT_NE(view, nullptr);
  for (int i = 0; i < 30; ++i) SendMessageW(view->window(), WM_CHAR, '+', 0);  // 32 times: 64 by 64
  EXPECT_EQ(host_.PixelAt(80, 30), kRed);
  EXPECT_EQ(host_.PixelAt(120, 30), RGB(0, 255, 0));
  EXPECT_EQ(host_.PixelAt(80, 70), RGB(0, 0, 255));
  int white = 0;
  int gray = 0;
  for (int x = 102; x < 130; ++x) {
    white += host_.PixelAt(x, 70) == RGB(255, 255, 255);
    gray += host_.PixelAt(x, 70) == RGB(0xD9, 0xD9, 0xD9);
  }
  EXPECT_GT(white, 5);
  EXPECT_GT(gray, 5);
  EXPECT_EQ(white + gray, 28);
}

}  // namespace
}  // namespace document_tests
