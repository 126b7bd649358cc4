// Collapsing to the edge and popping out.
#include "tests/integration/workbench/workbench_fixture.h"

namespace workbench {
namespace {

namespace op = host::op;

class CollapseTest : public WorkbenchTest {
 protected:
  CollapseTest() {
    Start();
    window_ = Docked(host::kMethodTabbedCollapsible, host::kDockBottom);
  }

  std::int32_t State() { return host::Call<op::GetWindowState>(services(), window_->window()); }
  void SetState(std::int32_t state) { host::Call<op::SetWindowState>(services(), window_->window(), state); }
  Rect EdgeTab() { return host().windows().site().EdgeTabRect(host().windows().ItemOf(window_->window())); }
  HWND SiteWindow() { return host().windows().site().window(); }

  std::unique_ptr<TestWindow> window_;
};

TEST_F(CollapseTest, ACollapsedWindowIsATabAtItsEdge) {
  const int document = host().windows().arrangement().document.height();
  SetState(host::kStateCollapsed);
  EXPECT_EQ(State(), host::kStateCollapsed);
  EXPECT_FALSE(IsWindowVisible(window_->window()));
  EXPECT_FALSE(EdgeTab().empty());
  EXPECT_EQ(EdgeTab().bottom, Site().bottom);
  EXPECT_GT(host().windows().arrangement().document.height(), document);
  EXPECT_EQ(window_->Count(host::kNotifyStateSet), 1);
  SetState(host::kStateExpanded);
  EXPECT_EQ(State(), host::kStateExpanded);
  EXPECT_TRUE(IsWindowVisible(window_->window()));
  EXPECT_TRUE(EdgeTab().empty());
  EXPECT_EQ(host().windows().arrangement().document.height(), document);
  EXPECT_EQ(window_->Count(host::kNotifyStateSet), 2);
}

TEST_F(CollapseTest, ThePinCollapsesAndExpands) {
  DockFrame* frame = host().windows().FrameOf(window_->window());
  Click(frame->window(), Middle(frame->PinRect()));
  EXPECT_EQ(State(), host::kStateCollapsed);
  Click(SiteWindow(), Middle(EdgeTab()));
  frame = host().windows().FrameOf(window_->window());
  EXPECT_TRUE(IsWindowVisible(window_->window()));
  Click(frame->window(), Middle(frame->PinRect()));
  EXPECT_EQ(State(), host::kStateExpanded);
}

TEST_F(CollapseTest, AClickOnTheEdgeTabPopsTheWindowOutOverTheContent) {
  SetState(host::kStateCollapsed);
  const Rect document = host().windows().arrangement().document;
  Click(SiteWindow(), Middle(EdgeTab()));
  EXPECT_TRUE(IsWindowVisible(window_->window()));
  EXPECT_EQ(State(), host::kStateCollapsed) << "popped out, still not pinned";
  EXPECT_EQ(host().windows().arrangement().document, document) << "the content keeps its room";
  const Rect frame = PlaceInSite(host().windows().FrameOf(window_->window())->window());
  EXPECT_EQ(frame.bottom, EdgeTab().top);
  Click(SiteWindow(), Middle(EdgeTab()));
  EXPECT_FALSE(IsWindowVisible(window_->window()));
}

TEST_F(CollapseTest, TheMouseRestingOnTheEdgeTabPopsItOutWithoutTheFocus) {
  SetState(host::kStateCollapsed);
  SetFocus(host().panel().window());
  const Point at = Middle(EdgeTab());
  SendMessageW(SiteWindow(), WM_MOUSEHOVER, 0, MAKELPARAM(at.x, at.y));
  EXPECT_TRUE(IsWindowVisible(window_->window()));
  EXPECT_NE(GetFocus(), window_->window());
}

TEST_F(CollapseTest, APoppedOutWindowGoesBackWhenTheMouseAndTheFocusAreElsewhere) {
  SetState(host::kStateCollapsed);
  SetFocus(host().panel().window());
  const Point at = Middle(EdgeTab());
  SetCursorPos(0, 0);
  SendMessageW(SiteWindow(), WM_MOUSEHOVER, 0, MAKELPARAM(at.x, at.y));
  ASSERT_TRUE(IsWindowVisible(window_->window()));
  EXPECT_TRUE(test_support::WaitUntil([&] { return !IsWindowVisible(window_->window()); }));
}

TEST_F(CollapseTest, APoppedOutWindowGoesBackWhenAnotherWindowTakesTheFocus) {
  SetForegroundWindow(host().window());
  SetState(host::kStateCollapsed);
  Click(SiteWindow(), Middle(EdgeTab()));
  host().Pump();
  ASSERT_EQ(GetFocus(), window_->window());
  SetFocus(host().panel().window());
  EXPECT_TRUE(test_support::WaitUntil([&] { return !IsWindowVisible(window_->window()); }));
}

TEST_F(CollapseTest, AWindowThatIsShownWhileCollapsedPopsOut) {
  SetState(host::kStateCollapsed);
  host::Call<op::ShowManagedWindow>(services(), window_->window(), 1);
  EXPECT_TRUE(IsWindowVisible(window_->window()));
  host::Call<op::ShowManagedWindow>(services(), window_->window(), 0);
  EXPECT_FALSE(IsWindowVisible(window_->window()));
  EXPECT_TRUE(EdgeTab().empty());
}

TEST_F(CollapseTest, ADestroyedWindowLeavesNoTabAtTheEdge) {
  SetState(host::kStateCollapsed);
  Click(SiteWindow(), Middle(EdgeTab()));
  window_->Destroy();
  EXPECT_EQ(host().windows().poppedOut(), 0);
  EXPECT_EQ(host().windows().arrangement().FindEdge(Side::Bottom), nullptr);
}

TEST_F(CollapseTest, ADoubleClickOnTheCaptionTogglesThroughTheWindow) {
  window_->answerToggle = 1;
  window_->onNotified = [&](int code) {
    if (code == host::kNotifyToggle) {
      SetState(State() == host::kStateExpanded ? host::kStateCollapsed : host::kStateExpanded);
    }
  };
  DockFrame* frame = host().windows().FrameOf(window_->window());
  DoubleClick(frame->window(), Middle(frame->CaptionRect()));
  EXPECT_EQ(State(), host::kStateCollapsed);
  EXPECT_EQ(window_->Count(host::kNotifyFloated), 0);
}

TEST_F(CollapseTest, OnlyCollapsibleWindowsAtASideHaveTheStates) {
  const auto docked = Docked(host::kMethodDocked, host::kDockRight, kOtherGuid);
  EXPECT_EQ(host::Call<op::GetWindowState>(services(), docked->window()), kStateNormal);
  host::Call<op::SetWindowState>(services(), docked->window(), host::kStateCollapsed);
  EXPECT_TRUE(IsWindowVisible(docked->window()));
  DockTarget target;
  target.area = Area::Floating;
  host().windows().MoveWindowTo(window_->window(), target);
  EXPECT_EQ(State(), kStateNormal);
  SetState(host::kStateCollapsed);
  EXPECT_TRUE(IsWindowVisible(window_->window()));
  SetState(99);
  EXPECT_EQ(State(), kStateNormal);
}

TEST_F(CollapseTest, EverySideHasAnEdge) {
  for (const Area area : {Area::Left, Area::Right, Area::Top}) {
    DockTarget target;
    target.area = area;
    host().windows().MoveWindowTo(window_->window(), target);
    SetState(host::kStateCollapsed);
    SCOPED_TRACE(static_cast<int>(area));
    ASSERT_FALSE(EdgeTab().empty());
    Click(SiteWindow(), Middle(EdgeTab()));
    EXPECT_TRUE(IsWindowVisible(window_->window()));
    const Rect frame = PlaceInSite(host().windows().FrameOf(window_->window())->window());
    if (area == Area::Left) {
      EXPECT_EQ(frame.left, EdgeTab().right);
    }
    if (area == Area::Right) {
      EXPECT_EQ(frame.right, EdgeTab().left);
    }
    if (area == Area::Top) {
      EXPECT_EQ(frame.top, EdgeTab().bottom);
    }
  }
}

}  // namespace
}  // namespace workbench
