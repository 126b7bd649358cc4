// A surface of triangles as the model readers give it, and the one way to build it.
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

// Points are finite, y is up, and the box around the surface has its middle at the origin and 2 as its
// longest side. Every index is that of a point, and no triangle is without area.
struct Mesh {
  std::vector<Point> points;
  std::vector<std::uint32_t> colors;  // 0xRRGGBB of each point; empty when the file has none
  std::vector<Triangle> triangles;
};

struct MeshLimits {
  std::size_t points = 1'500'000;
  std::size_t triangles = 2'000'000;
};

// Which way is up in a file's numbers. kGuessed: z, unless what would then stand upright is flat.
enum class UpAxis { kY, kZ, kGuessed };

// Takes a surface as a file tells it. Every function is false when the file can't be previewed (a limit was
// passed, the budget is used up); nothing more is taken then.
class MeshBuilder {
 public:
  MeshBuilder(const MeshLimits& limits, WorkBudget& budget) : limits_(limits), budget_(budget) {}

  // Coordinates may be anything that a double holds; triangles at points that are not finite are left out.
  bool AddPoint(double x, double y, double z);
  // The colour of the point that was added last. Points without one are grey.
  void ColorLastPoint(std::uint32_t color);
  std::uint64_t pointCount() const { return points_.size(); }

  // A face, corner by corner; more than three make a fan. Points may come after the faces.
  void BeginFace() { corners_ = 0; }
  bool AddCorner(std::uint64_t point);

  // None when an index is out of range, or no triangle is left that can be seen.
  std::optional<Mesh> Finish(UpAxis up);

 private:
  struct Box;
  bool DropUnusable();
  Box Bounds() const;
  void Normalise(UpAxis up);
  bool DropFlat();

  const MeshLimits limits_;
  WorkBudget& budget_;
  std::vector<std::array<double, 3>> points_;
  std::vector<std::uint32_t> colors_;
  std::vector<Triangle> triangles_;
  Mesh mesh_;
  std::uint64_t corners_ = 0;  // of the face that is being added
  std::uint32_t first_ = 0;
  std::uint32_t previous_ = 0;
};

}  // namespace file_explorer::preview
