// Any bytes through a model reader and the renderer: what comes out is a sound mesh and a sound picture, or
// nothing.
#pragma once

#include <chrono>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "src/preview/model_readers.h"
#include "src/preview/renderer.h"

namespace preview_fuzz {

namespace preview = file_explorer::preview;

inline void Check(bool holds) {
  if (!holds) std::abort();
}

inline void CheckPoint(const preview::Point& point) {
  for (const float value : {point.x, point.y, point.z})
    Check(std::isfinite(value) && std::fabs(value) <= 1.001f);
}

inline void CheckMesh(const preview::Mesh& mesh, const preview::MeshLimits& limits) {
  Check(!mesh.points.empty() && mesh.triangles.size() <= limits.triangles);
  Check(mesh.points.size() * sizeof(preview::Point) <= limits.bytes);
  Check(mesh.colors.empty() || mesh.colors.size() == mesh.points.size());
  Check(mesh.triangleColors.empty() || mesh.triangleColors.size() == mesh.triangles.size());
  if (mesh.triangles.empty()) {
    for (const preview::Point& point : mesh.points) CheckPoint(point);
  }
  for (const preview::Triangle& triangle : mesh.triangles) {
    for (const std::uint32_t corner : triangle) {
      Check(corner < mesh.points.size());
      CheckPoint(mesh.points[corner]);
    }
  }
}

inline void CheckPicture(const preview::Picture& picture, int size) {
  Check(picture.width == size && picture.height == size);
  Check(picture.pixels.size() == static_cast<std::size_t>(size) * static_cast<std::size_t>(size));
  for (const std::uint32_t pixel : picture.pixels) {
    for (const int shift : {0, 8, 16}) Check(((pixel >> shift) & 0xFF) <= pixel >> 24);
  }
}

inline void FuzzReader(preview::ModelReader reader, const std::uint8_t* data, std::size_t size) {
  constexpr preview::MeshLimits kLimits = {200'000, 5000};
  constexpr std::uint64_t kSteps = 400'000;  // the same on every machine
  constexpr int kPictureSize = 12;
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  preview::WorkBudget budget(std::chrono::seconds(10), kSteps);
  const auto mesh = reader(file, kLimits, budget);
  if (!mesh) return;
  CheckMesh(*mesh, kLimits);
  const auto picture = preview::RenderMesh(*mesh, kPictureSize, budget);
  if (picture) CheckPicture(*picture, kPictureSize);
}

}  // namespace preview_fuzz
