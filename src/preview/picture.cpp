#include "src/preview/picture.h"

#include <algorithm>
#include <cstddef>

namespace file_explorer::preview {
namespace {

std::uint32_t Over(std::uint32_t pixel, std::uint32_t background) {
  const std::uint32_t through = 255 - (pixel >> 24);
  std::uint32_t result = 0xFF000000u;
  for (int shift = 0; shift <= 16; shift += 8) {
    const std::uint32_t behind = (((background >> shift) & 0xFF) * through + 127) / 255;
    result |= std::min<std::uint32_t>(255, ((pixel >> shift) & 0xFF) + behind) << shift;
  }
  return result;
}

}  // namespace

Picture Flatten(const Picture& picture, std::uint32_t background) {
  Picture flat = picture;
  for (std::uint32_t& pixel : flat.pixels) pixel = Over(pixel, background);
  return flat;
}

Picture CentreInSquare(const Picture& picture, int size) {
  Picture square = {size, size, {}};
  square.pixels.resize(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
  const int left = (size - picture.width) / 2;
  const int top = (size - picture.height) / 2;
  for (int y = 0; y < picture.height; ++y) {
    const auto row = picture.pixels.begin() + static_cast<std::ptrdiff_t>(y) * picture.width;
    std::copy(row, row + picture.width,
              square.pixels.begin() + static_cast<std::ptrdiff_t>(top + y) * size + left);
  }
  return square;
}

}  // namespace file_explorer::preview
