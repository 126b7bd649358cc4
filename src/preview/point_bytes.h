// Points as binary files store them: three floats each, one after the other, the lowest byte first.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "src/preview/mesh.h"

namespace file_explorer::preview {

static_assert(sizeof(Point) == 12);

// bytes: 12 for each of `count` points.
inline void ReadPoints(const char* bytes, std::size_t count, Point* points) {
  std::memcpy(points, bytes, count * sizeof(Point));
  if constexpr (std::endian::native == std::endian::big) {
    for (std::size_t i = 0; i < count; ++i) {
      for (float* const value : {&points[i].x, &points[i].y, &points[i].z}) {
        *value = std::bit_cast<float>(__builtin_bswap32(std::bit_cast<std::uint32_t>(*value)));
      }
    }
  }
}

}  // namespace file_explorer::preview
