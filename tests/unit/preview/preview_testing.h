// What the tests of previews share.
#pragma once

#include <chrono>
#include <optional>
#include <string_view>

#include "src/preview/model_readers.h"

namespace file_explorer::preview {

inline WorkBudget Plenty() {
  return WorkBudget(std::chrono::hours(1));
}

inline std::optional<Mesh> ReadWith(ModelReader reader, std::string_view file,
                                    const MeshLimits& limits = {}) {
  WorkBudget budget = Plenty();
  return reader(file, limits, budget);
}

// A file that was cut off anywhere gives nothing. Every cut is tried; gives the first length that is taken.
inline std::size_t FirstCutThatIsTaken(ModelReader reader, std::string_view file) {
  for (std::size_t length = 0; length < file.size(); ++length) {
    if (ReadWith(reader, file.substr(0, length))) return length;
  }
  return file.size();
}

inline float Extent(const Mesh& mesh, float Point::*axis) {
  float low = 1e9f;
  float high = -1e9f;
  for (const Point& point : mesh.points) {
    low = point.*axis < low ? point.*axis : low;
    high = point.*axis > high ? point.*axis : high;
  }
  return high - low;
}

}  // namespace file_explorer::preview
