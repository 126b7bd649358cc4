#include "src/preview/renderer.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include "src/preview/cloud_renderer.h"
#include "src/preview/corner_normals.h"
#include "src/preview/projection.h"
#include "src/preview/shading.h"
#include "src/preview/vector_math.h"

namespace file_explorer::preview {
namespace {

constexpr std::uint32_t kNothing = 0xFFFFFFFFu;

// Where a sample lies in a triangle: the shares of its corners.
struct Shares {
  float a = 0;
  float b = 0;
  float c = 0;
};

class Corners {
 public:
  Corners(const std::vector<Point>& points, const Triangle& triangle)
      : a_(points[triangle[0]]), b_(points[triangle[1]]), c_(points[triangle[2]]) {
    area_ = (b_.x - a_.x) * (c_.y - a_.y) - (b_.y - a_.y) * (c_.x - a_.x);
  }

  bool IsSeenEdgeOn() const { return std::fabs(area_) < 1e-9f; }
  Shares At(float x, float y) const {
    const float b = ((x - a_.x) * (c_.y - a_.y) - (y - a_.y) * (c_.x - a_.x)) / area_;
    const float c = ((b_.x - a_.x) * (y - a_.y) - (b_.y - a_.y) * (x - a_.x)) / area_;
    return {1 - b - c, b, c};
  }
  float Nearness(const Shares& at) const { return at.a * a_.z + at.b * b_.z + at.c * c_.z; }

  // A run of samples, clipped to the picture; empty when first > last.
  struct Span {
    int first = 0;
    int last = -1;
  };
  Span Rows(int samples) const {
    return Middles(std::min({a_.y, b_.y, c_.y}), std::max({a_.y, b_.y, c_.y}), samples);
  }
  // Of the row whose middle is at y: what the edges cut out of it. Long thin triangles have short spans.
  Span Columns(float y, int samples) const {
    float low = std::numeric_limits<float>::max();
    float high = -low;
    const auto meet = [&](const Point& from, const Point& to) {
      if ((from.y > y) == (to.y > y)) return;
      const float x = from.x + (to.x - from.x) * ((y - from.y) / (to.y - from.y));
      low = std::min(low, x);
      high = std::max(high, x);
    };
    meet(a_, b_);
    meet(b_, c_);
    meet(c_, a_);
    return low > high ? Span() : Middles(low, high, samples);
  }

 private:
  // The samples whose middles lie between two places, and one to each side against rounding.
  static Span Middles(float low, float high, int samples) {
    const auto clipped = [samples](float place) {
      return std::clamp(place, -1.0f, static_cast<float>(samples));
    };
    return {std::max(0, static_cast<int>(std::floor(clipped(low - 0.5f)))),
            std::min(samples - 1, static_cast<int>(std::ceil(clipped(high - 0.5f))))};
  }

  Point a_;
  Point b_;
  Point c_;
  float area_ = 0;
};

// Which triangle is the nearest at each sample.
class NearestTriangles {
 public:
  explicit NearestTriangles(int samples)
      : samples_(samples),
        nearness_(Count(samples), -std::numeric_limits<float>::max()),
        triangles_(Count(samples), kNothing) {}

  bool Add(const Corners& corners, std::uint32_t number, WorkBudget& budget) {
    if (!budget.Spend()) return false;
    if (corners.IsSeenEdgeOn()) return true;
    const Corners::Span rows = corners.Rows(samples_);
    for (int y = rows.first; y <= rows.last; ++y) {
      const float middle = static_cast<float>(y) + 0.5f;
      const Corners::Span columns = corners.Columns(middle, samples_);
      const int width = columns.last - columns.first;
      if (!budget.Spend(static_cast<std::uint64_t>(std::max(0, width)) / 4 + 1)) return false;
      for (int x = columns.first; x <= columns.last; ++x) {
        Take(corners, corners.At(static_cast<float>(x) + 0.5f, middle), Index(x, y), number);
      }
    }
    return true;
  }

  std::uint32_t At(int x, int y) const { return triangles_[Index(x, y)]; }
  int samples() const { return samples_; }

