// Docking at the sides, as document and floating; tabs, bars, dragging, closing.
#include "src/host/plugin_protocol.h"
#include "tests/integration/workbench/workbench_fixture.h"

namespace workbench {
namespace {

namespace op = host::op;

class DockingTest : public WorkbenchTest {
 protected:
  DockingTest() { Start(); }
};

TEST_F(DockingTest, TheWindowBecomesAPlainChildOfItsFrame) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const LONG_PTR style = GetWindowLongPtrW(window->window(), GWL_STYLE);
  EXPECT_EQ(style & (WS_CAPTION | WS_THICKFRAME | WS_SYSMENU), 0);
  EXPECT_NE(style & WS_CHILD, 0);
  ASSERT_NE(host().windows().FrameOf(window->window()), nullptr);
  EXPECT_EQ(GetParent(window->window()), host().windows().FrameOf(window->window())->window());
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(DockingTest, EachSideTakesTheWindow) {
  for (const std::uint16_t side : {host::kDockLeft, host::kDockRight, host::kDockTop, host::kDockBottom}) {
    SCOPED_TRACE(side);
    const auto window = Docked(host::kMethodDocked, side);
    const Rect place = PlaceInSite(host().windows().FrameOf(window->window())->window());
    const Rect document = host().windows().arrangement().document;
    EXPECT_GT(place.width(), 50);
    EXPECT_GT(place.height(), 50);
    if (side == host::kDockLeft) {
      EXPECT_LE(place.right, document.left);
    }
    if (side == host::kDockRight) {
      EXPECT_GE(place.left, document.right);
    }
    if (side == host::kDockTop) {
      EXPECT_LE(place.bottom, document.top);
    }
    if (side == host::kDockBottom) {
      EXPECT_GE(place.top, document.bottom);
    }
  }
}

TEST_F(DockingTest, AWindowNeverPlacedBeforeGetsItsFirstSizeFromTheStoredRectangle) {
  auto window = NewWindow();
  host::DockedWindowPlacement placement = {};
  placement.hasPlacement = 7;
  ASSERT_NE(Dock(*window, host::kMethodTabbedCollapsible, host::kDockBottom, &placement), 0);
  EXPECT_EQ(placement.hasPlacement, 0);
  RECT rect = {};
  ASSERT_NE(host::Call<op::GetStoredRectangle>(services(), host::kInitialRectangleGuid, &rect), 0);
  const int width = static_cast<int>(rect.right - rect.left + 1);
  const int room = static_cast<int>(rect.bottom - rect.top + 1);
  EXPECT_EQ(width, Site().width());
  EXPECT_EQ(room, Site().height());
  const int height = static_cast<int>((room / 2) * 0.9);
  host::Call<op::SetWindowSize>(services(), window->window(), width, height, host::kSizeBoth);
  host::Call<op::SetWindowPosition>(services(), window->window(), static_cast<std::int32_t>(rect.left),
                                    static_cast<std::int32_t>(rect.top));
  EXPECT_FALSE(IsWindowVisible(window->window()));
  host::Call<op::ShowManagedWindow>(services(), window->window(), 1);
  const Rect frame = PlaceInSite(host().windows().FrameOf(window->window())->window());
  EXPECT_EQ(frame.height(), height);
  EXPECT_EQ(frame.bottom, Site().bottom);
  EXPECT_EQ(host::Call<op::GetWindowState>(services(), window->window()), host::kStateExpanded);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(DockingTest, ASizeThatWouldCoverTheProgramIsLimitedToHalfOfIt) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockLeft);
  host::Call<op::SetWindowSize>(services(), window->window(), 5000, 100, host::kSizeBoth);
  EXPECT_EQ(host().windows().model().extent(Side::Left), Site().width() / 2);
}

TEST_F(DockingTest, AWindowDockedAsDocumentIsAPageOfTheDocumentArea) {
  const auto window = Docked(host::kMethodTabbedDocument, host::kDockBottom);
  EXPECT_EQ(GetParent(window->window()), host().windows().documents().window());
  EXPECT_EQ(host().windows().documents().pageCount(), 1);
  EXPECT_TRUE(IsWindowVisible(window->window()));
  EXPECT_EQ(window->Client().width, host().windows().documents().ContentRect().width());
  window->Destroy();
  EXPECT_EQ(host().windows().documents().pageCount(), 0);
}

TEST_F(DockingTest, AFloatingWindowHasAToolWindowAroundIt) {
  const auto window = Docked(host::kMethodFloating, host::kDockBottom);
  const HWND top = GetAncestor(window->window(), GA_ROOT);
  EXPECT_NE(top, host().window());
  EXPECT_NE(GetWindowLongPtrW(top, GWL_EXSTYLE) & WS_EX_TOOLWINDOW, 0);
  host::Call<op::SetWindowSize>(services(), window->window(), 400, 300, host::kSizeBoth);
  host::Call<op::SetWindowPosition>(services(), window->window(), 120, 140);
  RECT rect = {};
  GetWindowRect(top, &rect);
  EXPECT_EQ(ToRect(rect), (Rect{120, 140, 520, 440}));
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(DockingTest, OneDimensionOfTheSizeCanBeSetAlone) {
  const auto window = Docked(host::kMethodFloating, host::kDockBottom);
  host::Call<op::SetWindowSize>(services(), window->window(), 400, 300, host::kSizeBoth);
  host::Call<op::SetWindowSize>(services(), window->window(), 350, 999, 1);
  host::Call<op::SetWindowSize>(services(), window->window(), 999, 250, 2);
  RECT rect = {};
  GetWindowRect(GetAncestor(window->window(), GA_ROOT), &rect);
  EXPECT_EQ(rect.right - rect.left, 350);
  EXPECT_EQ(rect.bottom - rect.top, 250);
}

TEST_F(DockingTest, BadArgumentsAreRefused) {
  auto window = NewWindow();
  EXPECT_EQ(Dock(*window, 5, 3, nullptr, nullptr), 0);
  EXPECT_EQ(Dock(*window, 5, 3, nullptr, ""), 0);
  EXPECT_NE(Dock(*window, 5, 3), 0);
  EXPECT_EQ(Dock(*window, 5, 3), 0) << "the same window twice";
  auto gone = NewWindow();
  gone->Destroy();
  EXPECT_EQ(Dock(*gone, 5, 3), 0);
  host::Call<op::SetWindowSize>(services(), static_cast<HWND>(nullptr), 10, 10, 3);
  host::Call<op::SetWindowPosition>(services(), host().window(), 10, 10);
  host::Call<op::SetWindowState>(services(), host().window(), host::kStateCollapsed);
  EXPECT_EQ(host::Call<op::GetWindowState>(services(), host().window()), 0);
  host::Call<op::ShowManagedWindow>(services(), host().window(), 0);
  host::Call<op::ShowDockingMenu>(services(), host().window(), 0, 0);
  EXPECT_TRUE(IsWindowVisible(host().window()));
  RECT rect = {};
  EXPECT_EQ(host::Call<op::GetStoredRectangle>(services(), "{unknown}", &rect), 0);
  EXPECT_EQ(host::Call<op::GetStoredRectangle>(services(), host::kInitialRectangleGuid,
                                               static_cast<RECT*>(nullptr)),
            0);
  EXPECT_EQ(host::Call<op::GetStoredRectangle>(services(), static_cast<const char*>(nullptr), &rect), 0);
}

TEST_F(DockingTest, UnknownMethodsAndPositionsGetTheDefaultPlace) {
  const auto window = Docked(999, 999);
  EXPECT_EQ(host().windows().model().GroupOf(host().windows().ItemOf(window->window()))->area, Area::Bottom);
  EXPECT_EQ(host::Call<op::GetWindowState>(services(), window->window()), host::kStateExpanded);
  EXPECT_EQ(host::Call<op::GetDefaultCreationMethod>(services()), host::kMethodTabbedCollapsible);
}

TEST_F(DockingTest, WindowsThatShareAPlaceAreTabsOfIt) {
  const auto first = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const auto second = Docked(host::kMethodTabbedCollapsible, host::kDockBottom, kOtherGuid);
  DockFrame* frame = host().windows().FrameOf(first->window());
  ASSERT_EQ(frame, host().windows().FrameOf(second->window()));
  EXPECT_FALSE(IsWindowVisible(first->window()));
  EXPECT_TRUE(IsWindowVisible(second->window()));
  Click(frame->window(), Middle(frame->TabRect(host().windows().ItemOf(first->window()))));
  EXPECT_TRUE(IsWindowVisible(first->window()));
  EXPECT_FALSE(IsWindowVisible(second->window()));
  EXPECT_EQ(first->Count(host::kNotifyTabbed), 1);
}

TEST_F(DockingTest, DraggingABarResizesTheWindow) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const HWND site = host().windows().site().window();
  const Splitter* bar = nullptr;
  for (const Splitter& splitter : host().windows().arrangement().splitters) {
    if (splitter.side == Side::Bottom) bar = &splitter;
  }
  ASSERT_NE(bar, nullptr);
  const Point grip = Middle(bar->rect);
  const int height = window->Client().height;
  const int extent = host().windows().model().extent(Side::Bottom);
  Press(site, grip);
  Drag(site, {grip.x, grip.y - 40});
  Drag(site, {grip.x, grip.y - 75});
  ReleaseAt(site, {grip.x, grip.y - 75});
  EXPECT_EQ(window->Client().height, height + 75);
  EXPECT_EQ(host().windows().model().extent(Side::Bottom), extent + 75);
  Drag(site, {grip.x, grip.y});
  EXPECT_EQ(window->Client().height, height + 75) << "the button is up";
}

TEST_F(DockingTest, DraggingTheCaptionDocksAtTheSideOfThePreview) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  DockFrame* frame = host().windows().FrameOf(window->window());
  const HWND site = host().windows().site().window();
  const Point grip = Middle(frame->CaptionRect());
  Press(frame->window(), grip);
  Drag(frame->window(), {grip.x + 40, grip.y - 40});
  Drag(site, {Site().right - 5, 200});
  EXPECT_FALSE(host().windows().dragPreview().empty());
  ReleaseAt(site, {Site().right - 5, 200});
  EXPECT_TRUE(host().windows().dragPreview().empty());
  EXPECT_EQ(host().windows().model().GroupOf(host().windows().ItemOf(window->window()))->area, Area::Right);
  EXPECT_EQ(window->Count(host::kNotifyDocked), 1);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(DockingTest, DraggingOutOfTheWindowFloatsAndBackDocks) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const HWND site = host().windows().site().window();
  DockFrame* frame = host().windows().FrameOf(window->window());
  Press(frame->window(), Middle(frame->CaptionRect()));
  Drag(frame->window(), {300, -60});
  ReleaseAt(site, {300, -90});
  EXPECT_EQ(window->Count(host::kNotifyFloated), 1);
  EXPECT_NE(GetAncestor(window->window(), GA_ROOT), host().window());
  frame = host().windows().FrameOf(window->window());
  Press(frame->window(), Middle(frame->CaptionRect()));
  Drag(frame->window(), {300, 160});
  ReleaseAt(site, {5, 300});
  EXPECT_EQ(GetAncestor(window->window(), GA_ROOT), host().window());
  EXPECT_EQ(host().windows().model().GroupOf(host().windows().ItemOf(window->window()))->area, Area::Left);
}

