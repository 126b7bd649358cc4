// A decoded picture and its drawing at any zoom.
#pragma once

#include <cstdint>
#include <vector>

#include "workbench/app/documents/picture_layout.h"

namespace workbench {

// Largest picture that is decoded, in pixels (4 bytes each, a third more for the smaller copies).
inline constexpr std::uint64_t kPicturePixelLimit = 64ull * 1024 * 1024;

// Rows from the top, no gaps; 0xAARRGGBB with the colours multiplied by alpha.
struct PixelGrid {
  int width = 0;
  int height = 0;
  std::vector<std::uint32_t> pixels;

  std::uint32_t At(int x, int y) const {
    return pixels[static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                  static_cast<std::size_t>(x)];
  }
};

// Half the width and height, rounded up; each pixel the mean of the four it stands for.
PixelGrid Halve(const PixelGrid& grid);

// A picture with copies of half the size, a quarter and so on, so that drawing it small is quick and smooth.
class PicturePyramid {
 public:
  // The grid must have a pixel at least.
  explicit PicturePyramid(PixelGrid picture);

  PixelSize size() const { return {levels_[0].width, levels_[0].height}; }

  // Draws what the layout shows, over a checkerboard where the picture is transparent. Gives view width times
  // view height pixels, rows from the top, 0x00RRGGBB; `background` fills the rest; squares of the board are
  // `square` wide.
  std::vector<std::uint32_t> Render(const PictureLayout& layout, std::uint32_t background, int square) const;

 private:
  const PixelGrid& LevelFor(double zoom, double* levelZoom) const;

  std::vector<PixelGrid> levels_;
};

}  // namespace workbench
