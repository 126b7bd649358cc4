// What the rows of the history look like.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "base/text/code_page.h"
#include "src/history/history_platform.h"
#include "src/history/row_layout.h"
#include "src/history/row_thumbnails.h"
#include "tests/integration/history/history_view_fixture.h"
#include "tests/support/wait_until.h"
#include "tests/unit/preview/model_files.h"

namespace file_explorer {
namespace {

using test_support::WaitUntil;
using testing::IsEmpty;

using HistoryRowsTest = HistoryViewTest;

// A bitmap in memory to draw on.
class Canvas {
 public:
  Canvas(int width, int height) : width_(width), height_(height), dc_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), width, -height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    bitmap_ = CreateDIBSection(dc_, &info, DIB_RGB_COLORS, &bits_, nullptr, 0);
    previous_ = SelectObject(dc_, bitmap_);
  }
  ~Canvas() {
    SelectObject(dc_, previous_);
    DeleteObject(bitmap_);
    DeleteDC(dc_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  HDC dc() const { return dc_; }
  // The colours of the columns from `left` on.
  std::vector<DWORD> From(int left) const {
    GdiFlush();
    std::vector<DWORD> colors;
    const auto* const pixels = static_cast<const DWORD*>(bits_);
    for (int y = 0; y < height_; ++y) {
      for (int x = left; x < width_; ++x) colors.push_back(pixels[y * width_ + x] & 0xFFFFFF);
    }
    return colors;
  }

 private:
  int width_;
  int height_;
  HDC dc_;
  void* bits_ = nullptr;
  HBITMAP bitmap_;
  HGDIOBJ previous_;
};

constexpr int kCanvasWidth = 400;
constexpr int kCanvasHeight = 120;
constexpr RECT kRow = {0, 10, kCanvasWidth, 10 + 66};

class RowDrawingTest : public HistoryRowsTest {
 protected:
  void SetUp() override {
    folder.Put("history.dat",
               "[HistoryList]\r\nNumEntries=1\r\nd0=model.xyz\r\nf0=X:\\folder\\model.xyz\r\n"
               "m0=EA07010000000200090005000000000002\r\n");
    Create();
  }
  // Row 0 as the list box asks for it.
  void DrawRow(const Canvas& canvas, RECT place, UINT state) const {
    DRAWITEMSTRUCT item = {};
    item.CtlType = ODT_LISTBOX;
    item.CtlID = kViewId;
    item.itemAction = ODA_DRAWENTIRE;
    item.itemState = state;
    item.hwndItem = view->window();
    item.hDC = canvas.dc();
    item.rcItem = place;
    item.itemData = static_cast<ULONG_PTR>(Send(LB_GETITEMDATA, 0));
    EXPECT_EQ(SendMessageA(panel, WM_DRAWITEM, kViewId, reinterpret_cast<LPARAM>(&item)), TRUE);
  }
  // The row's background, and what `draw` adds to it in the row's font and colours.
  void DrawExpected(const Canvas& canvas, RECT place, bool isSelected,
                    const std::function<void(HDC)>& draw) const {
    const HDC dc = canvas.dc();
    FillRect(dc, &place, GetSysColorBrush(isSelected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SelectObject(dc, reinterpret_cast<HFONT>(Send(WM_GETFONT)));
    SetBkMode(dc, TRANSPARENT);
    SetTextColor(dc, GetSysColor(isSelected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    draw(dc);
    SelectObject(dc, GetStockObject(SYSTEM_FONT));
  }
  static int Indent() { return 2 * (LOWORD(GetDialogBaseUnits()) / 4); }
};

TEST_F(RowDrawingTest, ATallRowHasPathAndTimeOnTheirLines) {
  view->SetShowIcons(true);
  HistoryTime local;
  ASSERT_TRUE(ToLocalTime({2026, 1, 0, 2, 9, 5, 0, 0}, &local));
  for (const bool isSelected : {false, true}) {
    const Canvas drawn(kCanvasWidth, kCanvasHeight);
    DrawRow(drawn, kRow, isSelected ? ODS_SELECTED : 0u);
    const Canvas expected(kCanvasWidth, kCanvasHeight);
    DrawExpected(expected, kRow, isSelected, [&](HDC dc) {
      TEXTMETRICA metrics = {};
      GetTextMetricsA(dc, &metrics);
      SetTextAlign(dc, TA_LEFT | TA_BOTTOM);
      const std::string path = "X:\\folder\\model.xyz";
      const std::string time = LastAccessText(local);
      const int left = 66 + Indent();
      TextOutA(dc, left, kRow.top + 11 + 5 + metrics.tmHeight / 2, path.c_str(),
               static_cast<int>(path.size()));
      TextOutA(dc, left, kRow.top + 33 + metrics.tmHeight / 2, time.c_str(), static_cast<int>(time.size()));
    });
    EXPECT_EQ(drawn.From(67), expected.From(67)) << isSelected;
    EXPECT_NE(drawn.From(0), expected.From(0));  // the picture
  }
}

TEST_F(RowDrawingTest, ACompactRowHasThePathInItsMiddle) {
  const int icon = GetSystemMetrics(SM_CXSMICON);
  const RECT place = {0, 10, kCanvasWidth, 10 + icon + 2};
  for (const bool isSelected : {false, true}) {
    const Canvas drawn(kCanvasWidth, kCanvasHeight);
    DrawRow(drawn, place, isSelected ? ODS_SELECTED : 0u);
    const Canvas expected(kCanvasWidth, kCanvasHeight);
    DrawExpected(expected, place, isSelected, [&](HDC dc) {
      RECT room = place;
      room.left += icon + 2 + Indent();
      DrawTextA(dc, "X:\\folder\\model.xyz", -1, &room, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    });
    EXPECT_EQ(drawn.From(icon + 3), expected.From(icon + 3)) << isSelected;
    EXPECT_NE(drawn.From(0), expected.From(0));
  }
}

TEST_F(RowDrawingTest, APathThatIsTooLongIsCompactedToTheRow) {
  const int icon = GetSystemMetrics(SM_CXSMICON);
  RECT place = {0, 10, kCanvasWidth, 10 + icon + 2};
  const Canvas expected(kCanvasWidth, kCanvasHeight);
  DrawExpected(expected, place, false, [&](HDC dc) {
    // As wide as the path with its folder replaced.
    SIZE size = {};
    const std::string shown = "X:\\..\\model.xyz";
    GetTextExtentPoint32A(dc, shown.c_str(), static_cast<int>(shown.size()), &size);
    place.right = icon + 2 + Indent() + size.cx;
    RECT room = place;
    room.left += icon + 2 + Indent();
    DrawTextA(dc, shown.c_str(), -1, &room, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  });
  const Canvas drawn(kCanvasWidth, kCanvasHeight);
  RECT whole = place;
  whole.right = kCanvasWidth;
  FillRect(drawn.dc(), &whole, GetSysColorBrush(COLOR_WINDOW));
  DrawRow(drawn, place, 0);
  EXPECT_EQ(drawn.From(icon + 3), expected.From(icon + 3));
}

// Letters beyond ASCII are drawn as what they are in the process's code page, not in one of GDI's.
TEST_F(RowDrawingTest, LettersBeyondAsciiAreDrawnAsWhatTheyAre) {
  const int icon = GetSystemMetrics(SM_CXSMICON);
  const RECT place = {0, 10, kCanvasWidth, 10 + icon + 2};
  const std::wstring path = GetACP() == CP_UTF8 ? L"X:\\pl\u0101n \u0441\u0442\u0430\u043D.xyz" : L"X:\\caf\u00E9 \u20AC.xyz";
  view->ClearHistory();
  Add(base::ExactNarrow(path).value().c_str());
  const Canvas drawn(kCanvasWidth, kCanvasHeight);
  DrawRow(drawn, place, 0);
  const Canvas expected(kCanvasWidth, kCanvasHeight);
  DrawExpected(expected, place, false, [&](HDC dc) {
    RECT room = place;
    room.left += icon + 2 + Indent();
    DrawTextW(dc, path.c_str(), -1, &room, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
  });
  EXPECT_EQ(drawn.From(icon + 3), expected.From(icon + 3));
}

TEST_F(RowDrawingTest, ANameOfAnyLengthIsDrawn) {
  const RECT place = {0, 10, kCanvasWidth, 10 + 18};
  for (const size_t length : {600u, 5000u}) {
    folder.Put("history.dat", "[HistoryList]\r\nNumEntries=1\r\nd0=" + std::string(length, 'n') + "\r\n");
    view.reset();
    folder.Put("history.dat", "[HistoryList]\r\nNumEntries=1\r\nd0=" + std::string(length, 'n') + "\r\n");
    Create();
    ASSERT_EQ(Send(LB_GETCOUNT), 1);
    const Canvas drawn(kCanvasWidth, kCanvasHeight);
    DrawRow(drawn, place, 0);
    const Canvas empty(kCanvasWidth, kCanvasHeight);
    EXPECT_NE(drawn.From(60), empty.From(60));
  }
}

// How a path is shortened depends on where its row begins: what the list box moved would be wrong.
TEST_F(HistoryRowsTest, ScrollingSidewaysPaintsTheRowsAnew) {
  Create();
  Add(("X:\\folder\\" + std::string(200, 'w') + ".xyz").c_str());
  Show();
  ValidateRect(view->window(), nullptr);
  Send(WM_HSCROLL, MAKEWPARAM(SB_LINERIGHT, 0));
  ASSERT_GT(GetScrollPos(view->window(), SB_HORZ), 0);
  RECT area = {};
  RECT stale = {};
  GetClientRect(view->window(), &area);
  EXPECT_TRUE(GetUpdateRect(view->window(), &stale, FALSE));
  EXPECT_TRUE(EqualRect(&stale, &area));
}

TEST_F(RowDrawingTest, TheRowWithTheFocusHasItsRectangle) {
  const RECT place = {0, 10, kCanvasWidth, 10 + 18};
  const Canvas plain(kCanvasWidth, kCanvasHeight);
  DrawRow(plain, place, 0);
  DrawFocusRect(plain.dc(), &place);
  const Canvas focused(kCanvasWidth, kCanvasHeight);
  DrawRow(focused, place, ODS_FOCUS);
  EXPECT_EQ(focused.From(0), plain.From(0));
  const Canvas without(kCanvasWidth, kCanvasHeight);
  DrawRow(without, place, 0);
  EXPECT_NE(focused.From(0), without.From(0));
}

// How many pixels of the row's picture column are not the window's colour.
int PaintedPixels(HWND window, const RECT& area) {
  const HDC dc = GetDC(window);
  int painted = 0;
  for (LONG y = area.top; y < area.bottom; ++y) {
    for (LONG x = area.left; x < area.right; ++x) painted += GetPixel(dc, x, y) != GetSysColor(COLOR_WINDOW);
  }
  ReleaseDC(window, dc);
  return painted;
}

TEST_F(HistoryRowsTest, BothKindsOfRowsArePaintedWithPictureAndText) {
  Create();
  folder.Put("model.obj", "v");
  Add(folder.Path("model.obj").c_str());
  Show();
  for (const bool showIcons : {false, true}) {
    view->SetShowIcons(showIcons);
    UpdateWindow(view->window());
    RECT row = {};
    Send(LB_GETITEMRECT, 0, reinterpret_cast<LPARAM>(&row));
    const LONG split = showIcons ? 66 : 18;
    EXPECT_GT(PaintedPixels(view->window(), {2, row.top, split, row.bottom}), 20) << showIcons;
    EXPECT_GT(PaintedPixels(view->window(), {split + 2, row.top, 300, row.bottom}), 50) << showIcons;
  }
}

TEST_F(HistoryRowsTest, APreviewOfTheSurroundingsIsShownInATallRow) {
  HistoryServices services;
  services.instance = GetModuleHandleA(nullptr);
  services.profilePath = [this] { return folder.profile(); };
  services.mainWindow = [this] { return panel; };
  int asked = 0;
  services.preview = [&asked](const HistoryEntry&, int pixels) {
    ++asked;
    preview::Preview red;
    red.picture = {pixels, pixels, {}};
    red.picture.pixels.assign(static_cast<std::size_t>(pixels * pixels), 0xFFC80A14);
    return red;
  };
  view = CHistoryView::Create(panel, kViewId, services);
  view->SetShowIcons(true);
  Add("X:\\a.obj");
  Show();
  UpdateWindow(view->window());
  EXPECT_EQ(asked, 0) << "never while painting";
  test_support::PumpMessages();
  const HDC dc = GetDC(view->window());
  EXPECT_EQ(GetPixel(dc, 3 + 32, 1 + 32), RGB(200, 10, 20));
  ReleaseDC(view->window(), dc);
  InvalidateRect(view->window(), nullptr, TRUE);
  test_support::PumpMessages();
  EXPECT_EQ(asked, 1);  // kept
}

TEST_F(HistoryRowsTest, AModelIsSeenAtTheThumbnailsPlaceAndOnTheSelectionsColour) {
  folder.Put("cube.obj", model_files::Obj(model_files::Cube()));
  Create();
  view->SetShowIcons(true);
  Add(folder.Path("cube.obj").c_str());
  Show();
  test_support::PumpMessages();
  const auto pixel = [this](int x, int y) {
    const HDC dc = GetDC(view->window());
    const COLORREF color = GetPixel(dc, x, y);
    ReleaseDC(view->window(), dc);
    return color;
  };
  const auto brightness = [](COLORREF color) {
    return GetRValue(color) + GetGValue(color) + GetBValue(color);
  };
  // The upper, front and right faces of the cube, and nothing beside it.
  const int top = brightness(pixel(3 + 32, 1 + 11));
  const int front = brightness(pixel(3 + 20, 1 + 37));
  const int side = brightness(pixel(3 + 53, 1 + 37));
  EXPECT_GT(top, front + 30);
  EXPECT_GT(front, side + 30);
  EXPECT_EQ(pixel(3, 1), GetSysColor(COLOR_WINDOW));
  Send(LB_SETCURSEL, 0);
  UpdateWindow(view->window());
  EXPECT_EQ(pixel(3 + 1, 1 + 1), GetSysColor(COLOR_HIGHLIGHT));
  EXPECT_NEAR(brightness(pixel(3 + 20, 1 + 37)), front, 3);
}

TEST_F(HistoryRowsTest, OnlyRowsInSightAreAskedForAThumbnail) {
  HistoryServices services;
  services.instance = GetModuleHandleA(nullptr);
  services.profilePath = [this] { return folder.profile(); };
  services.mainWindow = [this] { return panel; };
  std::vector<std::string> asked;
  services.preview = [&asked](const HistoryEntry& entry, int) -> std::optional<preview::Preview> {
    asked.push_back(entry.displayName);
    return std::nullopt;
  };
  view = CHistoryView::Create(panel, kViewId, services);
  view->SetShowIcons(true);
  for (int i = 0; i < 60; ++i) Add(("X:\\file" + std::to_string(i) + ".obj").c_str());
  EXPECT_THAT(asked, IsEmpty());
  Show();
  test_support::PumpMessages();
  RECT area = {};
  GetClientRect(view->window(), &area);
  const std::size_t inSight = static_cast<std::size_t>((area.bottom + 65) / 66);
  EXPECT_EQ(asked.size(), inSight);
  EXPECT_EQ(asked.front(), "file59.obj");
  InvalidateRect(view->window(), nullptr, TRUE);
  test_support::PumpMessages();
  EXPECT_EQ(asked.size(), inSight);
  Send(LB_SETTOPINDEX, 55);
  test_support::PumpMessages();
  EXPECT_LE(asked.size(), 2 * inSight);
}

TEST_F(HistoryRowsTest, AThumbnailIsMadeAnewWhenItsFileHasChanged) {
  folder.Put("a.obj", "one");
  HistoryServices services;
  services.instance = GetModuleHandleA(nullptr);
  services.profilePath = [this] { return folder.profile(); };
  services.mainWindow = [this] { return panel; };
  int asked = 0;
  std::uint64_t now = 0;
  services.clock = [&now] { return now; };
  services.preview = [&asked](const HistoryEntry&, int) -> std::optional<preview::Preview> {
    ++asked;
    return std::nullopt;
  };
  view = CHistoryView::Create(panel, kViewId, services);
  view->SetShowIcons(true);
  Add(folder.Path("a.obj").c_str());
  Show();
  test_support::PumpMessages();
  EXPECT_EQ(asked, 1);
  folder.Put("a.obj", "another content");
  const auto paint = [this] {
    InvalidateRect(view->window(), nullptr, FALSE);
    test_support::PumpMessages();
  };
  paint();
  EXPECT_EQ(asked, 1) << "the file is not looked at in every painting";
  now += RowThumbnails::kLookEveryMs;
  paint();
  EXPECT_EQ(asked, 2);
}

TEST_F(HistoryRowsTest, EveryRowInSightGetsItsThumbnailInTheEnd) {
  HistoryServices services;
  services.instance = GetModuleHandleA(nullptr);
  services.profilePath = [this] { return folder.profile(); };
  services.mainWindow = [this] { return panel; };
  int asked = 0;
  services.preview = [&](const HistoryEntry&, int) -> std::optional<preview::Preview> {
    ++asked;
    return std::nullopt;
  };
  view = CHistoryView::Create(panel, kViewId, services);
  view->SetShowIcons(true);
  for (const char* const path : {"X:\\a.obj", "X:\\b.obj", "X:\\c.obj"}) Add(path);
  Show();
  EXPECT_TRUE(WaitUntil([&] { return asked == 3; }));
  test_support::PumpMessages();
  EXPECT_EQ(asked, 3);
}

}  // namespace
}  // namespace file_explorer
