#include "src/preview/mesh.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "src/preview/polygon_cut.h"

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
// Fewer points show no shape.
constexpr std::size_t kSmallestCloud = 4;

constexpr float kNan = std::numeric_limits<float>::quiet_NaN();

using Coordinates = std::array<double, 3>;

Coordinates Exact(const Point& point) {
  return {double{point.x}, double{point.y}, double{point.z}};
}

bool Usable(double value) {
  return std::fabs(value) <= kLargest;
}  // no number compares false
bool Usable(const Coordinates& point) {
  return Usable(point[0]) && Usable(point[1]) && Usable(point[2]);
}
bool Usable(const Point& point) {
  constexpr float kMost = static_cast<float>(kLargest);
  return (std::fabs(point.x) <= kMost) & (std::fabs(point.y) <= kMost) & (std::fabs(point.z) <= kMost);
}

struct Box {
  Coordinates low = {kLargest, kLargest, kLargest};
  Coordinates high = {-kLargest, -kLargest, -kLargest};

  double Extent(std::size_t axis) const { return high[axis] - low[axis]; }
  double LongestExtent() const { return std::max({Extent(0), Extent(1), Extent(2)}); }
  void Take(const Coordinates& point) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      low[axis] = std::min(low[axis], point[axis]);
      high[axis] = std::max(high[axis], point[axis]);
    }
  }
  void Take(const Point& point) { Take(Exact(point)); }
};

// Of the points that a triangle uses: stray ones shall not push the surface aside, and neither shall a
// triangle with a point that is no number.
template <typename Coordinate>
Box BoundsOf(const std::vector<Coordinate>& points, const std::vector<Triangle>& triangles,
             bool hasUnusable) {
  Box box;
  for (const auto& [a, b, c] : triangles) {
    if (hasUnusable && !(Usable(points[a]) && Usable(points[b]) && Usable(points[c]))) continue;
    box.Take(points[a]);
    box.Take(points[b]);
    box.Take(points[c]);
  }
  return box;
}

template <typename Coordinate>
Box BoundsOfCloud(const std::vector<Coordinate>& points) {
  Box box;
  for (const Coordinate& point : points) {
    if (Usable(point)) box.Take(point);
  }
  return box;
}

// Brings points into the box of the mesh.
class Placement {
 public:
  Placement(const Box& box, UpAxis up) : scale_(2 / box.LongestExtent()) {
    for (std::size_t axis = 0; axis < 3; ++axis) middle_[axis] = box.low[axis] / 2 + box.high[axis] / 2;
    const bool lies = box.Extent(1) < kLyingShare * std::min(box.Extent(0), box.Extent(2));
    turns_ = up == UpAxis::kZ || (up == UpAxis::kGuessed && !lies);
  }

  // Points that no triangle uses may lie anywhere; one that is no number stays none.
  Point Of(const Coordinates& point) const {
    float moved[3];
    for (std::size_t axis = 0; axis < 3; ++axis) {
      moved[axis] = static_cast<float>(std::clamp((point[axis] - middle_[axis]) * scale_, -2.0, 2.0));
    }
    return turns_ ? Point{moved[0], moved[2], -moved[1]} : Point{moved[0], moved[1], moved[2]};
  }

 private:
  double scale_;
  Coordinates middle_ = {};
  bool turns_ = false;
};

// Points that are no numbers stay so until nothing refers to them any more.
std::vector<Point> Placed(std::vector<Point>& points, const Placement& placement, bool hasUnusable) {
  for (Point& point : points) {
    point = hasUnusable && !Usable(point) ? Point{kNan, kNan, kNan} : placement.Of(Exact(point));
  }
  return std::move(points);
}
std::vector<Point> Placed(std::vector<Coordinates>& points, const Placement& placement, bool hasUnusable) {
  std::vector<Point> placed;
  placed.reserve(points.size());
  for (const Coordinates& point : points) {
    placed.push_back(hasUnusable && !Usable(point) ? Point{kNan, kNan, kNan} : placement.Of(point));
  }
  points = {};
  return placed;
}

// False too where a corner is no number.
bool HasArea(const Point& a, const Point& b, const Point& c) {
  const double ux = double{b.x} - a.x, uy = double{b.y} - a.y, uz = double{b.z} - a.z;
  const double vx = double{c.x} - a.x, vy = double{c.y} - a.y, vz = double{c.z} - a.z;
  const double x = uy * vz - uz * vy, y = uz * vx - ux * vz, z = ux * vy - uy * vx;
  return x * x + y * y + z * z > 4 * kSmallestArea * kSmallestArea;
}

}  // namespace

