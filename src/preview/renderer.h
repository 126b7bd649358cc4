// Draws a surface as a shaded picture.
#pragma once

#include <optional>

#include "src/preview/mesh.h"
#include "src/preview/picture.h"
#include "src/preview/work_budget.h"

namespace file_explorer::preview {

inline constexpr int kSmallestRendering = 8;
inline constexpr int kLargestRendering = 512;

// A square of size by size pixels, transparent around the surface, which is seen from its front, a little
// from the right and above, fills nine tenths of the square and lies in its middle. None when nothing of it
// shows, the budget is used up, or the size is none of those allowed.
std::optional<Picture> RenderMesh(const Mesh& mesh, int size, WorkBudget& budget);

}  // namespace file_explorer::preview