TEST_F(DockingTest, ALostMouseCancelsTheDrag) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  DockFrame* frame = host().windows().FrameOf(window->window());
  Press(frame->window(), Middle(frame->CaptionRect()));
  Drag(frame->window(), {300, -60});
  ReleaseCapture();
  EXPECT_TRUE(host().windows().dragPreview().empty());
  EXPECT_EQ(host().windows().model().GroupOf(host().windows().ItemOf(window->window()))->area, Area::Bottom);
  EXPECT_EQ(window->Count(host::kNotifyDocked) + window->Count(host::kNotifyFloated), 0);
}

TEST_F(DockingTest, MovingFromPlaceToPlaceKeepsTheWindowAliveAndShown) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  for (int round = 0; round < 3; ++round) {
    for (const Area area :
         {Area::Left, Area::Document, Area::Floating, Area::Top, Area::Right, Area::Bottom}) {
      DockTarget target;
      target.area = area;
      host().windows().MoveWindowTo(window->window(), target);
      host().Pump();
      ASSERT_TRUE(window->isAlive());
      EXPECT_TRUE(IsWindowVisible(window->window())) << static_cast<int>(area);
      EXPECT_GT(window->Client().width, 0);
      EXPECT_GT(window->Client().height, 0);
    }
  }
}