bool MeshBuilder::TakeBytes(std::size_t count) {
  if (count > bytesLeft_) return false;
  bytesLeft_ -= count;
  return true;
}

// From here on points are kept as doubles.
void MeshBuilder::KeepExactly() {
  exact_.reserve(points_.size());
  for (const Point& point : points_) exact_.push_back(Exact(point));
  points_ = {};
}

bool MeshBuilder::AddPoint(double x, double y, double z) {
  if (!budget_.Spend() || !TakeBytes(sizeof(Coordinates))) return false;
  if (!points_.empty()) KeepExactly();
  exact_.push_back({x, y, z});
  hasUnusable_ = hasUnusable_ || !Usable(exact_.back());
  return true;
}

bool MeshBuilder::AddPoint(const Point& point) {
  if (!exact_.empty()) return AddPoint(double{point.x}, double{point.y}, double{point.z});
  if (!budget_.Spend() || !TakeBytes(sizeof(Point))) return false;
  points_.push_back(point);
  hasUnusable_ = hasUnusable_ || !Usable(point);
  return true;
}

void MeshBuilder::ColorLastPoint(std::uint32_t color) {
  if (pointCount() == 0) return;
  colors_.resize(pointCount(), kUncolored);
  colors_.back() = color & 0xFFFFFF;
}

bool MeshBuilder::TakeTriangle(const Triangle& triangle) {
  if (triangles_.size() >= mostTriangles_ || !TakeBytes(sizeof(Triangle))) return false;
  triangles_.push_back(triangle);
  return true;
}

bool MeshBuilder::AddCorner(std::uint64_t point) {
  if (point >= kNoColor || !budget_.Spend()) return false;
  const auto corner = static_cast<std::uint32_t>(point);
  hasFaces_ = true;
  largestCorner_ = std::max(largestCorner_, corner);
  if (corners_ == 0) {
    first_ = corner;
  } else if (corners_ >= 2) {
    if (!TakeTriangle({first_, previous_, corner})) return false;
    if (corners_ >= 3 && !TakePolygon()) return false;
  }
  previous_ = corner;
  ++corners_;
  return true;
}

// The face has more than three corners: it may be concave.
bool MeshBuilder::TakePolygon() {
  if (corners_ > 3) {
    ++polygons_.back().triangles;
    return true;
  }
  if (!TakeBytes(sizeof(Polygon))) return false;
  polygons_.push_back({static_cast<std::uint32_t>(faceStart_), 2});
  return true;
}

bool MeshBuilder::AddTriangle(std::uint64_t a, std::uint64_t b, std::uint64_t c) {
  BeginFace();
  if (std::max({a, b, c}) >= kNoColor || !budget_.Spend(2)) return false;
  const Triangle triangle = {static_cast<std::uint32_t>(a), static_cast<std::uint32_t>(b),
                             static_cast<std::uint32_t>(c)};
  hasFaces_ = true;
  largestCorner_ = std::max({largestCorner_, triangle[0], triangle[1], triangle[2]});
  return TakeTriangle(triangle);
}

bool MeshBuilder::ColorFace(std::uint32_t color) {
  if (color == kNoColor && triangleColors_.empty()) return true;
  const std::size_t missing = triangles_.size() - std::min(triangles_.size(), triangleColors_.size());
  if (!TakeBytes(missing * sizeof(std::uint32_t))) return false;
  triangleColors_.resize(faceStart_, kNoColor);
  triangleColors_.resize(triangles_.size(), color);
  return true;
}

bool MeshBuilder::AddTriangles(const Point* corners, std::size_t count) {
  if (!exact_.empty() || pointCount() + 3 * count >= kNoColor || !budget_.Spend(count)) return false;
  if (triangles_.size() + count > mostTriangles_ ||
      !TakeBytes(count * (sizeof(Triangle) + 3 * sizeof(Point)))) {
    return false;
  }
  auto corner = static_cast<std::uint32_t>(points_.size());
  points_.insert(points_.end(), corners, corners + 3 * count);
  bool usable = true;
  for (std::size_t i = 0; i < 3 * count; ++i) usable = usable & Usable(corners[i]);
  hasUnusable_ = hasUnusable_ || !usable;
  for (std::size_t i = 0; i < count; ++i, corner += 3) triangles_.push_back({corner, corner + 1, corner + 2});
  largestCorner_ = std::max(largestCorner_, corner - 1);
  hasFaces_ = true;
  return true;
}

