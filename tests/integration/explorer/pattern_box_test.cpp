// The "Select:" box as a part of the command toolbar: label, place, help and keys.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <string>
#include <vector>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class PatternBoxTest : public RunningExplorer {
 protected:
  void SetUp() override {
    for (const wchar_t* const name : {L"abc.txt", L"abd.txt", L"xyz.txt"}) {
      fixture_.directory().AddFile(std::wstring(L"files\\") + name);
    }
    Begin(3);
    edit_ = fixture_.SelectEdit();
    ASSERT_NE(edit_, nullptr);
  }
  RECT InToolbar(HWND window) const {
    RECT place = {};
    GetWindowRect(window, &place);
    MapWindowPoints(nullptr, Toolbar(kCommandToolbar), reinterpret_cast<POINT*>(&place), 2);
    return place;
  }
  HWND Label() const { return test_support::FindDescendant(Toolbar(kCommandToolbar), "Static"); }
  // The balloon that has the box as its tool.
  HWND Balloon() const {
    for (HWND tip = FindWindowA(TOOLTIPS_CLASSA, nullptr); tip != nullptr;
         tip = FindWindowExA(nullptr, tip, TOOLTIPS_CLASSA, nullptr)) {
      if (GetWindowThreadProcessId(tip, nullptr) == GetCurrentThreadId() &&
          (GetWindowLongPtrA(tip, GWL_STYLE) & TTS_BALLOON) != 0) {
        return tip;
      }
    }
    return nullptr;
  }
  void Type(WPARAM character) const { SendMessageA(edit_, WM_CHAR, character, 1); }

  HWND edit_ = nullptr;
};

TEST_F(PatternBoxTest, StandsBehindTheLastButtonAndItsLabel) {
  const HWND toolbar = Toolbar(kCommandToolbar);
  const LRESULT count = SendMessageA(toolbar, TB_BUTTONCOUNT, 0, 0);
  RECT last = {};
  SendMessageA(toolbar, TB_GETITEMRECT, static_cast<WPARAM>(count - 1), reinterpret_cast<LPARAM>(&last));
  RECT bounds = {};
  GetWindowRect(toolbar, &bounds);
  const LONG height = bounds.bottom - bounds.top;
  const RECT label = InToolbar(Label());
  const RECT box = InToolbar(edit_);
  EXPECT_EQ(test_support::TextOf(Label()), "Select:");
  EXPECT_EQ(label.left, last.right + 5);
  EXPECT_EQ(box.left, label.right + 5);
  EXPECT_EQ(box.top, 2);
  EXPECT_EQ(box.right - box.left, 100);
  EXPECT_EQ(box.bottom - box.top, height - 6);
  EXPECT_NEAR((label.top + label.bottom) / 2, height / 2, 1);
}