TEST_F(DockingTest, TheWindowMayRefuseToClose) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  DockFrame* frame = host().windows().FrameOf(window->window());
  window->answerClose = 1;
  Click(frame->window(), Middle(frame->CloseRect()));
  EXPECT_EQ(window->Count(host::kNotifyClose), 1);
  EXPECT_TRUE(IsWindowVisible(window->window()));
  window->answerClose = 0;
  Click(frame->window(), Middle(frame->CloseRect()));
  EXPECT_TRUE(window->isAlive());
  EXPECT_FALSE(IsWindowVisible(window->window()));
  host::Call<op::ShowManagedWindow>(services(), window->window(), 1);
  EXPECT_TRUE(IsWindowVisible(window->window()));
  EXPECT_EQ(window->Count(host::kNotifyShown), 1);
}

TEST_F(DockingTest, ADestroyedWindowLeavesTheLayout) {
  for (const std::uint16_t method : {host::kMethodTabbedDocument, host::kMethodDocked, host::kMethodFloating,
                                     host::kMethodCollapsible, host::kMethodTabbedCollapsible}) {
    const auto window = Docked(method, host::kDockRight);
    const Rect before = host().windows().arrangement().document;
    window->Destroy();
    host().Pump();
    EXPECT_EQ(host().windows().WindowOf(kTestGuid), nullptr);
    if (method == host::kMethodDocked) {
      EXPECT_GT(host().windows().arrangement().document.width(), before.width());
    }
  }
}

