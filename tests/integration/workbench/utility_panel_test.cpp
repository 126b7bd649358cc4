// The pages of the utility panel.
#include "src/host/plugin_protocol.h"
#include "tests/integration/workbench/workbench_fixture.h"

namespace workbench {
namespace {

namespace op = host::op;

// Messages that a page's window got, through the subclassing that plug-ins do.
struct PageWatch {
  int shown = 0;
  int hidden = 0;
  Size size;
};
PageWatch watch;
WNDPROC previousProcedure = nullptr;

LRESULT CALLBACK WatchPage(HWND window, UINT id, WPARAM first, LPARAM second) {
  if (id == WM_SHOWWINDOW) ++(first != 0 ? watch.shown : watch.hidden);
  if (id == WM_SIZE) watch.size = {LOWORD(second), HIWORD(second)};
  return CallWindowProcA(previousProcedure, window, id, first, second);
}

void Subclass(HWND page) {
  watch = {};
  previousProcedure = reinterpret_cast<WNDPROC>(
      SetWindowLongPtrA(page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&WatchPage)));
}

class UtilityPanelTest : public WorkbenchTest {
 protected:
  UtilityPanelTest() { Start(); }

  HWND CreatePage(const char* guid, const char* title = "Page", HBITMAP bitmap = nullptr) {
    return host::Call<op::CreateUtilityPanel>(services(), "Utility", guid, title, title, bitmap,
                                              std::intptr_t{0}, COLORREF{0xC0C0C0}, std::intptr_t{0},
                                              std::intptr_t{0}, std::intptr_t{0}, std::intptr_t{0});
  }
  void ShowPage(const char* guid) { host::Call<op::ShowUtilityPanel>(services(), guid); }
  void RemovePage(const char* guid) { host::Call<op::RemoveUtilityPanel>(services(), guid); }
};

TEST_F(UtilityPanelTest, ItStandsAtTheLeftAndIsThreeHundredPixelsWide) {
  const Rect place = PlaceInSite(host().windows().FrameOf(host().panel().window())->window());
  EXPECT_EQ(place.left, 0);
  EXPECT_EQ(place.width(), host().theme().Scale(300));
  EXPECT_TRUE(IsWindowVisible(host().panel().window()));
}

TEST_F(UtilityPanelTest, APageShowsFirstAfterItsOwnerCouldPrepareIt) {
  const HWND page = CreatePage(host::kPanelGuid);
  ASSERT_NE(page, nullptr);
  EXPECT_NE(GetWindowLongPtrW(page, GWL_STYLE) & WS_CHILD, 0);
  EXPECT_FALSE(IsWindowVisible(page));
  Subclass(page);
  host().Pump();
  EXPECT_TRUE(IsWindowVisible(page));
  EXPECT_EQ(watch.shown, 1);
  EXPECT_GT(watch.size.width, 200);
  EXPECT_GT(watch.size.height, 200);
  SetWindowLongPtrA(page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousProcedure));
}

TEST_F(UtilityPanelTest, APageFollowsThePanelsSizeAndHearsWhenItHides) {
  const HWND page = CreatePage(host::kPanelGuid);
  CreatePage(kOtherGuid);
  Subclass(page);
  host().Pump();
  const int width = watch.size.width;
  host::Call<op::SetWindowSize>(services(), host().panel().window(),
                                host().windows().model().extent(Side::Left) + 20, 0, 1);
  EXPECT_EQ(watch.size.width, width + 20);
  ShowPage(kOtherGuid);
  EXPECT_EQ(watch.hidden, 1);
  EXPECT_FALSE(IsWindowVisible(page));
  EXPECT_EQ(host().panel().frontPage(), kOtherGuid);
  Click(host().panel().window(), Middle(host().panel().TabRect(host::kPanelGuid)));
  EXPECT_TRUE(IsWindowVisible(page));
  EXPECT_EQ(watch.shown, 2);
  SetWindowLongPtrA(page, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previousProcedure));
}

