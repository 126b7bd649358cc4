// Numbers in archives: the low byte first, at any place. The bytes must be there.
#pragma once

#include <cstdint>
#include <span>

namespace controls {

inline uint16_t Read16(std::span<const uint8_t> bytes, size_t at) {
  return static_cast<uint16_t>(bytes[at] | (bytes[at + 1] << 8));
}

inline uint32_t Read32(std::span<const uint8_t> bytes, size_t at) {
  return Read16(bytes, at) | (static_cast<uint32_t>(Read16(bytes, at + 2)) << 16);
}

inline uint64_t Read64(std::span<const uint8_t> bytes, size_t at) {
  return Read32(bytes, at) | (static_cast<uint64_t>(Read32(bytes, at + 4)) << 32);
}

}  // namespace controls
