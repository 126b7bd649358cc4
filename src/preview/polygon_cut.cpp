#include "src/preview/polygon_cut.h"

#include <array>
#include <cmath>

#include "src/preview/vector_math.h"

namespace file_explorer::preview {
namespace {

// Each ear is looked for among all corners; this bounds the square of them.
constexpr std::size_t kMostCorners = 512;

struct Flat {
  double x;
  double y;
  bool operator==(const Flat&) const = default;
};

// Twice the area of the triangle; positive when it turns to the left.
double Turn(const Flat& a, const Flat& b, const Flat& c) {
  return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

Point AreaOf(const std::vector<Point>& points, const Triangle& triangle) {
  const Point& start = points[triangle[0]];
  return Cross(points[triangle[1]] - start, points[triangle[2]] - start);
}

// The face seen along its direction, so that it turns to the left.
std::vector<Flat> Flattened(const std::vector<Point>& points, const std::vector<std::uint32_t>& corners) {
  Point area;
  for (std::size_t i = 2; i < corners.size(); ++i) {
    area = area + AreaOf(points, {corners[0], corners[i - 1], corners[i]});
  }
  const float x = std::fabs(area.x), y = std::fabs(area.y), z = std::fabs(area.z);
  std::vector<Flat> flat;
  flat.reserve(corners.size());
  for (const std::uint32_t corner : corners) {
    const Point& point = points[corner];
    Flat place = {double{point.x}, double{point.y}};
    float direction = area.z;
    if (x >= y && x >= z) {
      place = {double{point.y}, double{point.z}};
      direction = area.x;
    } else if (y >= z) {
      place = {double{point.z}, double{point.x}};
      direction = area.y;
    }
    if (direction < 0) place.x = -place.x;
    flat.push_back(place);
  }
  return flat;
}

// What is left of a face while its ears are cut off: a ring of the remaining corners.
class Ring {
 public:
  explicit Ring(std::vector<Flat> places)
      : places_(std::move(places)), next_(places_.size()), previous_(places_.size()) {
    for (std::size_t i = 0; i < places_.size(); ++i) {
      next_[i] = (i + 1) % places_.size();
      previous_[i] = (i + places_.size() - 1) % places_.size();
    }
  }

  std::size_t Next(std::size_t at) const { return next_[at]; }
  std::size_t Previous(std::size_t at) const { return previous_[at]; }
  void Remove(std::size_t at) {
    next_[previous_[at]] = next_[at];
    previous_[next_[at]] = previous_[at];
  }

  // A corner that points outward, with no other corner in the triangle that it makes with its neighbours.
  // Corners at the very place of one of these don't count: a hole is joined to the outline at doubled
  // corners.
  bool IsEar(std::size_t at, bool withoutArea, WorkBudget& budget) const {
    const Flat& a = places_[previous_[at]];
    const Flat& b = places_[at];
    const Flat& c = places_[next_[at]];
    const double turn = Turn(a, b, c);
    if (turn < 0 || (turn == 0 && !withoutArea)) return false;
    if (turn == 0) return true;
    for (std::size_t other = next_[next_[at]]; other != previous_[at]; other = next_[other]) {
      if (!budget.Spend()) return false;
      const Flat& place = places_[other];
      if (place == a || place == b || place == c) continue;
      if (Turn(a, b, place) >= 0 && Turn(b, c, place) >= 0 && Turn(c, a, place) >= 0) return false;
    }
    return true;
  }

 private:
  std::vector<Flat> places_;
  std::vector<std::size_t> next_;
  std::vector<std::size_t> previous_;
};

}  // namespace

bool FanCovers(const std::vector<Point>& points, const Triangle* fan, std::size_t triangles) {
  Point whole;
  for (std::size_t i = 0; i < triangles; ++i) whole = whole + AreaOf(points, fan[i]);
  for (std::size_t i = 0; i < triangles; ++i) {
    if (Dot(whole, AreaOf(points, fan[i])) < 0) return false;
  }
  return true;
}

bool CutPolygon(const std::vector<Point>& points, const std::vector<std::uint32_t>& corners,
                Triangle* triangles, WorkBudget& budget) {
  if (corners.size() > kMostCorners) return budget.Spend(corners.size());
  Ring ring(Flattened(points, corners));
  std::size_t left = corners.size();
  std::size_t at = 0;
  std::size_t tried = 0;
  while (left >= 3) {
    // Corners on a straight line have no area; they are cut once nothing better is left, and so is any corner
    // of a face that crosses itself.
    const bool isEar = ring.IsEar(at, tried >= left, budget) || tried >= 2 * left;
    if (!budget.Spend()) return false;
    if (!isEar) {
      at = ring.Next(at);
      ++tried;
      continue;
    }
    *triangles++ = {corners[ring.Previous(at)], corners[at], corners[ring.Next(at)]};
    ring.Remove(at);
    at = ring.Next(at);
    --left;
    tried = 0;
  }
  return true;
}

}  // namespace file_explorer::preview