TEST_F(UtilityPanelTest, RemovingAPageDestroysItsWindowAndShowsTheNextOne) {
  const HWND page = CreatePage(host::kPanelGuid);
  const HWND other = CreatePage(kOtherGuid);
  host().Pump();
  ASSERT_EQ(host().panel().frontPage(), host::kPanelGuid);
  RemovePage(host::kPanelGuid);
  EXPECT_FALSE(IsWindow(page));
  EXPECT_TRUE(IsWindowVisible(other));
  RemovePage(host::kPanelGuid);
  RemovePage(nullptr);
  EXPECT_EQ(host().panel().pageCount(), 1);
  RemovePage(kOtherGuid);
  EXPECT_EQ(host().panel().pageCount(), 0);
  EXPECT_TRUE(host().panel().frontPage().empty());
}

TEST_F(UtilityPanelTest, UnknownAndMissingGuidsAreRefused) {
  EXPECT_EQ(CreatePage(nullptr), nullptr);
  EXPECT_EQ(CreatePage(""), nullptr);
  EXPECT_NE(CreatePage(host::kPanelGuid, nullptr), nullptr);
  EXPECT_EQ(CreatePage(host::kPanelGuid), nullptr) << "the GUID is taken";
  ShowPage("{unknown}");
  ShowPage(nullptr);
  EXPECT_EQ(host().panel().pageCount(), 1);
}

TEST_F(UtilityPanelTest, ShowingAPageBringsAClosedPanelBack) {
  CreatePage(host::kPanelGuid);
  host().Pump();
  host().windows().RequestClose(host().panel().window());
  EXPECT_FALSE(IsWindowVisible(host().panel().window()));
  ShowPage(host::kPanelGuid);
  EXPECT_TRUE(IsWindowVisible(host().panel().window()));
}

TEST_F(UtilityPanelTest, APanelThatTheUserClosedStaysClosedWhenAWindowIsOnlyActivated) {
  CreatePage(host::kPanelGuid);
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  window->onNotified = [&](int) { ShowPage(host::kPanelGuid); };
  host().windows().RequestClose(host().panel().window());
  SetForegroundWindow(host().window());
  SetFocus(host().windows().documents().window());
  host().Pump();
  SetFocus(window->window());
  ASSERT_TRUE(test_support::WaitUntil([&] { return window->Count(host::kNotifyActivated) > 0; }));
  EXPECT_FALSE(IsWindowVisible(host().panel().window()));
}

TEST_F(UtilityPanelTest, TheHostKeepsItsOwnCopyOfTheBitmap) {
  const HDC screen = GetDC(nullptr);
  const HBITMAP bitmap = CreateCompatibleBitmap(screen, 16, 16);
  const HDC dc = CreateCompatibleDC(screen);
  const HGDIOBJ before = SelectObject(dc, bitmap);
  FillColor(dc, {0, 0, 16, 16}, RGB(0xC0, 0xC0, 0xC0));
  FillColor(dc, {4, 4, 12, 12}, RGB(255, 0, 0));
  SelectObject(dc, before);
  ASSERT_NE(CreatePage(host::kPanelGuid, "Page", bitmap), nullptr);
  DeleteObject(bitmap);
  host().Pump();
  // The tab as it is painted: red where the picture is, the tab's own colour where the picture is
  // transparent.
  const Rect tab = host().panel().TabRect(host::kPanelGuid);
  const HBITMAP painted = CreateCompatibleBitmap(screen, 400, 100);
  SelectObject(dc, painted);
  RedrawWindow(host().panel().window(), nullptr, nullptr, RDW_INVALIDATE | RDW_UPDATENOW);
  const HDC window = GetDC(host().panel().window());
  BitBlt(dc, 0, 0, 400, 100, window, 0, 0, SRCCOPY);
  int red = 0;
  int grey = 0;
  for (int x = tab.left; x < tab.right; ++x) {
    for (int y = tab.top; y < tab.bottom; ++y) {
      const COLORREF pixel = GetPixel(dc, x, y);
      red += pixel == RGB(255, 0, 0);
      grey += pixel == RGB(0xC0, 0xC0, 0xC0);
    }
  }
  ReleaseDC(host().panel().window(), window);
  SelectObject(dc, before);
  DeleteObject(painted);
  DeleteDC(dc);
  ReleaseDC(nullptr, screen);
  EXPECT_GE(red, 60);
  EXPECT_EQ(grey, 0);
}

}  // namespace
}  // namespace workbench
