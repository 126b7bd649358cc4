#include "src/preview/cloud_renderer.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "src/preview/shading.h"

namespace file_explorer::preview {
namespace {

constexpr std::uint32_t kNothing = 0xFFFFFFFFu;
// Of the points of a surface about half lie on the side that is seen, on a part of the picture; discs of this
// share of the picture, divided by the root of their number, just touch each other then.
constexpr float kRadiusShare = 0.55f;
constexpr float kLargestShare = 0.05f;
constexpr float kSmallestRadius = 0.75f;  // samples
// What lies farthest from the eye has this share of the light: a cloud has no other shadows.
constexpr float kFarLight = 0.55f;

// Which point is the nearest at each sample.
class NearestPoints {
 public:
  NearestPoints(int samples, float radius)
      : samples_(samples),
        radius_(radius),
        nearness_(Count(samples), -std::numeric_limits<float>::max()),
        points_(Count(samples), kNothing) {}

  bool Add(const Point& place, std::uint32_t number, WorkBudget& budget) {
    const int top = Clipped(place.y - radius_);
    const int bottom = Clipped(place.y + radius_);
    const int left = Clipped(place.x - radius_);
    const int right = Clipped(place.x + radius_);
    if (!budget.Spend(1 + static_cast<std::uint64_t>(bottom - top + 1) *
                              static_cast<std::uint64_t>(right - left + 1) / 8)) {
      return false;
    }
    for (int y = top; y <= bottom; ++y) {
      for (int x = left; x <= right; ++x) {
        const float dx = static_cast<float>(x) + 0.5f - place.x;
        const float dy = static_cast<float>(y) + 0.5f - place.y;
        if (dx * dx + dy * dy <= radius_ * radius_) Take(Index(x, y), place.z, number);
      }
    }
    return true;
  }

  std::uint32_t At(int x, int y) const { return points_[Index(x, y)]; }

 private:
  static std::size_t Count(int samples) {
    return static_cast<std::size_t>(samples) * static_cast<std::size_t>(samples);
  }
  int Clipped(float place) const {
    return static_cast<int>(std::clamp(place, 0.0f, static_cast<float>(samples_ - 1)));
  }
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(samples_) + static_cast<std::size_t>(x);
  }
  void Take(std::size_t index, float nearness, std::uint32_t number) {
    if (nearness <= nearness_[index]) return;
    nearness_[index] = nearness;
    points_[index] = number;
  }

  int samples_;
  float radius_;
  std::vector<float> nearness_;
  std::vector<std::uint32_t> points_;
};

// The colours of the discs.
class Discs {
 public:
  Discs(const Mesh& mesh, const std::vector<Point>& places, float radius)
      : mesh_(mesh), places_(places), radius_(radius) {
    const auto [low, high] = std::minmax_element(places.begin(), places.end(),
                                                 [](const Point& a, const Point& b) { return a.z < b.z; });
    farthest_ = low->z;
    depth_ = std::max(high->z - low->z, 1e-6f);
  }

  Color At(std::uint32_t number, float x, float y) const {
    const Point& place = places_[number];
    const float dx = (x - place.x) / radius_;
    const float dy = (y - place.y) / radius_;
    const Point normal = {dx, -dy, std::sqrt(std::max(0.0f, 1 - dx * dx - dy * dy))};
    const float light = kFarLight + (1 - kFarLight) * (place.z - farthest_) / depth_;
    return Shade(mesh_.colors.empty() ? kWarmGrey : ColorFrom(mesh_.colors[number]), normal) * light;
  }

 private:
  const Mesh& mesh_;
  const std::vector<Point>& places_;
  float radius_;
  float farthest_ = 0;
  float depth_ = 1;
};

std::uint32_t PixelOf(const NearestPoints& nearest, const Discs& discs, int left, int top, int edge) {
  Color sum;
  int covered = 0;
  for (int y = top; y < top + edge; ++y) {
    for (int x = left; x < left + edge; ++x) {
      const std::uint32_t number = nearest.At(x, y);
      if (number == kNothing) continue;
      sum = sum + discs.At(number, static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f);
      ++covered;
    }
  }
  return PremultipliedPixel(sum, covered, edge * edge);
}

}  // namespace

std::optional<Picture> RenderCloud(const Mesh& mesh, const std::vector<Point>& places, int size, int edge,
                                   WorkBudget& budget) {
  if (places.empty()) return std::nullopt;
  const int samples = size * edge;
  const auto extent = static_cast<float>(samples);
  const float share = std::min(kLargestShare, kRadiusShare / std::sqrt(static_cast<float>(places.size())));
  const float radius = std::max(kSmallestRadius, share * extent);
  NearestPoints nearest(samples, radius);
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (!nearest.Add(places[i], static_cast<std::uint32_t>(i), budget)) return std::nullopt;
  }
  const Discs discs(mesh, places, radius);
  Picture picture = {size, size, {}};
  picture.pixels.reserve(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
  for (int y = 0; y < samples; y += edge) {
    if (!budget.Spend(static_cast<std::uint64_t>(samples) * static_cast<std::uint64_t>(edge)))
      return std::nullopt;
    for (int x = 0; x < samples; x += edge) picture.pixels.push_back(PixelOf(nearest, discs, x, y, edge));
  }
  return picture;
}

}  // namespace file_explorer::preview
