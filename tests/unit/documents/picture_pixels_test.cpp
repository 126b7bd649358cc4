#include "workbench/app/documents/picture_pixels.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace workbench {
namespace {

constexpr std::uint32_t kRed = 0xFFFF0000;
constexpr std::uint32_t kBlue = 0xFF0000FF;
constexpr std::uint32_t kBackground = 0x112233;

PixelGrid Filled(int width, int height, std::uint32_t pixel) {
  return {width, height, std::vector<std::uint32_t>(static_cast<std::size_t>(width * height), pixel)};
}

std::vector<std::uint32_t> RenderAt(const PicturePyramid& picture, PixelSize view, double zoom) {
  PictureLayout layout(picture.size());
  layout.SetView(view);
  if (zoom > 0) layout.SetZoom(zoom, 0, 0);
  return picture.Render(layout, kBackground, 4);
}

TEST(Halve, TakesTheMeanOfFour) {
  const PixelGrid half = Halve({2, 2, {0xFF000000, 0xFF000004, 0xFF000008, 0xFF00000C}});
  ASSERT_EQ(half.pixels.size(), 1u);
  EXPECT_EQ(half.At(0, 0), 0xFF000006u);
}

TEST(Halve, RoundsOddSizesUp) {
  const PixelGrid half = Halve(Filled(3, 5, kRed));
  EXPECT_EQ(half.width, 2);
  EXPECT_EQ(half.height, 3);
  for (const std::uint32_t pixel : half.pixels) EXPECT_EQ(pixel, kRed);
}

TEST(PicturePyramid, ShowsASmallPictureAsItIsInTheMiddle) {
  PixelGrid grid = Filled(2, 2, kRed);
  grid.pixels[3] = kBlue;
  const auto shown = RenderAt(PicturePyramid(grid), {6, 4}, 0);
  ASSERT_EQ(shown.size(), 24u);
  EXPECT_EQ(shown[0], kBackground);
  EXPECT_EQ(shown[1 * 6 + 2], 0xFF0000u);
  EXPECT_EQ(shown[2 * 6 + 3], 0x0000FFu);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), kBackground), 20);
}

TEST(PicturePyramid, KeepsAnEvenColourEvenAtEveryZoom) {
  const PicturePyramid picture(Filled(300, 170, kRed));
  for (const double zoom : {0.02, 0.1, 0.3, 0.5, 0.77, 1.0, 1.5, 2.0, 7.0}) {
    const auto shown = RenderAt(picture, {90, 60}, zoom);
    for (const std::uint32_t pixel : shown) ASSERT_TRUE(pixel == 0xFF0000 || pixel == kBackground) << zoom;
    EXPECT_GT(std::count(shown.begin(), shown.end(), 0xFF0000u), 0) << zoom;
  }
}

TEST(PicturePyramid, MixesFineStripesWhenItIsShownSmall) {
  PixelGrid grid = Filled(256, 256, 0xFF000000);
  for (std::size_t i = 0; i < grid.pixels.size(); i += 2) grid.pixels[i] = 0xFFFFFFFF;
  const auto shown = RenderAt(PicturePyramid(grid), {64, 64}, 0);
  for (const std::uint32_t pixel : shown) EXPECT_NEAR(static_cast<int>(pixel & 0xFF), 128, 4);
}

TEST(PicturePyramid, ShowsCrispPixelsWhenEnlarged) {
  const PicturePyramid picture({2, 1, {kRed, kBlue}});
  const auto shown = RenderAt(picture, {8, 4}, 4);
  for (int x = 0; x < 8; ++x) EXPECT_EQ(shown[static_cast<std::size_t>(x)], x < 4 ? 0xFF0000u : 0x0000FFu);
}

TEST(PicturePyramid, ShowsABoardUnderTransparency) {
  const auto clear = RenderAt(PicturePyramid(Filled(8, 8, 0)), {8, 8}, 0);
  EXPECT_EQ(std::set<std::uint32_t>(clear.begin(), clear.end()).size(), 2u);
  EXPECT_EQ(clear[0], clear[7 * 8 + 7]);
  EXPECT_NE(clear[0], clear[7]);
  const auto half = RenderAt(PicturePyramid(Filled(8, 8, 0x80800000)), {8, 8}, 0);
  EXPECT_NEAR(static_cast<int>(half[0] >> 16), 255, 1);
  EXPECT_NEAR(static_cast<int>(half[0] & 0xFF), 127, 1);
}

TEST(PicturePyramid, ShowsAVeryThinPictureAtLeastAsALine) {
  const auto shown = RenderAt(PicturePyramid(Filled(20000, 1, kRed)), {100, 50}, 0);
  EXPECT_EQ(std::count(shown.begin(), shown.end(), 0xFF0000u), 100);
}

TEST(PicturePyramid, DrawsNothingIntoAnEmptyView) {
  EXPECT_TRUE(RenderAt(PicturePyramid(Filled(2, 2, kRed)), {0, 10}, 0).empty());
}

}  // namespace
}  // namespace workbench
