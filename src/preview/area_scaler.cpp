#include "src/preview/area_scaler.h"

#include <algorithm>
#include <cstddef>

namespace file_explorer::preview {
namespace {

constexpr std::size_t kChannels = 4;

void AddPixel(std::uint32_t pixel, float weight, float* sum) {
  for (std::size_t channel = 0; channel < kChannels; ++channel) {
    sum[channel] += static_cast<float>((pixel >> (8 * channel)) & 0xFF) * weight;
  }
}

}  // namespace

AreaScaler::Split AreaScaler::SplitOf(int position, int source, int result) {
  const std::int64_t start = std::int64_t{position} * result;
  const std::int64_t end = start + result;
  const std::int64_t first = start / source;
  const std::int64_t border = (first + 1) * source;
  const float share = 1 / static_cast<float>(source);
  return {static_cast<int>(first), static_cast<float>(std::min(end, border) - start) * share,
          static_cast<float>(std::max<std::int64_t>(0, end - border)) * share};
}

PictureSize FitInSquare(PictureSize picture, int edge) {
  const int longest = std::max(picture.width, picture.height);
  if (longest <= edge) return picture;
  const auto scaled = [&](int side) {
    return std::max(1, static_cast<int>((std::int64_t{side} * edge + longest / 2) / longest));
  };
  return {scaled(picture.width), scaled(picture.height)};
}

AreaScaler::AreaScaler(PictureSize source, PictureSize result)
    : source_(source),
      result_(result),
      row_(static_cast<std::size_t>(result.width) * kChannels),
      sums_(row_.size() * static_cast<std::size_t>(result.height)) {
  columns_.reserve(static_cast<std::size_t>(source.width));
  for (int x = 0; x < source.width; ++x) columns_.push_back(SplitOf(x, source.width, result.width));
}

void AreaScaler::AddRow(const std::uint32_t* row) {
  if (nextRow_ >= source_.height) return;
  Spread(row);
  const Split split = SplitOf(nextRow_++, source_.height, result_.height);
  AddTo(split.first, split.firstWeight);
  if (split.secondWeight > 0) AddTo(split.first + 1, split.secondWeight);
}

void AreaScaler::Spread(const std::uint32_t* row) {
  std::fill(row_.begin(), row_.end(), 0.0f);
  for (const Split& split : columns_) {
    float* const sum = &row_[static_cast<std::size_t>(split.first) * kChannels];
    AddPixel(*row, split.firstWeight, sum);
    if (split.secondWeight > 0) AddPixel(*row, split.secondWeight, sum + kChannels);
    ++row;
  }
}

void AreaScaler::AddTo(int resultRow, float weight) {
  float* const sums = &sums_[static_cast<std::size_t>(resultRow) * row_.size()];
  for (std::size_t i = 0; i < row_.size(); ++i) sums[i] += row_[i] * weight;
}

Picture AreaScaler::Finish() const {
  Picture picture = {result_.width, result_.height, {}};
  picture.pixels.reserve(sums_.size() / kChannels);
  for (std::size_t i = 0; i < sums_.size(); i += kChannels) {
    std::uint32_t pixel = 0;
    for (std::size_t channel = 0; channel < kChannels; ++channel) {
      const float value = std::clamp(sums_[i + channel] + 0.5f, 0.0f, 255.0f);
      pixel |= static_cast<std::uint32_t>(value) << (8 * channel);
    }
    picture.pixels.push_back(pixel);
  }
  return picture;
}

}  // namespace file_explorer::preview
