// A preview as pixels.
#pragma once

#include <cstdint>
#include <vector>

namespace file_explorer::preview {

struct Picture {
  int width = 0;   // pixels
  int height = 0;  // pixels
  // Rows from the top; each pixel is 0xAARRGGBB, the colours already multiplied by the opacity.
  std::vector<std::uint32_t> pixels;

  std::uint32_t At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

struct Preview {
  Picture picture;
  // By the shell: at most as large as it was asked for, and to be copied as it is. Else exactly that large, what
  // the file shows in the middle.
  bool isFromShell = false;
};

// The picture over a colour (0xRRGGBB), opaque.
Picture Flatten(const Picture& picture, std::uint32_t background);

// The picture in the middle of a transparent square; it must not be larger than the square.
Picture CentreInSquare(const Picture& picture, int size);

}  // namespace file_explorer::preview
