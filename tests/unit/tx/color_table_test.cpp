#include "workbench/tx/color_table.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "src/host/vc64_tx.h"

namespace workbench::tx {
namespace {

double Linear(double part) {
  return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
}

struct Lab {
  double l, a, b;
};

// CIE L*a*b* of an sRGB colour, white point D65.
Lab LabOf(const Color& color) {
  const double r = Linear(color.red), g = Linear(color.green), b = Linear(color.blue);
  const auto curve = [](double t) { return t > 0.008856 ? std::cbrt(t) : 7.787 * t + 16.0 / 116.0; };
  const double x = curve((0.4124 * r + 0.3576 * g + 0.1805 * b) / 0.9505);
  const double y = curve(0.2126 * r + 0.7152 * g + 0.0722 * b);
  const double z = curve((0.0193 * r + 0.1192 * g + 0.9505 * b) / 1.089);
  return {116 * y - 16, 500 * (x - y), 200 * (y - z)};
}

double ContrastWithBlack(const Color& color) {
  return (0.2126 * Linear(color.red) + 0.7152 * Linear(color.green) + 0.0722 * Linear(color.blue) + 0.05) /
         0.05;
}

TEST(ColorTable, BlackTextIsReadableOnEveryFactoryColor) {
  const ColorTable colors;
  for (const uint32_t bit : kCategoriesBySpecificness)
    EXPECT_GT(ContrastWithBlack(*colors.Of(bit)), 11) << bit;
}

TEST(ColorTable, FactoryColorsAreToldApart) {
  const ColorTable colors;
  for (size_t i = 0; i < kCategoryCount; ++i) {
    for (size_t j = i + 1; j < kCategoryCount; ++j) {
      const Lab a = LabOf(*colors.Of(kCategoriesBySpecificness[i]));
      const Lab b = LabOf(*colors.Of(kCategoriesBySpecificness[j]));
      EXPECT_GT(std::hypot(a.l - b.l, a.a - b.a, a.b - b.b), 18) << i << " and " << j;
    }
  }
}

TEST(ColorTable, NoFactoryColorIsTheWhiteOfAListItself) {
  const ColorTable colors;
  for (const uint32_t bit : kCategoriesBySpecificness) {
    const Lab lab = LabOf(*colors.Of(bit));
    EXPECT_GT(std::hypot(lab.l - 100, lab.a, lab.b), 14) << bit;
  }
}

TEST(ColorTable, AMaskOfSeveralTypesTakesTheMostSpecific) {
  const ColorTable colors;
  EXPECT_EQ(*colors.Of(kTxTypeText | kTxTypeObject3D), *colors.Of(kTxTypeObject3D));
  EXPECT_EQ(*colors.Of(kTxTypeText | kTxTypeVector2D), *colors.Of(kTxTypeVector2D));
  EXPECT_EQ(*colors.Of(kTxTypeVector2D | kTxTypeBitmap2D), *colors.Of(kTxTypeBitmap2D));
  EXPECT_EQ(*colors.Of(kTxTypeArchive | kTxTypeUnknown), *colors.Of(kTxTypeArchive));
  EXPECT_EQ(*colors.Of(0xFFFFFFFF), *colors.Of(kTxTypeObject3D));
}

TEST(ColorTable, AMaskWithoutACategoryHasNoColor) {
  const ColorTable colors;
  EXPECT_EQ(colors.Of(0), nullptr);
  EXPECT_EQ(colors.Of(kTxTypeUnknown), nullptr);
  EXPECT_EQ(colors.Of(0x80000000), nullptr);
}

TEST(ColorTable, SetClampsAndResetBringsTheFactoryColorsBack) {
  ColorTable colors;
  const Color factory = *colors.Of(kTxTypeAudio);
  ASSERT_TRUE(colors.Set(kTxTypeAudio, {2.0f, -1.0f, 0.5f}));
  EXPECT_EQ(*colors.Of(kTxTypeAudio), (Color{1.0f, 0.0f, 0.5f}));
  ASSERT_TRUE(colors.Set(kTxTypeAudio, {std::numeric_limits<float>::quiet_NaN(), 1.0f, 1.0f}));
  EXPECT_EQ(*colors.Of(kTxTypeAudio), (Color{0.0f, 1.0f, 1.0f}));
  colors.Reset();
  EXPECT_EQ(*colors.Of(kTxTypeAudio), factory);
}

TEST(ColorTable, SetWantsASingleCategory) {
  ColorTable colors;
  EXPECT_FALSE(colors.Set(0, {1, 1, 1}));
  EXPECT_FALSE(colors.Set(kTxTypeUnknown, {1, 1, 1}));
  EXPECT_FALSE(colors.Set(kTxTypeText | kTxTypeAudio, {1, 1, 1}));
  EXPECT_FALSE(colors.Set(0x800, {1, 1, 1}));
  const ColorTable fresh;
  for (const uint32_t bit : kCategoriesBySpecificness) EXPECT_EQ(*colors.Of(bit), *fresh.Of(bit));
}

}  // namespace
}  // namespace workbench::tx