TEST_F(DockingTest, AWindowMayDestroyItselfWhenAskedToClose) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  window->onNotified = [&](int code) {
    if (code == host::kNotifyClose) window->Destroy();
  };
  DockFrame* frame = host().windows().FrameOf(window->window());
  Click(frame->window(), Middle(frame->CloseRect()));
  EXPECT_FALSE(window->isAlive());
  EXPECT_EQ(host().windows().WindowOf(kTestGuid), nullptr);
}

TEST_F(DockingTest, AWindowMayGoDuringADrag) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const HWND site = host().windows().site().window();
  DockFrame* frame = host().windows().FrameOf(window->window());
  Press(frame->window(), Middle(frame->CaptionRect()));
  Drag(frame->window(), {300, -60});
  window->Destroy();
  EXPECT_TRUE(host().windows().dragPreview().empty());
  Drag(site, {5, 200});
  ReleaseAt(site, {5, 200});
  EXPECT_EQ(host().windows().WindowOf(kTestGuid), nullptr);
}

TEST_F(DockingTest, TheOwnerKeepsAWindowThatOutlivesTheProgram) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  Stop();
  ASSERT_TRUE(window->isAlive());
  EXPECT_FALSE(IsWindowVisible(window->window()));
  EXPECT_NE(GetWindowLongPtrW(window->window(), GWL_STYLE) & WS_CAPTION, 0);
  EXPECT_EQ(GetParent(window->window()), nullptr);
}

