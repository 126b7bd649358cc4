// Places are remembered from one run to the next, and a damaged or outdated memory does no harm.
#include "tests/integration/workbench/workbench_fixture.h"

namespace workbench {
namespace {

namespace op = host::op;

class PlacementTest : public WorkbenchTest {
 protected:
  Area AreaOfWindow(const TestWindow& window) {
    return host().windows().model().GroupOf(host().windows().ItemOf(window.window()))->area;
  }
  void WriteRemembered(const wchar_t* text) {
    ASSERT_TRUE(WritePrivateProfileStringW(L"Workbench-Layout", L"{11111111-2222-3333-4444-555555555555}",
                                           text, folder_.Join(L"workbench.ini").c_str()));
  }
};

TEST_F(PlacementTest, TheNextRunPutsTheWindowWhereTheUserLeftIt) {
  Start();
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  DockTarget target;
  target.area = Area::Right;
  host().windows().MoveWindowTo(window->window(), target);
  host::Call<op::SetWindowSize>(services(), window->window(), 333, 0, 1);
  host::Call<op::SetWindowState>(services(), window->window(), host::kStateCollapsed);
  window.reset();
  Start();
  auto again = NewWindow();
  host::DockedWindowPlacement placement = {};
  ASSERT_NE(Dock(*again, host::kMethodTabbedCollapsible, host::kDockBottom, &placement), 0);
  EXPECT_NE(placement.hasPlacement, 0);
  EXPECT_EQ(placement.rect.right - placement.rect.left, 333);
  host::Call<op::ShowManagedWindow>(services(), again->window(), 1);
  EXPECT_EQ(AreaOfWindow(*again), Area::Right);
  EXPECT_EQ(host().windows().model().extent(Side::Right), 333);
  EXPECT_EQ(host::Call<op::GetWindowState>(services(), again->window()), host::kStateCollapsed);
  EXPECT_FALSE(IsWindowVisible(again->window())) << "a collapsed window does not pop out by itself";
}

TEST_F(PlacementTest, AProfileThatACutLeftEmptyGetsBackWhatItHadAtTheLastStart) {
  const std::wstring profile = folder_.Join(L"workbench.ini");
  WriteRemembered(L"remembered");
  Start();
  Stop();
  // Each value that is set empties the file and writes it again: the cut comes in between.
  WritePrivateProfileStringW(nullptr, nullptr, nullptr, profile.c_str());
  CloseHandle(CreateFileW(profile.c_str(), GENERIC_WRITE, 0, nullptr, TRUNCATE_EXISTING, 0, nullptr));
  Start();
  Stop();
  wchar_t text[32] = L"";
  GetPrivateProfileStringW(L"Workbench-Layout", L"{11111111-2222-3333-4444-555555555555}", L"", text, 32,
                           profile.c_str());
  EXPECT_STREQ(text, L"remembered");
}

TEST_F(PlacementTest, AFloatingPlaceIsRememberedToo) {
  Start();
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  DockTarget target;
  target.area = Area::Floating;
  target.floating = {100, 120, 500, 420};
  host().windows().MoveWindowTo(window->window(), target);
  Stop();
  window.reset();
  Start();
  auto again = NewWindow();
  host::DockedWindowPlacement placement = {};
  ASSERT_NE(Dock(*again, host::kMethodTabbedCollapsible, host::kDockBottom, &placement), 0);
  EXPECT_NE(placement.hasPlacement, 0);
  EXPECT_EQ(ToRect(placement.rect), (Rect{100, 120, 500, 420}));
  EXPECT_EQ(AreaOfWindow(*again), Area::Floating);
}

TEST_F(PlacementTest, AWindowThatAsksForAnotherKindOfPlaceGetsIt) {
  Start();
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  window.reset();
  Start();
  auto again = NewWindow();
  host::DockedWindowPlacement placement = {};
  ASSERT_NE(Dock(*again, host::kMethodTabbedDocument, host::kDockBottom, &placement), 0);
  EXPECT_EQ(placement.hasPlacement, 0);
  EXPECT_EQ(AreaOfWindow(*again), Area::Document);
}

TEST_F(PlacementTest, ADamagedMemoryCountsAsNone) {
  for (const wchar_t* text :
       {L"area=bottom size=abc", L"garbage", L"area=floating", L"=", L"area=bottom size=-4"}) {
    Start();
    WriteRemembered(text);
    auto window = NewWindow();
    host::DockedWindowPlacement placement = {};
    ASSERT_NE(Dock(*window, host::kMethodTabbedCollapsible, host::kDockBottom, &placement), 0);
    EXPECT_EQ(placement.hasPlacement, 0) << text;
    EXPECT_EQ(AreaOfWindow(*window), Area::Bottom);
    window.reset();
    Stop();
  }
}

TEST_F(PlacementTest, AFloatingPlaceOnAScreenThatIsGoneComesBackIntoView) {
  Start();
  WriteRemembered(L"area=floating float=9000,9000,9400,9300 method=5 position=3");
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  RECT rect = {};
  GetWindowRect(GetAncestor(window->window(), GA_ROOT), &rect);
  EXPECT_LE(rect.right, GetSystemMetrics(SM_CXSCREEN));
  EXPECT_LE(rect.bottom, GetSystemMetrics(SM_CYSCREEN));
  EXPECT_EQ(rect.right - rect.left, 400);
}

TEST_F(PlacementTest, AHugeRememberedSizeLeavesRoomForTheRest) {
  Start();
  WriteRemembered(L"area=bottom size=30000 method=5 position=3");
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  EXPECT_GE(host().windows().arrangement().document.height(), 80);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(PlacementTest, TheOrderOfTabsIsRemembered) {
  Start();
  auto first = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  auto second = Docked(host::kMethodTabbedCollapsible, host::kDockBottom, kOtherGuid);
  Stop();
  first.reset();
  second.reset();
  Start();
  // They come in the other order this time.
  second = Docked(host::kMethodTabbedCollapsible, host::kDockBottom, kOtherGuid);
  first = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  const DockFrame* frame = host().windows().FrameOf(first->window());
  ASSERT_EQ(frame->content().windows.size(), 2u);
  EXPECT_EQ(frame->content().windows[0], first->window());
  EXPECT_EQ(frame->content().windows[1], second->window());
}

TEST_F(PlacementTest, ResettingTheLayoutForgetsIt) {
  Start();
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  DockTarget target;
  target.area = Area::Left;
  host().windows().MoveWindowTo(window->window(), target);
  host().Execute(kCommandResetLayout);
  EXPECT_EQ(AreaOfWindow(*window), Area::Bottom);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(PlacementTest, AWindowThatIsResetAfterItsPlaceWasForgottenKeepsNoOldSide) {
  Start();
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  host::Call<op::SetWindowState>(services(), window->window(), host::kStateCollapsed);
  host().Execute(kCommandResetLayout);
  EXPECT_EQ(host::Call<op::GetWindowState>(services(), window->window()), host::kStateExpanded);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

TEST_F(PlacementTest, AnUnwritableProfileCostsTheMemoryOnly) {
  WorkbenchOptions options = Options();
  options.profilePath = folder_.AddFolder(L"a folder instead of a file");
  Start(std::move(options));
  auto window = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  EXPECT_TRUE(IsWindowVisible(window->window()));
}

}  // namespace
}  // namespace workbench
