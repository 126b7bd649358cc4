#include "workbench/app/dialogs/color_values.h"

#include <cmath>

namespace workbench {

std::uint8_t ColorByte(float value) {
  if (!(value > 0.0f)) return 0;
  if (value >= 1.0f) return 255;
  return static_cast<std::uint8_t>(static_cast<double>(value) * 255.0);
}

float ColorValue(std::uint8_t byte) {
  const float value = static_cast<float>(byte) / 255.0f;
  // The nearest float may lie a trifle below the quotient, and truncating would lose a step of the colour.
  return ColorByte(value) == byte ? value : std::nextafter(value, 2.0f);
}

}  // namespace workbench
