// Draws points without faces.
#pragma once

#include <optional>
#include <vector>

#include "src/preview/mesh.h"
#include "src/preview/picture.h"
#include "src/preview/work_budget.h"

namespace file_explorer::preview {

// Each point as a disc, shaded as a little ball; the larger the fewer there are. places: where the mesh's
// points lie, in samples, `edge` of them along a pixel. None when nothing shows or the budget is used up.
std::optional<Picture> RenderCloud(const Mesh& mesh, const std::vector<Point>& places, int size, int edge,
                                   WorkBudget& budget);

}  // namespace file_explorer::preview