TEST_F(DockingTest, ADoubleClickOnTheCaptionAsksTheWindowFirst) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  DockFrame* frame = host().windows().FrameOf(window->window());
  window->answerToggle = 1;
  DoubleClick(frame->window(), Middle(frame->CaptionRect()));
  EXPECT_EQ(window->Count(host::kNotifyToggle), 1);
  EXPECT_EQ(window->Count(host::kNotifyFloated), 0);
  window->answerToggle = 0;
  DoubleClick(frame->window(), Middle(frame->CaptionRect()));
  EXPECT_EQ(window->Count(host::kNotifyToggle), 2);
  EXPECT_EQ(window->Count(host::kNotifyFloated), 1) << "a window that does not toggle floats";
}

TEST_F(DockingTest, TheDockingMenuMovesTheWindow) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const auto choose = [&](int steps) {
    for (int i = 0; i < steps; ++i) PostMessageW(host().window(), WM_KEYDOWN, VK_DOWN, 0);
    PostMessageW(host().window(), WM_KEYDOWN, VK_RETURN, 0);
    host::Call<op::ShowDockingMenu>(services(), window->window(), 200, 200);
    host().Pump();
    return host().windows().model().GroupOf(host().windows().ItemOf(window->window()))->area;
  };
  EXPECT_EQ(choose(2), Area::Right);
  EXPECT_EQ(choose(3), Area::Top);
  EXPECT_EQ(choose(5), Area::Document);
  EXPECT_EQ(choose(6), Area::Floating);
  EXPECT_EQ(choose(1), Area::Left);
  EXPECT_EQ(choose(7), Area::Left);
  EXPECT_EQ(host::Call<op::GetWindowState>(services(), window->window()), host::kStateCollapsed);
  EXPECT_EQ(choose(8), Area::Left);
  EXPECT_FALSE(host().windows().IsShown(window->window()));
  EXPECT_EQ(window->Count(host::kNotifyClose), 1);
}

TEST_F(DockingTest, TheFocusMakesTheWindowActive) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  SetForegroundWindow(host().window());
  SetFocus(host().panel().window());
  host().Pump();
  window->notified.clear();
  SetFocus(window->window());
  EXPECT_TRUE(test_support::WaitUntil([&] { return window->Count(host::kNotifyActivated) == 1; }));
}

TEST_F(DockingTest, TheFocusComesBackToWhereItWasInTheWindow) {
  const auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const HWND child = CreateWindowExA(0, "Edit", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, window->window(),
                                     nullptr, nullptr, nullptr);
  SetForegroundWindow(host().window());
  SetFocus(child);
  host().Pump();
  SetFocus(host().window());  // as when a question was answered
  host().Pump();
  EXPECT_EQ(GetFocus(), child);
  DestroyWindow(child);
  SetFocus(host().window());
  host().Pump();
  EXPECT_EQ(GetFocus(), window->window()) << "nor to what has gone";
}

TEST_F(DockingTest, TwentyWindowsShareTheProgram) {
  std::vector<std::unique_ptr<TestWindow>> windows;
  for (int i = 0; i < 20; ++i) {
    const std::string guid = "{many-" + std::to_string(i) + "}";
    windows.push_back(Docked(i % 3 == 0 ? host::kMethodDocked : host::kMethodTabbedCollapsible,
                             static_cast<std::uint16_t>(i % 4), guid.c_str()));
  }
  for (size_t i = 0; i < windows.size(); i += 2) windows[i]->Destroy();
  host().Pump();
  EXPECT_EQ(host().windows().Windows().size(), 11u) << "ten and the utility panel";
  SetWindowPos(host().window(), nullptr, 0, 0, 430, 310, SWP_NOZORDER);
  SetWindowPos(host().window(), nullptr, 0, 0, 1200, 900, SWP_NOZORDER);
  for (size_t i = 1; i < windows.size(); i += 2) EXPECT_TRUE(windows[i]->isAlive());
}

}  // namespace
}  // namespace workbench
