#include "src/preview/corner_normals.h"

#include <bit>
#include <cstddef>
#include <cstdint>

#include "src/preview/vector_math.h"

namespace file_explorer::preview {
namespace {

// Beyond this a triangle is about a pixel, and rounding would show nothing but cost most.
constexpr std::size_t kMostRounded = 200'000;
// Corners at one place; where more meet, each keeps its own direction. Every pair of them is looked at.
constexpr std::size_t kMostMeeting = 160;
constexpr float kBluntCosine = 0.72f;  // of 44 degrees
constexpr std::uint32_t kNone = 0xFFFFFFFFu;

// Numbers of places: points that lie at the same spot have the same number.
class Places {
 public:
  explicit Places(const Mesh& mesh) : mesh_(mesh), slots_(std::bit_ceil(mesh.points.size() * 2 + 2), kNone) {}

  // The first point that lies where this one lies; kNone when the budget is used up.
  std::uint32_t Of(std::uint32_t point, WorkBudget& budget) {
    std::size_t slot = Hash(mesh_.points[point]) & (slots_.size() - 1);
    while (slots_[slot] != kNone) {
      if (Same(mesh_.points[slots_[slot]], mesh_.points[point])) return slots_[slot];
      slot = (slot + 1) & (slots_.size() - 1);
      if (!budget.Spend()) return kNone;
    }
    slots_[slot] = point;
    return point;
  }

 private:
  static bool Same(const Point& a, const Point& b) { return a.x == b.x && a.y == b.y && a.z == b.z; }
  static std::size_t Hash(const Point& point) {
    std::uint64_t hash = 0;
    for (const float value : {point.x, point.y, point.z}) {
      hash ^= std::bit_cast<std::uint32_t>(value + 0.0f);  // both zeros are one
      hash *= 0x9E3779B97F4A7C15u;
      hash ^= hash >> 29;
    }
    return static_cast<std::size_t>(hash);
  }

  const Mesh& mesh_;
  std::vector<std::uint32_t> slots_;
};

// For each place the corners that lie there; corners count through all triangles.
struct Meetings {
  std::vector<std::uint32_t> first;  // by place, one more at the end
  std::vector<std::uint32_t> corners;
  std::vector<std::uint32_t> placeOf;  // by corner
};

bool FindMeetings(const Mesh& mesh, WorkBudget& budget, Meetings* meetings) {
  Places places(mesh);
  meetings->first.assign(mesh.points.size() + 1, 0);
  meetings->placeOf.reserve(mesh.triangles.size() * 3);
  for (const Triangle& triangle : mesh.triangles) {
    for (const std::uint32_t point : triangle) {
      const std::uint32_t place = budget.Spend() ? places.Of(point, budget) : kNone;
      if (place == kNone) return false;
      meetings->placeOf.push_back(place);
      ++meetings->first[place + 1];
    }
  }
  for (std::size_t i = 1; i < meetings->first.size(); ++i) meetings->first[i] += meetings->first[i - 1];
  std::vector<std::uint32_t> next = meetings->first;
  meetings->corners.resize(meetings->placeOf.size());
  for (std::size_t corner = 0; corner < meetings->placeOf.size(); ++corner) {
    meetings->corners[next[meetings->placeOf[corner]]++] = static_cast<std::uint32_t>(corner);
  }
  return budget.Spend(meetings->placeOf.size());
}

// As long as twice the triangle's area.
std::vector<Point> FaceVectors(const Mesh& mesh) {
  std::vector<Point> vectors;
  vectors.reserve(mesh.triangles.size());
  for (const Triangle& triangle : mesh.triangles) {
    const Point& start = mesh.points[triangle[0]];
    vectors.push_back(Cross(mesh.points[triangle[1]] - start, mesh.points[triangle[2]] - start));
  }
  return vectors;
}

}  // namespace

std::vector<Point> CornerNormals(const Mesh& mesh, WorkBudget& budget) {
  if (!budget.Spend(mesh.triangles.size())) return {};
  const std::vector<Point> vectors = FaceVectors(mesh);
  std::vector<Point> units;
  units.reserve(vectors.size());
  for (const Point& vector : vectors) units.push_back(Unit(vector));

  std::vector<Point> normals(mesh.triangles.size() * 3);
  for (std::size_t corner = 0; corner < normals.size(); ++corner) normals[corner] = units[corner / 3];
  if (mesh.triangles.size() > kMostRounded) return normals;

  Meetings meetings;
  if (!FindMeetings(mesh, budget, &meetings)) return {};
  for (std::size_t corner = 0; corner < normals.size(); ++corner) {
    const std::uint32_t place = meetings.placeOf[corner];
    const std::uint32_t begin = meetings.first[place];
    const std::uint32_t end = meetings.first[place + 1];
    const bool tooMany = end - begin > kMostMeeting;
    if (!budget.Spend(tooMany ? 1 : 1 + (end - begin) / 4)) return {};
    if (tooMany) continue;
    Point sum;
    for (std::uint32_t i = begin; i < end; ++i) {
      const std::uint32_t other = meetings.corners[i] / 3;
      if (Dot(units[other], units[corner / 3]) > kBluntCosine) sum = sum + vectors[other];
    }
    if (Dot(sum, sum) > 0) normals[corner] = Unit(sum);
  }
  return normals;
}

}  // namespace file_explorer::preview
