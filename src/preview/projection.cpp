#include "src/preview/projection.h"

#include <algorithm>

namespace file_explorer::preview {
namespace {

constexpr float kFilledShare = 0.9f;
constexpr float kEyeDistance = 5.5f;  // from the middle; the surface reaches at most 1.73 from there

}  // namespace

std::vector<Point> Project(const Mesh& mesh, const Eye& eye, int samples) {
  std::vector<Point> points;
  points.reserve(mesh.points.size());
  for (const Point& point : mesh.points) {
    const Point seen = eye.Seen(point);
    const float near = 1 / (kEyeDistance - seen.z);
    points.push_back({seen.x * near, -seen.y * near, near});
  }
  Point low = {1e9f, 1e9f, 0};
  Point high = {-1e9f, -1e9f, 0};
  const auto take = [&](const Point& point) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y), 0};
    high = {std::max(high.x, point.x), std::max(high.y, point.y), 0};
  };
  for (const Triangle& triangle : mesh.triangles) {
    for (const std::uint32_t corner : triangle) take(points[corner]);
  }
  if (mesh.triangles.empty()) std::for_each(points.begin(), points.end(), take);
  const float extent = std::max(high.x - low.x, high.y - low.y);
  const float scale = extent > 0 ? kFilledShare * static_cast<float>(samples) / extent : 0;
  const float middle = static_cast<float>(samples) / 2;
  for (Point& point : points) {
    point.x = (point.x - (low.x + high.x) / 2) * scale + middle;
    point.y = (point.y - (low.y + high.y) / 2) * scale + middle;
  }
  return points;
}

}  // namespace file_explorer::preview
