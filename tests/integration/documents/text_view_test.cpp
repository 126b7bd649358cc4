#include "workbench/app/documents/text_view.h"

#include <gtest/gtest.h>

#include "tests/integration/documents/view_host.h"
#include "tests/support/temp_directory.h"

namespace document_tests {
namespace {

using test_support::TempDirectory;
using workbench::kTextGetTopRow;
using workbench::kTextSelectAll;
using workbench::kTextSelectRange;

std::string Lines(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "line " + std::to_string(i) + "\n";
  return text;
}

class TextViewTest : public testing::Test {
 protected:
  HWND Open(const std::string& content, const wchar_t* name = L"t.txt") {
    const auto* view = host_.Open(folder_.AddFile(name, content));
    return view == nullptr ? nullptr : view->window();
  }
  std::wstring CopyAll(HWND window) {
    SendMessageW(window, kTextSelectAll, 0, 0);
    SendMessageW(window, WM_COPY, 0, 0);
    return ClipboardText();
  }
  TempDirectory folder_;
  ViewHost host_{400, 200};
};

TEST_F(TextViewTest, CopiesWhatTheFileSaysInEveryEncoding) {
  using namespace std::string_literals;
  EXPECT_EQ(CopyAll(Open("gr\xC3\xBC\xC3\x9F \xE6\x97\xA5\r\nnext")), L"gr\u00FC\u00DF \u65E5\r\nnext");
  EXPECT_EQ(CopyAll(Open("\xEF\xBB\xBF\xC3\xA4")), L"\u00E4");
  EXPECT_EQ(CopyAll(Open("\xFF\xFE\xE4\0\xE5\x65"s)), L"\u00E4\u65E5");
  EXPECT_EQ(CopyAll(Open("\xFE\xFF\0\xE4\x65\xE5"s)), L"\u00E4\u65E5");
  EXPECT_EQ(CopyAll(Open("euro \x80 \xE4")), L"euro \u20AC \u00E4");
}

TEST_F(TextViewTest, CopiesTheSelectionOnly) {
  const HWND window = Open("one two three");
  SendMessageW(window, kTextSelectRange, 4, 7);
  SendMessageW(window, WM_COPY, 0, 0);
  EXPECT_EQ(ClipboardText(), L"two");
  SendMessageW(window, kTextSelectRange, 3, 3);
  SendMessageW(window, WM_COPY, 0, 0);
  EXPECT_EQ(ClipboardText(), L"two") << "nothing selected leaves the clipboard alone";
}

TEST_F(TextViewTest, SelectsAWordByDoubleClickAndARangeByDragging) {
  const HWND window = Open("alpha beta gamma\nsecond");
  SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(12, 10));
  SendMessageW(window, WM_COPY, 0, 0);
  EXPECT_EQ(ClipboardText(), L"alpha");
  SendMessageW(window, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(0, 8));
  EXPECT_EQ(GetCapture(), window);
  SendMessageW(window, WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(399, 190));
  SendMessageW(window, WM_LBUTTONUP, 0, MAKELPARAM(399, 190));
  EXPECT_EQ(GetCapture(), nullptr);
  SendMessageW(window, WM_COPY, 0, 0);
  EXPECT_EQ(ClipboardText(), L"alpha beta gamma\nsecond");
}

TEST_F(TextViewTest, ShowsTheSelectionInTheSystemsColour) {
  const HWND window = Open("wwwwwwwwww");
  const auto highlighted = [&] {
    int count = 0;
    for (int x = 0; x < 100; ++x) count += host_.PixelAt(x, 10) == GetSysColor(COLOR_HIGHLIGHT);
    return count;
  };
  EXPECT_EQ(highlighted(), 0);
  SendMessageW(window, kTextSelectAll, 0, 0);
  EXPECT_GT(highlighted(), 20);
}

TEST_F(TextViewTest, ScrollsByKeysWheelAndBar) {
  const HWND window = Open(Lines(1000));
  const auto top = [&] { return static_cast<int>(SendMessageW(window, kTextGetTopRow, 0, 0)); };
  EXPECT_EQ(top(), 0);
  SendMessageW(window, WM_KEYDOWN, VK_UP, 0);
  EXPECT_EQ(top(), 0);
  SendMessageW(window, WM_KEYDOWN, VK_DOWN, 0);
  EXPECT_EQ(top(), 1);
  SendMessageW(window, WM_KEYDOWN, VK_NEXT, 0);
  EXPECT_GT(top(), 5);
  SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
  const int last = top();
  EXPECT_GT(last, 900);
  EXPECT_LT(last, 1000);
  SendMessageW(window, WM_KEYDOWN, VK_NEXT, 0);
  EXPECT_EQ(top(), last);
  SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA), 0);
  EXPECT_EQ(top(), last - 3);
  SendMessageW(window, WM_MOUSEWHEEL, MAKEWPARAM(0, WHEEL_DELTA / 3), 0);
  EXPECT_EQ(top(), last - 4) << "a third of a notch is one of its three rows";
  SendMessageW(window, WM_VSCROLL, SB_TOP, 0);
  EXPECT_EQ(top(), 0);
}

TEST_F(TextViewTest, ShowsScrollBarsOnlyWhenTheyAreNeeded) {
  const HWND small = Open("short");
  EXPECT_EQ(GetWindowLongW(small, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL), 0);
  const HWND tall = Open(Lines(100));
  EXPECT_EQ(GetWindowLongW(tall, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL), WS_VSCROLL);
  const HWND wide = Open(std::string(1000, 'x'));
  EXPECT_EQ(GetWindowLongW(wide, GWL_STYLE) & (WS_VSCROLL | WS_HSCROLL), WS_HSCROLL);
}

TEST_F(TextViewTest, ShowsTheFirstPartOfAHugeFileAndSaysSo) {
  std::string huge;
  const std::string line = "a line of a file that goes far beyond what is shown here, again and again\n";
  while (huge.size() < workbench::kTextSizeLimit + 100000) huge += line;
  const HWND window = Open(huge);
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(host_.view()->kind(), L"text");
  EXPECT_EQ(host_.view()->summary().rfind(L"first ", 0), 0u);
  EXPECT_EQ(host_.PixelAt(2, 2), RGB(255, 244, 206)) << "the note's band";
  SendMessageW(window, kTextSelectAll, 0, 0);
  SendMessageW(window, WM_COPY, 0, 0);
  EXPECT_EQ(ClipboardText().size(), workbench::kTextSizeLimit);
}

TEST_F(TextViewTest, TakesAFileOfOneVeryLongLine) {
  const HWND window = Open(std::string(2'000'000, 'x'));
  ASSERT_NE(window, nullptr);
  EXPECT_EQ(host_.view()->summary(), L"1 line, ASCII");
  SendMessageW(window, WM_VSCROLL, SB_BOTTOM, 0);
  EXPECT_GT(SendMessageW(window, kTextGetTopRow, 0, 0), 100) << "it is broken into rows";
  EXPECT_EQ(CopyAll(window).size(), 2'000'000u) << "but copied as it is";
}

TEST_F(TextViewTest, TakesAnEmptyFile) {
  const HWND window = Open("");
  ASSERT_NE(window, nullptr);
  SendMessageW(window, kTextSelectAll, 0, 0);
  SendMessageW(window, WM_LBUTTONDBLCLK, MK_LBUTTON, MAKELPARAM(50, 50));
  SendMessageW(window, WM_KEYDOWN, VK_END, 0);
  EXPECT_EQ(host_.PixelAt(50, 50), GetSysColor(COLOR_WINDOW));
}

}  // namespace
}  // namespace document_tests
