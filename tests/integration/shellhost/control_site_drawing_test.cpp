// Drawing of a control without a window of its own, on the parent window.
#include <gtest/gtest.h>

#include "tests/integration/shellhost/hosting_fixture.h"

namespace file_explorer {
namespace {

class SiteDrawing : public HostingTest {
 protected:
  void SetUp() override {
    HostingTest::SetUp();
    ControlScript script;
    script.windowless = true;
    control_ = std::make_unique<ScriptedClass>(kTestClass, script);
    site_ = CreatedSite();
    site_->Attach(parent_.get(), kTestRect, nullptr);
    UpdateWindow(parent_.get());
    test_support::PumpMessages();
    ValidateRect(parent_.get(), nullptr);
  }
  void TearDown() override {
    site_->Detach();
    site_.Reset();
    EXPECT_EQ(control_->alive, 0);
    control_.reset();
    HostingTest::TearDown();
  }
  RECT Invalid() {
    RECT rect = {};
    GetUpdateRect(parent_.get(), &rect, FALSE);
    ValidateRect(parent_.get(), nullptr);
    return rect;
  }
  std::unique_ptr<ScriptedClass> control_;
  Site site_;
};

bool Same(const RECT& a, const RECT& b) {
  return EqualRect(&a, &b);
}

TEST_F(SiteDrawing, AViewChangeInvalidatesTheWholeControl) {
  ASSERT_TRUE(control_->control->viewSink());
  control_->control->viewSink()->OnViewChange(DVASPECT_CONTENT, -1);
  EXPECT_TRUE(Same(Invalid(), kTestRect));
}

TEST_F(SiteDrawing, TheOtherNotificationsAreIgnored) {
  IAdviseSinkEx* const sink = site_.Get();
  sink->OnDataChange(nullptr, nullptr);
  sink->OnRename(nullptr);
  sink->OnSave();
  sink->OnClose();
  sink->OnViewStatusChange(1);
  EXPECT_TRUE(Same(Invalid(), {0, 0, 0, 0}));
}

TEST_F(SiteDrawing, InvalidationStaysInsideTheControl) {
  const RECT partly = {100, 60, 200, 200};
  EXPECT_EQ(site_->InvalidateRect(&partly, FALSE), S_OK);
  EXPECT_TRUE(Same(Invalid(), {100, 60, 110, 70}));
  const RECT outside = {200, 200, 300, 300};
  EXPECT_EQ(site_->InvalidateRect(&outside, FALSE), S_OK);
  EXPECT_TRUE(Same(Invalid(), {0, 0, 0, 0}));
  EXPECT_EQ(site_->InvalidateRect(nullptr, TRUE), S_OK);
  EXPECT_TRUE(Same(Invalid(), kTestRect));
}

TEST_F(SiteDrawing, ARegionIsCutToTheControl) {
  const HRGN region = CreateRectRgn(0, 0, 50, 40);
  EXPECT_EQ(site_->InvalidateRgn(region, FALSE), S_OK);
  EXPECT_TRUE(Same(Invalid(), {10, 20, 50, 40}));
  SetRectRgn(region, 300, 200, 310, 210);
  EXPECT_EQ(site_->InvalidateRgn(region, FALSE), S_OK);
  EXPECT_TRUE(Same(Invalid(), {0, 0, 0, 0}));
  DeleteObject(region);
  EXPECT_EQ(site_->InvalidateRgn(nullptr, FALSE), S_OK);
  EXPECT_TRUE(Same(Invalid(), kTestRect));
}

TEST_F(SiteDrawing, ARectangleIsAdjustedToWhatIsVisible) {
  EXPECT_EQ(site_->AdjustRect(nullptr), E_INVALIDARG);
  RECT rect = {0, 0, 50, 40};
  EXPECT_EQ(site_->AdjustRect(&rect), S_OK);
  EXPECT_TRUE(Same(rect, {10, 20, 50, 40}));
  rect = {200, 0, 250, 40};
  EXPECT_EQ(site_->AdjustRect(&rect), S_FALSE);
  EXPECT_TRUE(Same(rect, {0, 0, 0, 0}));
}

TEST_F(SiteDrawing, TheDeviceContextIsTheParentsClippedToTheControl) {
  HDC dc = nullptr;
  ASSERT_EQ(site_->GetDC(nullptr, OLEDC_NODRAW, &dc), S_OK);
  EXPECT_EQ(WindowFromDC(dc), parent_.get());
  RECT clip = {};
  GetClipBox(dc, &clip);
  EXPECT_TRUE(Same(clip, kTestRect));
  HDC second = dc;
  EXPECT_EQ(site_->GetDC(nullptr, 0, &second), E_UNEXPECTED) << "one at a time";
  EXPECT_EQ(second, nullptr);
  EXPECT_EQ(site_->ReleaseDC(nullptr), E_INVALIDARG);
  EXPECT_EQ(site_->ReleaseDC(dc), S_OK);
  EXPECT_EQ(site_->ReleaseDC(dc), E_INVALIDARG);

  const RECT part = {0, 0, 50, 40};
  ASSERT_EQ(site_->GetDC(&part, OLEDC_PAINTBKGND, &dc), S_OK);
  GetClipBox(dc, &clip);
  EXPECT_TRUE(Same(clip, {10, 20, 50, 40}));
  EXPECT_EQ(site_->ReleaseDC(dc), S_OK);
  EXPECT_EQ(site_->GetDC(nullptr, 0, nullptr), E_INVALIDARG);
}

TEST_F(SiteDrawing, AContextThatWasNotGivenBackGoesWithTheSite) {
  auto site = NewSite();
  site->Attach(parent_.get(), kTestRect, nullptr);
  HDC dc = nullptr;
  ASSERT_EQ(site->GetDC(nullptr, 0, &dc), S_OK);
  site.Reset();
  EXPECT_NE(WindowFromDC(dc), parent_.get());
}

TEST_F(SiteDrawing, DefaultMessagesGoToTheParentWindowsDefaultProcedure) {
  LRESULT result = 0;
  EXPECT_EQ(site_->OnDefWindowMessage(WM_GETTEXTLENGTH, 0, 0, &result), S_OK);
  EXPECT_EQ(result, GetWindowTextLengthA(parent_.get()));
  EXPECT_EQ(site_->OnDefWindowMessage(WM_NULL, 0, 0, nullptr), S_OK);
}

TEST_F(SiteDrawing, WithoutAWindowNothingIsDrawn) {
  auto site = NewSite();
  HDC dc = nullptr;
  LRESULT result = 0;
  EXPECT_EQ(site->GetDC(nullptr, 0, &dc), E_UNEXPECTED);
  EXPECT_EQ(site->InvalidateRect(nullptr, FALSE), E_UNEXPECTED);
  EXPECT_EQ(site->OnDefWindowMessage(WM_NULL, 0, 0, &result), E_UNEXPECTED);
  site->OnViewChange(DVASPECT_CONTENT, -1);
}

}  // namespace
}  // namespace file_explorer