 private:
  static std::size_t Count(int samples) {
    return static_cast<std::size_t>(samples) * static_cast<std::size_t>(samples);
  }
  void Take(const Corners& corners, const Shares& at, std::size_t index, std::uint32_t number) {
    if (at.a < 0 || at.b < 0 || at.c < 0) return;
    const float nearness = corners.Nearness(at);
    if (nearness <= nearness_[index]) return;
    nearness_[index] = nearness;
    triangles_[index] = number;
  }
  std::size_t Index(int x, int y) const {
    return static_cast<std::size_t>(y) * static_cast<std::size_t>(samples_) + static_cast<std::size_t>(x);
  }

  int samples_;
  std::vector<float> nearness_;
  std::vector<std::uint32_t> triangles_;
};

// The colour of what is seen at a sample.
class Surface {
 public:
  Surface(const Mesh& mesh, const Eye& eye, const std::vector<Point>& points, std::vector<Point> normals)
      : mesh_(mesh), eye_(eye), points_(points), normals_(std::move(normals)) {}

  Color At(std::uint32_t number, float x, float y) const {
    const Triangle& triangle = mesh_.triangles[number];
    const Shares at = Corners(points_, triangle).At(x, y);
    const Point* const normals = &normals_[std::size_t{number} * 3];
    const Point normal = Unit(eye_.Seen(normals[0] * at.a + normals[1] * at.b + normals[2] * at.c));
    return Shade(Material(number, at), normal);
  }

 private:
  Color Material(std::uint32_t number, const Shares& at) const {
    if (!mesh_.triangleColors.empty() && mesh_.triangleColors[number] != kNoColor) {
      return ColorFrom(mesh_.triangleColors[number]);
    }
    if (mesh_.colors.empty()) return kWarmGrey;
    const Triangle& triangle = mesh_.triangles[number];
    const Color a = ColorFrom(mesh_.colors[triangle[0]]);
    const Color b = ColorFrom(mesh_.colors[triangle[1]]);
    const Color c = ColorFrom(mesh_.colors[triangle[2]]);
    return a * at.a + b * at.b + c * at.c;
  }

  const Mesh& mesh_;
  const Eye& eye_;
  const std::vector<Point>& points_;
  std::vector<Point> normals_;
};

// The pixel whose upper left sample is given: the mean of its samples.
std::uint32_t PixelOf(const NearestTriangles& nearest, const Surface& surface, int left, int top, int edge) {
  Color sum;
  int covered = 0;
  for (int y = top; y < top + edge; ++y) {
    for (int x = left; x < left + edge; ++x) {
      const std::uint32_t number = nearest.At(x, y);
      if (number == kNothing) continue;
      sum = sum + surface.At(number, static_cast<float>(x) + 0.5f, static_cast<float>(y) + 0.5f);
      ++covered;
    }
  }
  return PremultipliedPixel(sum, covered, edge * edge);
}

}  // namespace

std::optional<Picture> RenderMesh(const Mesh& mesh, int size, WorkBudget& budget) {
  if (size < kSmallestRendering || size > kLargestRendering) return std::nullopt;
  const int edge = size <= 96 ? 4 : 3;  // samples along a pixel
  const int samples = size * edge;
  if (!budget.Spend(mesh.points.size() + mesh.triangles.size())) return std::nullopt;

  const Eye eye = Eye::ThreeQuarter();
  const std::vector<Point> points = Project(mesh, eye, samples);
  if (mesh.triangles.empty()) return RenderCloud(mesh, points, size, edge, budget);
  NearestTriangles nearest(samples);
  for (std::size_t i = 0; i < mesh.triangles.size(); ++i) {
    if (!nearest.Add(Corners(points, mesh.triangles[i]), static_cast<std::uint32_t>(i), budget)) {
      return std::nullopt;
    }
  }
  std::vector<Point> normals = CornerNormals(mesh, budget);
  if (normals.empty()) return std::nullopt;
  const Surface surface(mesh, eye, points, std::move(normals));
  Picture picture = {size, size, {}};
  picture.pixels.reserve(static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
  bool isEmpty = true;
  for (int y = 0; y < samples; y += edge) {
    if (!budget.Spend(static_cast<std::uint64_t>(samples) * static_cast<std::uint64_t>(edge)))
      return std::nullopt;
    for (int x = 0; x < samples; x += edge) {
      picture.pixels.push_back(PixelOf(nearest, surface, x, y, edge));
      isEmpty = isEmpty && picture.pixels.back() == 0;
    }
  }
  return isEmpty ? std::nullopt : std::optional(std::move(picture));
}

}  // namespace file_explorer::preview
