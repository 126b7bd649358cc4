#include "src/preview/mesh.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace file_explorer::preview {
namespace {

// Beyond this no model is measured in anything; it keeps all arithmetic far from overflow.
constexpr double kLargest = 1e18;
constexpr double kSmallestExtent = 1e-18;
constexpr std::uint32_t kUncolored = 0xC8C2B8;
// Of a triangle in the normalised surface; far below what shows in a picture.
constexpr double kSmallestArea = 1e-13;
// How flat a surface has to be to be taken for one that lies on the ground.
constexpr double kLyingShare = 0.35;

using Coordinates = std::array<double, 3>;

bool Usable(double value) {
  return std::isfinite(value) && std::fabs(value) <= kLargest;
}

bool Usable(const Coordinates& point) {
  return Usable(point[0]) && Usable(point[1]) && Usable(point[2]);
}

double TwiceArea(const Point& a, const Point& b, const Point& c) {
  const double ux = double{b.x} - a.x, uy = double{b.y} - a.y, uz = double{b.z} - a.z;
  const double vx = double{c.x} - a.x, vy = double{c.y} - a.y, vz = double{c.z} - a.z;
  return std::hypot(uy * vz - uz * vy, uz * vx - ux * vz, ux * vy - uy * vx);
}

}  // namespace

struct MeshBuilder::Box {
  Coordinates low = {kLargest, kLargest, kLargest};
  Coordinates high = {-kLargest, -kLargest, -kLargest};

  double Extent(std::size_t axis) const { return high[axis] - low[axis]; }
  double LongestExtent() const { return std::max({Extent(0), Extent(1), Extent(2)}); }
};

bool MeshBuilder::AddPoint(double x, double y, double z) {
  if (points_.size() >= limits_.points || !budget_.Spend()) return false;
  points_.push_back({x, y, z});
  return true;
}

void MeshBuilder::ColorLastPoint(std::uint32_t color) {
  if (points_.empty()) return;
  colors_.resize(points_.size(), kUncolored);
  colors_.back() = color & 0xFFFFFF;
}

bool MeshBuilder::AddCorner(std::uint64_t point) {
  if (point >= limits_.points || !budget_.Spend()) return false;
  const auto corner = static_cast<std::uint32_t>(point);
  if (corners_ == 0) {
    first_ = corner;
  } else if (corners_ >= 2) {
    if (triangles_.size() >= limits_.triangles) return false;
    triangles_.push_back({first_, previous_, corner});
  }
  previous_ = corner;
  ++corners_;
  return true;
}

// Leaves out triangles at points that are no numbers. False when an index leads nowhere.
bool MeshBuilder::DropUnusable() {
  std::size_t kept = 0;
  for (const Triangle& triangle : triangles_) {
    if (!budget_.Spend()) return false;
    bool usable = true;
    for (const std::uint32_t corner : triangle) {
      if (corner >= points_.size()) return false;
      usable = usable && Usable(points_[corner]);
    }
    if (usable) triangles_[kept++] = triangle;
  }
  triangles_.resize(kept);
  return kept != 0;
}

// Of the points that a triangle uses: stray ones shall not push the surface aside.
MeshBuilder::Box MeshBuilder::Bounds() const {
  Box box;
  for (const Triangle& triangle : triangles_) {
    for (const std::uint32_t corner : triangle) {
      for (std::size_t axis = 0; axis < 3; ++axis) {
        box.low[axis] = std::min(box.low[axis], points_[corner][axis]);
        box.high[axis] = std::max(box.high[axis], points_[corner][axis]);
      }
    }
  }
  return box;
}

void MeshBuilder::Normalise(UpAxis up) {
  const Box box = Bounds();
  const double scale = 2 / box.LongestExtent();
  const bool lies = box.Extent(1) < kLyingShare * std::min(box.Extent(0), box.Extent(2));
  const bool turn = up == UpAxis::kZ || (up == UpAxis::kGuessed && !lies);
  mesh_.points.reserve(points_.size());
  for (const Coordinates& point : points_) {
    Point normal;
    if (Usable(point)) {
      std::array<float, 3> moved = {};
      for (std::size_t axis = 0; axis < 3; ++axis) {
        const double middle = box.low[axis] / 2 + box.high[axis] / 2;
        // Points that no triangle uses may lie anywhere.
        moved[axis] = static_cast<float>(std::clamp((point[axis] - middle) * scale, -2.0, 2.0));
      }
      normal = turn ? Point{moved[0], moved[2], -moved[1]} : Point{moved[0], moved[1], moved[2]};
    }
    mesh_.points.push_back(normal);
  }
}

bool MeshBuilder::DropFlat() {
  const std::vector<Point>& points = mesh_.points;
  for (const Triangle& triangle : triangles_) {
    if (!budget_.Spend(2)) return false;
    if (TwiceArea(points[triangle[0]], points[triangle[1]], points[triangle[2]]) > 2 * kSmallestArea) {
      mesh_.triangles.push_back(triangle);
    }
  }
  return !mesh_.triangles.empty();
}

std::optional<Mesh> MeshBuilder::Finish(UpAxis up) {
  if (!DropUnusable() || Bounds().LongestExtent() < kSmallestExtent) return std::nullopt;
  if (!budget_.Spend(points_.size())) return std::nullopt;
  Normalise(up);
  points_ = {};
  if (!DropFlat()) return std::nullopt;
  triangles_ = {};
  if (!colors_.empty()) colors_.resize(mesh_.points.size(), kUncolored);
  mesh_.colors = std::move(colors_);
  return std::move(mesh_);
}

}  // namespace file_explorer::preview
