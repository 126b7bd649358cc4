#include <gtest/gtest.h>

#include <limits>

#include "src/filter/file_category.h"

namespace file_explorer {
namespace {

CategoryColor Parsed(const char* text) {
  CategoryColor color;
  ParseCategoryColor(text, &color);
  return color;
}

TEST(ColorReference, PutsRedIntoTheLowByte) {
  EXPECT_EQ(ColorReference(Parsed("1 0 0")), 0x0000FFU);
  EXPECT_EQ(ColorReference(Parsed("0 1 0")), 0x00FF00U);
  EXPECT_EQ(ColorReference(Parsed("0 0 1")), 0xFF0000U);
}

TEST(ColorReference, CutsInsteadOfRounding) {
  EXPECT_EQ(ColorReference(Parsed("0.5 0.5 0.5")), 0x7F7F7FU);
  EXPECT_EQ(ColorReference(Parsed("0.999 0 0")), 0xFEU);
  EXPECT_EQ(ColorReference(Parsed("0.0039 0 0")), 0U);
}

TEST(ColorReference, KeepsTheLowEightBitsOfAPartThatIsTooLarge) {
  EXPECT_EQ(ColorReference({2.0F, 0.0F, 0.0F}), 510U & 0xFFU);
  EXPECT_EQ(ColorReference({0.0F, 1.5F, 0.0F}), (382U & 0xFFU) << 8);
  EXPECT_EQ(ColorReference({-1.0F, 0.0F, 0.0F}), 1U);  // -255 ends in 0x01
}

TEST(ColorReference, StandsNumbersThatNoWholeNumberHolds) {
  const float infinity = std::numeric_limits<float>::infinity();
  EXPECT_EQ(ColorReference({infinity, -infinity, std::numeric_limits<float>::quiet_NaN()}), 0U);
  EXPECT_EQ(ColorReference({1e30F, -1e30F, 1.0F}), 0xFF0000U);
}

}  // namespace
}  // namespace file_explorer
