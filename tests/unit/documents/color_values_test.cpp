#include "workbench/app/dialogs/color_values.h"

#include <gtest/gtest.h>

#include <limits>

namespace workbench {
namespace {

TEST(ColorByte, TruncatesAndDoesNotRound) {
  EXPECT_EQ(ColorByte(0.5f), 127);
  EXPECT_EQ(ColorByte(1.0f), 255);
  EXPECT_EQ(ColorByte(0.0f), 0);
  EXPECT_EQ(ColorByte(0.999f), 254);
}

TEST(ColorByte, KeepsValuesOutsideTheRangeAtItsEnds) {
  EXPECT_EQ(ColorByte(-0.1f), 0);
  EXPECT_EQ(ColorByte(1.5f), 255);
  EXPECT_EQ(ColorByte(std::numeric_limits<float>::infinity()), 255);
  EXPECT_EQ(ColorByte(std::numeric_limits<float>::quiet_NaN()), 0);
}

TEST(ColorValue, ComesBackAsTheSameByte) {
  for (int byte = 0; byte <= 255; ++byte) {
    const float value = ColorValue(static_cast<std::uint8_t>(byte));
    EXPECT_EQ(ColorByte(value), byte);
    EXPECT_EQ(static_cast<int>(value * 255.0f), byte) << "in single precision too";
    EXPECT_LE(value, 1.0f);
  }
}

}  // namespace
}  // namespace workbench
