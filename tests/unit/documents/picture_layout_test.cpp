#include "workbench/app/documents/picture_layout.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(PictureLayout, FitsALargePictureKeepingItsShape) {
  PictureLayout layout({400, 100});
  layout.SetView({200, 200});
  EXPECT_DOUBLE_EQ(layout.zoom(), 0.5);
  EXPECT_DOUBLE_EQ(layout.left(), 0);
  EXPECT_DOUBLE_EQ(layout.top(), 75);
  EXPECT_FALSE(layout.CanPan());
}

TEST(PictureLayout, DoesNotEnlargeASmallPicture) {
  PictureLayout layout({10, 20});
  layout.SetView({100, 100});
  EXPECT_DOUBLE_EQ(layout.zoom(), 1);
  EXPECT_DOUBLE_EQ(layout.left(), 45);
  EXPECT_DOUBLE_EQ(layout.top(), 40);
}

TEST(PictureLayout, FollowsTheViewUntilItIsZoomed) {
  PictureLayout layout({400, 400});
  layout.SetView({200, 200});
  layout.SetView({100, 100});
  EXPECT_DOUBLE_EQ(layout.zoom(), 0.25);
  layout.SetZoom(1, 50, 50);
  layout.SetView({150, 150});
  EXPECT_DOUBLE_EQ(layout.zoom(), 1);
  EXPECT_FALSE(layout.fits());
}

TEST(PictureLayout, KeepsThePointUnderTheMouseWhenZooming) {
  PictureLayout layout({1000, 1000});
  layout.SetView({500, 500});
  const double pointBefore = (100 - layout.left()) / layout.zoom();
  layout.ZoomBy(4, 100, 100);
  EXPECT_NEAR((100 - layout.left()) / layout.zoom(), pointBefore, 1e-9);
}

TEST(PictureLayout, PansOnlyAsFarAsThePictureGoes) {
  PictureLayout layout({1000, 200});
  layout.SetView({500, 500});
  layout.SetZoom(1, 0, 0);
  EXPECT_TRUE(layout.CanPan());
  layout.Pan(-10000, -10000);
  EXPECT_DOUBLE_EQ(layout.left(), -500);
  EXPECT_DOUBLE_EQ(layout.top(), 150) << "what is smaller than the view stays in the middle";
  layout.Pan(10000, 0);
  EXPECT_DOUBLE_EQ(layout.left(), 0);
}

TEST(PictureLayout, KeepsTheZoomInItsRange) {
  PictureLayout layout({100, 100});
  layout.SetView({100, 100});
  for (int i = 0; i < 100; ++i) layout.ZoomBy(2, 50, 50);
  EXPECT_DOUBLE_EQ(layout.zoom(), PictureLayout::kLargestZoom);
  for (int i = 0; i < 100; ++i) layout.ZoomBy(0.5, 50, 50);
  EXPECT_DOUBLE_EQ(layout.zoom(), PictureLayout::kSmallestZoom);
}

TEST(PictureLayout, StandsAViewWithoutASize) {
  PictureLayout layout({100, 100});
  layout.SetView({0, 0});
  layout.ZoomBy(2, 0, 0);
  layout.Pan(5, 5);
  layout.SetFit();
  EXPECT_DOUBLE_EQ(layout.zoom(), 1);
}

}  // namespace
}  // namespace workbench
