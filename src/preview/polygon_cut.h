// Cutting faces of many corners into triangles.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "src/preview/mesh.h"

namespace file_explorer::preview {

// True when a fan covers its face and nothing else: all its triangles face the same way. True as well for a
// face that nothing can be done about, with a corner that is no number.
bool FanCovers(const std::vector<Point>& points, const Triangle* fan, std::size_t triangles);

// Cuts ears off a face that may be concave, until it is triangles: corners.size() - 2 of them, at
// `triangles`. Of faces with very many corners, and where no ear is left (a face that crosses itself), the
// rest becomes a fan. False when the budget is used up.
bool CutPolygon(const std::vector<Point>& points, const std::vector<std::uint32_t>& corners,
                Triangle* triangles, WorkBudget& budget);

}  // namespace file_explorer::preview
