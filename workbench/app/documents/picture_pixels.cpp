#include "workbench/app/documents/picture_pixels.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace workbench {
namespace {

constexpr std::uint32_t kBoardLight = 0xFFFFFF;
constexpr std::uint32_t kBoardDark = 0xD9D9D9;
constexpr double kCrispFrom = 2.0;  // from this zoom on the picture's own pixels are what one wants to see

unsigned Channel(std::uint32_t pixel, int shift) {
  return (pixel >> shift) & 0xFF;
}

std::uint32_t MeanOfFour(std::uint32_t a, std::uint32_t b, std::uint32_t c, std::uint32_t d) {
  std::uint32_t mean = 0;
  for (int shift = 0; shift < 32; shift += 8) {
    const unsigned sum = Channel(a, shift) + Channel(b, shift) + Channel(c, shift) + Channel(d, shift);
    mean |= ((sum + 2) / 4) << shift;
  }
  return mean;
}

// a for weight 0 up to b for weight 256.
std::uint32_t Mix(std::uint32_t a, std::uint32_t b, unsigned weight) {
  // Two channels at a time: each has a byte of room above it.
  const std::uint32_t even = (((a & 0xFF00FF) * (256 - weight) + (b & 0xFF00FF) * weight) >> 8) & 0xFF00FF;
  const std::uint32_t odd =
      (((a >> 8) & 0xFF00FF) * (256 - weight) + ((b >> 8) & 0xFF00FF) * weight) & 0xFF00FF00;
  return even | odd;
}

std::uint32_t Over(std::uint32_t premultiplied, std::uint32_t board) {
  const unsigned rest = 255 - (premultiplied >> 24);
  if (rest == 0) return premultiplied & 0xFFFFFF;
  std::uint32_t result = 0;
  for (int shift = 0; shift < 24; shift += 8) {
    const unsigned sum = Channel(premultiplied, shift) + (Channel(board, shift) * rest + 127) / 255;
    result |= std::min(sum, 255u) << shift;
  }
  return result;
}

// For one screen pixel of a row or column: the two pixels of the picture beside its middle, and the second's
// weight.
struct Sample {
  int first = 0;
  int second = 0;
  unsigned weight = 0;
};

std::vector<Sample> SamplesAlong(int from, int to, double place, double zoom, int length) {
  std::vector<Sample> samples;
  samples.reserve(static_cast<std::size_t>(std::max(0, to - from)));
  for (int at = from; at < to; ++at) {
    const double source = (at + 0.5 - place) / zoom;
    Sample sample;
    if (zoom >= kCrispFrom) {
      sample.first = std::clamp(static_cast<int>(std::floor(source)), 0, length - 1);
      sample.second = sample.first;
    } else {
      const double middle = source - 0.5;
      const double whole = std::floor(middle);
      sample.first = std::clamp(static_cast<int>(whole), 0, length - 1);
      sample.second = std::clamp(static_cast<int>(whole) + 1, 0, length - 1);
      sample.weight = static_cast<unsigned>((middle - whole) * 256);
    }
    samples.push_back(sample);
  }
  return samples;
}

// The screen pixels that a stretch covers, inside the view.
std::pair<int, int> Covered(double place, double length, int view) {
  const int from = std::clamp(static_cast<int>(std::lround(place)), 0, view);
  const int to = std::clamp(std::max(static_cast<int>(std::lround(place + length)), from + 1), 0, view);
  return {from, to};
}

}  // namespace

PixelGrid Halve(const PixelGrid& grid) {
  PixelGrid half;
  half.width = (grid.width + 1) / 2;
  half.height = (grid.height + 1) / 2;
  half.pixels.reserve(static_cast<std::size_t>(half.width) * static_cast<std::size_t>(half.height));
  for (int y = 0; y < half.height; ++y) {
    const int lower = std::min(2 * y + 1, grid.height - 1);
    for (int x = 0; x < half.width; ++x) {
      const int right = std::min(2 * x + 1, grid.width - 1);
      half.pixels.push_back(MeanOfFour(grid.At(2 * x, 2 * y), grid.At(right, 2 * y), grid.At(2 * x, lower),
                                       grid.At(right, lower)));
    }
  }
  return half;
}

PicturePyramid::PicturePyramid(PixelGrid picture) {
  levels_.push_back(std::move(picture));
  while (levels_.back().width > 64 || levels_.back().height > 64) {
    levels_.push_back(Halve(levels_.back()));
  }
}

const PixelGrid& PicturePyramid::LevelFor(double zoom, double* levelZoom) const {
  std::size_t level = 0;
  while (zoom <= 0.5 && level + 1 < levels_.size()) {
    zoom *= 2;
    ++level;
  }
  *levelZoom = zoom;
  return levels_[level];
}

std::vector<std::uint32_t> PicturePyramid::Render(const PictureLayout& layout, std::uint32_t background,
                                                  int square) const {
  const PixelSize view = layout.view();
  const auto stride = static_cast<std::size_t>(std::max(view.width, 0));
  std::vector<std::uint32_t> result(stride * static_cast<std::size_t>(std::max(view.height, 0)), background);
  if (result.empty()) return result;
  double zoom = 1;
  const PixelGrid& grid = LevelFor(layout.zoom(), &zoom);
  const auto [left, right] = Covered(layout.left(), layout.picture().width * layout.zoom(), view.width);
  const auto [top, bottom] = Covered(layout.top(), layout.picture().height * layout.zoom(), view.height);
  const std::vector<Sample> across = SamplesAlong(left, right, layout.left(), zoom, grid.width);
  const std::vector<Sample> down = SamplesAlong(top, bottom, layout.top(), zoom, grid.height);
  square = std::max(square, 1);
  for (int y = top; y < bottom; ++y) {
    const Sample& row = down[static_cast<std::size_t>(y - top)];
    std::uint32_t* target = &result[static_cast<std::size_t>(y) * stride + static_cast<std::size_t>(left)];
    for (int x = left; x < right; ++x) {
      const Sample& column = across[static_cast<std::size_t>(x - left)];
      std::uint32_t pixel = grid.At(column.first, row.first);
      if (zoom < kCrispFrom) {
        const std::uint32_t upper = Mix(pixel, grid.At(column.second, row.first), column.weight);
        const std::uint32_t lower =
            Mix(grid.At(column.first, row.second), grid.At(column.second, row.second), column.weight);
        pixel = Mix(upper, lower, row.weight);
      }
      const bool dark = ((x - left) / square + (y - top) / square) % 2 != 0;
      *target++ = Over(pixel, dark ? kBoardDark : kBoardLight);
    }
  }
  return result;
}

}  // namespace workbench
