// A surface of triangles, or a cloud of points, as the model readers give it, and the one way to build it.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "src/preview/work_budget.h"

namespace file_explorer::preview {

struct Point {
  float x = 0;
  float y = 0;
  float z = 0;
};

using Triangle = std::array<std::uint32_t, 3>;  // indices of points

// Colours are 0xRRGGBB; this one says that there is none.
inline constexpr std::uint32_t kNoColor = 0xFFFFFFFF;

// Points are finite, y is up, and the box around the surface, or around a cloud's points, has its middle at
// the origin and 2 as its longest side. Every index is that of a point, and no triangle is without area. A
// mesh without triangles is a cloud of points.
struct Mesh {
  std::vector<Point> points;
  std::vector<std::uint32_t> colors;  // of each point; empty when the file has none
  std::vector<Triangle> triangles;
  std::vector<std::uint32_t> triangleColors;  // of each triangle, or kNoColor; empty when the file has none
};

struct MeshLimits {
  std::size_t bytes = std::size_t{104} << 20;  // of all that is kept of points, triangles and their colours
  std::size_t triangles = 2'000'000;
};

// Which way is up in a file's numbers. kGuessed: z, unless what would then stand upright is flat.
enum class UpAxis { kY, kZ, kGuessed };

// What becomes of points without any face.
enum class PointsAlone { kNothing, kCloud };

// Takes a surface as a file tells it. Every function is false when the file can't be previewed (a limit was
// passed, the budget is used up); nothing more is taken then.
class MeshBuilder {
 public:
  MeshBuilder(const MeshLimits& limits, WorkBudget& budget)
      : budget_(budget), bytesLeft_(limits.bytes), mostTriangles_(limits.triangles) {}

  // Coordinates may be anything that a double holds; triangles at points that are not finite are left out.
  bool AddPoint(double x, double y, double z);
  // The same for points whose coordinates are kept as they are in the file.
  bool AddPoint(const Point& point);
  // The colour of the point that was added last. Points without one are grey.
  void ColorLastPoint(std::uint32_t color);
  std::uint64_t pointCount() const { return points_.size() + exact_.size(); }

  // A face, corner by corner; a face of more than three is cut into triangles. Points may come after the
  // faces.
  void BeginFace() {
    corners_ = 0;
    faceStart_ = triangles_.size();
  }
  bool AddCorner(std::uint64_t point);
  // A face of three corners.
  bool AddTriangle(std::uint64_t a, std::uint64_t b, std::uint64_t c);
  // The colour of the face that was begun last; kNoColor for none.
  bool ColorFace(std::uint32_t color);

  // Triangles with points of their own, three each.
  bool AddTriangles(const Point* corners, std::size_t count);
  // Makes room for what a file of its size may hold, of points as doubles when exactly is set. Says nothing
  // about limits.
  void Expect(std::size_t points, std::size_t triangles, bool exactly = false);

  // None when an index is out of range, or nothing is left that can be seen.
  std::optional<Mesh> Finish(UpAxis up, PointsAlone pointsAlone = PointsAlone::kNothing);

 private:
  using Coordinates = std::array<double, 3>;
  struct Polygon {
    std::uint32_t firstTriangle;
    std::uint32_t triangles;
  };

  bool TakeBytes(std::size_t count);
  void KeepExactly();
  bool TakeTriangle(const Triangle& triangle);
  bool TakePolygon();
  template <typename Coordinate>
  std::optional<Mesh> FinishFrom(std::vector<Coordinate>& points, UpAxis up, PointsAlone pointsAlone);
  bool CutConcaveFaces();
  void DropFlat();
  void DropUnusable(bool isCloud);

  WorkBudget& budget_;
  std::size_t bytesLeft_;
  const std::size_t mostTriangles_;
  // Points are kept in one of the two, as precisely as they came.
  std::vector<Point> points_;
  std::vector<Coordinates> exact_;
  std::vector<std::uint32_t> colors_;
  std::vector<Triangle> triangles_;
  std::vector<std::uint32_t> triangleColors_;
  std::vector<Polygon> polygons_;  // the faces of more than three corners
  Mesh mesh_;
  bool hasUnusable_ = false;
  bool hasFaces_ = false;
  std::uint64_t corners_ = 0;  // of the face that is being added
  std::size_t faceStart_ = 0;
  std::uint32_t first_ = 0;
  std::uint32_t previous_ = 0;
  std::uint32_t largestCorner_ = 0;
};

}  // namespace file_explorer::preview
