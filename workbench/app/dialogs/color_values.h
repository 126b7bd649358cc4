// Colours as floats from 0.0 to 1.0 and as bytes.
#pragma once

#include <cstdint>

namespace workbench {

// The float times 255, truncated; values outside 0.0 to 1.0 (and no numbers) count as the nearer end (0).
std::uint8_t ColorByte(float value);

// A float that ColorByte turns back into the byte.
float ColorValue(std::uint8_t byte);

}  // namespace workbench