void MeshBuilder::Expect(std::size_t points, std::size_t triangles, bool exactly) {
  if (exactly) {
    exact_.reserve(std::min(points, bytesLeft_ / sizeof(Coordinates)));
  } else {
    points_.reserve(std::min(points, bytesLeft_ / sizeof(Point)));
  }
  triangles_.reserve(std::min({triangles, mostTriangles_, bytesLeft_ / sizeof(Triangle)}));
}

// A fan around the first corner covers a face when all its triangles face the same way; others are cut anew.
bool MeshBuilder::CutConcaveFaces() {
  std::vector<std::uint32_t> corners;
  for (const Polygon& polygon : polygons_) {
    if (!budget_.Spend(polygon.triangles)) return false;
    Triangle* const fan = &triangles_[polygon.firstTriangle];
    if (FanCovers(mesh_.points, fan, polygon.triangles)) continue;
    corners.assign({fan[0][0], fan[0][1]});
    for (std::uint32_t i = 0; i < polygon.triangles; ++i) corners.push_back(fan[i][2]);
    if (!CutPolygon(mesh_.points, corners, fan, budget_)) return false;
  }
  return true;
}

void MeshBuilder::DropFlat() {
  const std::vector<Point>& points = mesh_.points;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < triangles_.size(); ++i) {
    const Triangle triangle = triangles_[i];
    if (!HasArea(points[triangle[0]], points[triangle[1]], points[triangle[2]])) continue;
    if (!triangleColors_.empty()) triangleColors_[kept] = triangleColors_[i];
    triangles_[kept++] = triangle;
  }
  triangles_.resize(kept);
  if (!triangleColors_.empty()) triangleColors_.resize(kept);
}

// Nothing is drawn at points that are no numbers: of a cloud they are left out, under a surface they only
// keep the numbers of the others.
void MeshBuilder::DropUnusable(bool isCloud) {
  if (!hasUnusable_) return;
  std::size_t kept = 0;
  for (std::size_t i = 0; i < mesh_.points.size(); ++i) {
    const bool usable = Usable(mesh_.points[i]);
    if (!usable && isCloud) continue;
    if (!mesh_.colors.empty()) mesh_.colors[kept] = mesh_.colors[i];
    mesh_.points[kept++] = usable ? mesh_.points[i] : Point();
  }
  mesh_.points.resize(kept);
  if (!mesh_.colors.empty()) mesh_.colors.resize(kept);
}

template <typename Coordinate>
std::optional<Mesh> MeshBuilder::FinishFrom(std::vector<Coordinate>& points, UpAxis up,
                                            PointsAlone pointsAlone) {
  const bool isCloud = !hasFaces_ && pointsAlone == PointsAlone::kCloud && points.size() >= kSmallestCloud;
  if (triangles_.empty() ? !isCloud : largestCorner_ >= points.size()) return std::nullopt;
  if (!budget_.Spend(points.size() / 2 + triangles_.size())) return std::nullopt;
  const Box box = isCloud ? BoundsOfCloud(points) : BoundsOf(points, triangles_, hasUnusable_);
  if (!(box.LongestExtent() >= kSmallestExtent)) return std::nullopt;
  mesh_.points = Placed(points, Placement(box, up), hasUnusable_);
  if (!isCloud) {
    if (!CutConcaveFaces()) return std::nullopt;
    if (!triangleColors_.empty()) triangleColors_.resize(triangles_.size(), kNoColor);
    DropFlat();
    if (triangles_.empty()) return std::nullopt;
  }
  if (!colors_.empty()) colors_.resize(mesh_.points.size(), kUncolored);
  mesh_.colors = std::move(colors_);
  mesh_.triangles = std::move(triangles_);
  mesh_.triangleColors = std::move(triangleColors_);
  DropUnusable(isCloud);
  return std::move(mesh_);
}

std::optional<Mesh> MeshBuilder::Finish(UpAxis up, PointsAlone pointsAlone) {
  return exact_.empty() ? FinishFrom(points_, up, pointsAlone) : FinishFrom(exact_, up, pointsAlone);
}

}  // namespace file_explorer::preview
