// The directions that a surface faces at the corners of its triangles.
#pragma once

#include <vector>

#include "src/preview/mesh.h"

namespace file_explorer::preview {

// Three directions a triangle, of length one. Triangles that meet at a blunt angle share theirs, so that the
// surface looks round there; sharp edges stay sharp. Triangles meet where their corners have the same place,
// whether they share points or not. Surfaces of very many triangles get one direction a triangle. Empty when
// the budget is used up.
std::vector<Point> CornerNormals(const Mesh& mesh, WorkBudget& budget);

}  // namespace file_explorer::preview