TEST_F(PatternBoxTest, TheLabelHasRoomForItsTextInTheToolbarsFont) {
  const HWND toolbar = Toolbar(kCommandToolbar);
  const HDC dc = GetDC(Label());
  const auto font = reinterpret_cast<HFONT>(SendMessageA(toolbar, WM_GETFONT, 0, 0));
  const HGDIOBJ old = SelectObject(dc, font);
  SIZE text = {};
  GetTextExtentPoint32A(dc, "Select:", 7, &text);
  SelectObject(dc, old);
  ReleaseDC(Label(), dc);
  EXPECT_EQ(SendMessageA(Label(), WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(font));
  EXPECT_EQ(SendMessageA(edit_, WM_GETFONT, 0, 0), reinterpret_cast<LRESULT>(font));
  const RECT label = InToolbar(Label());
  EXPECT_EQ(label.right - label.left, text.cx);
  EXPECT_EQ(label.bottom - label.top, text.cy + 4);
}

TEST_F(PatternBoxTest, TheLabelIsNoPatchOnTheToolbarsBackground) {
  // Left of the label there is nothing but background.
  const RECT label = InToolbar(Label());
  const HDC toolbarDc = GetDC(Toolbar(kCommandToolbar));
  const COLORREF ground = GetPixel(toolbarDc, static_cast<int>(label.left) - 2, static_cast<int>(label.bottom) - 1);
  ReleaseDC(Toolbar(kCommandToolbar), toolbarDc);
  const HDC dc = GetDC(Label());
  const COLORREF corner = GetPixel(dc, 0, static_cast<int>(label.bottom - label.top) - 1);
  ReleaseDC(Label(), dc);
  EXPECT_NE(ground, CLR_INVALID);
  EXPECT_EQ(corner, ground);
}

TEST_F(PatternBoxTest, TheBalloonIsOnTopAndAsksForItsTextWhenItShows) {
  const HWND balloon = Balloon();
  ASSERT_NE(balloon, nullptr);
  EXPECT_NE(GetWindowLongPtrA(balloon, GWL_EXSTYLE) & WS_EX_TOPMOST, 0);
  EXPECT_NE(GetWindowLongPtrA(balloon, GWL_STYLE) & TTS_ALWAYSTIP, 0);
  EXPECT_EQ(SendMessageA(balloon, TTM_GETMAXTIPWIDTH, 0, 0), 400);
  EXPECT_EQ(SendMessageA(balloon, TTM_GETDELAYTIME, TTDT_AUTOPOP, 0), 30000);
  ASSERT_EQ(SendMessageA(balloon, TTM_GETTOOLCOUNT, 0, 0), 1);
  TTTOOLINFOA tool = {};
  char text[256] = "";
  tool.cbSize = sizeof(tool);
  tool.lpszText = text;
  ASSERT_TRUE(SendMessageA(balloon, TTM_ENUMTOOLSA, 0, reinterpret_cast<LPARAM>(&tool)));
  EXPECT_EQ(tool.uId, reinterpret_cast<UINT_PTR>(edit_));
  EXPECT_NE(tool.uFlags & TTF_IDISHWND, 0U);
}

TEST_F(PatternBoxTest, TheHelpIsTheWholeText) {
  NMTTDISPINFOA request = {};
  request.hdr.code = static_cast<UINT>(TTN_GETDISPINFOA);
  request.hdr.idFrom = reinterpret_cast<UINT_PTR>(edit_);
  request.uFlags = TTF_IDISHWND;
  SendMessageA(fixture_.ExplorerWindow(), WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&request));
  EXPECT_STREQ(request.lpszText,
               "Select items based on a search pattern:\n\n"
               "abc = Matches all items which begin with letters 'abc'\n"
               "abc* = Same as above\n"
               "\"abc\" = Matches only the word 'abc'\n"
               "*abc* = Matches any item which contains the letters 'abc'\n"
               "* = Match everything\n"
               "*.3ds = Matches all items which end in '.3ds'\n"
               "? = Matches all one character strings\n"
               "??? = Matches all three character strings\n"
               "*test.obj = Matches '1test.obj', 'thisisatest.obj', 'test.obj'\n"
               "t*s*t.3ds = Matches 'test.3ds', 'tesseract.3ds'\n"
               "[a-z]s*t.3ds = Matches 'asset.3ds'\n"
               "s[!gh]t.dxf = Matches 'set.dxf'\n"
               "s[!e]t = Doesn't match 'set'\n"
               "[a-fh-z]* = Matches 'jack', 'flack', 'zoom'\n"
               "i\\** = Matches 'i*guess'\n"
               "[\\[-\\]] = Matches '[' and ']'\n"
               "[a-z\\] = Matches a, b, c, \\");
}

TEST_F(PatternBoxTest, EachKeystrokeDoesTheSelectionAnew) {
  Type('a');
  EXPECT_THAT(fixture_.SelectedNames(), UnorderedElementsAre("abc.txt", "abd.txt"));
  Type('b');
  Type('d');
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("abd.txt"));
  Type(VK_BACK);
  EXPECT_THAT(fixture_.SelectedNames(), UnorderedElementsAre("abc.txt", "abd.txt"));
  Type('q');
  EXPECT_THAT(fixture_.SelectedNames(), IsEmpty());
}

TEST_F(PatternBoxTest, ASelectionMadeOtherwiseIsReplacedByTheNextKeystroke) {
  Select({"xyz.txt"});
  Type('a');
  EXPECT_THAT(fixture_.SelectedNames(), UnorderedElementsAre("abc.txt", "abd.txt"));
}

TEST_F(PatternBoxTest, TextThatIsSetAndNotTypedSelectsNothing) {
  SendMessageA(edit_, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("abc"));
  EXPECT_THAT(fixture_.SelectedNames(), IsEmpty());
}

TEST_F(PatternBoxTest, TheButtonsFollowTheSelection) {
  EXPECT_FALSE(IsEnabled(kCommandToolbar, 121));
  Type('a');
  test_support::PumpMessages();
  EXPECT_TRUE(IsEnabled(kCommandToolbar, 121));
  EXPECT_FALSE(IsEnabled(kCommandToolbar, 111));  // two are selected
}

}  // namespace
}  // namespace explorer_tests
