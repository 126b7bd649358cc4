#include "src/preview/area_scaler.h"

#include <gtest/gtest.h>

#include "src/preview/picture.h"

namespace file_explorer::preview {
namespace {

Picture Scale(const Picture& source, PictureSize size) {
  AreaScaler scaler({source.width, source.height}, size);
  for (int y = 0; y < source.height; ++y)
    scaler.AddRow(&source.pixels[static_cast<std::size_t>(y * source.width)]);
  return scaler.Finish();
}

TEST(FitInSquare, KeepsTheShapeAndNeverEnlarges) {
  EXPECT_EQ(FitInSquare({200, 100}, 64), (PictureSize{64, 32}));
  EXPECT_EQ(FitInSquare({100, 200}, 64), (PictureSize{32, 64}));
  EXPECT_EQ(FitInSquare({64, 64}, 64), (PictureSize{64, 64}));
  EXPECT_EQ(FitInSquare({10, 5}, 64), (PictureSize{10, 5}));
  EXPECT_EQ(FitInSquare({60000, 1}, 64), (PictureSize{64, 1}));
}

TEST(AreaScaler, GivesThePictureItselfAtItsOwnSize) {
  const Picture source = {2, 2, {0xFF010203, 0x80102030, 0, 0xFFFFFFFF}};
  EXPECT_EQ(Scale(source, {2, 2}).pixels, source.pixels);
}

TEST(AreaScaler, GivesTheMeanOfWhatAPixelCovers) {
  const Picture source = {2, 2, {0xFF000000, 0xFFFFFFFF, 0xFFFFFFFF, 0xFF000000}};
  EXPECT_EQ(Scale(source, {1, 1}).pixels[0], 0xFF808080);
}

TEST(AreaScaler, SharesPixelsThatLieOverABorder) {
  const Picture source = {3, 1, {0xFF000000, 0xFF5A5A5A, 0xFFB4B4B4}};  // 0, 90, 180
  const Picture scaled = Scale(source, {2, 1});
  EXPECT_NEAR(static_cast<int>(scaled.pixels[0] & 0xFF), 30, 1);
  EXPECT_NEAR(static_cast<int>(scaled.pixels[1] & 0xFF), 150, 1);
}

TEST(AreaScaler, AWhitePictureStaysWhiteAtEverySize) {
  for (int width = 1; width <= 40; ++width) {
    const Picture source = {width, 37,
                            std::vector<std::uint32_t>(static_cast<std::size_t>(width * 37), 0xFFFFFFFF)};
    for (const std::uint32_t pixel : Scale(source, FitInSquare({width, 37}, 16)).pixels)
      EXPECT_EQ(pixel, 0xFFFFFFFFu);
  }
}

TEST(AreaScaler, MissingRowsStayTransparentAndTooManyAreIgnored) {
  const std::uint32_t row[] = {0xFFFFFFFF, 0xFFFFFFFF};
  AreaScaler scaler({2, 2}, {2, 2});
  scaler.AddRow(row);
  EXPECT_EQ(scaler.Finish().pixels, (std::vector<std::uint32_t>{0xFFFFFFFF, 0xFFFFFFFF, 0, 0}));
  for (int i = 0; i < 5; ++i) scaler.AddRow(row);
  EXPECT_EQ(scaler.Finish().pixels, std::vector<std::uint32_t>(4, 0xFFFFFFFF));
}

TEST(Picture, FlattensOverAColour) {
  const Picture picture = {3, 1, {0, 0xFF123456, 0x80400000}};
  const Picture flat = Flatten(picture, 0x0000FF);
  EXPECT_EQ(flat.pixels, (std::vector<std::uint32_t>{0xFF0000FF, 0xFF123456, 0xFF40007F}));
}

TEST(Picture, LiesInTheMiddleOfASquare) {
  const Picture square = CentreInSquare({2, 1, {1, 2}}, 4);
  EXPECT_EQ(square.width, 4);
  EXPECT_EQ(square.At(1, 1), 1U);
  EXPECT_EQ(square.At(2, 1), 2U);
  EXPECT_EQ(square.At(0, 1) + square.At(1, 0) + square.At(1, 2), 0U);
}

}  // namespace
}  // namespace file_explorer::preview
