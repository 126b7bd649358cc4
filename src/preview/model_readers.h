// Readers of model files. They take any bytes: what is damaged, empty or too large gives nothing. Nothing is
// reserved because a header says so; memory grows with the bytes that are there.
#pragma once

#include <optional>
#include <string_view>

#include "src/preview/mesh.h"
#include "src/preview/work_budget.h"

namespace file_explorer::preview {

std::optional<Mesh> ReadObj(std::string_view file, const MeshLimits& limits, WorkBudget& budget);
// Text and binary.
std::optional<Mesh> ReadStl(std::string_view file, const MeshLimits& limits, WorkBudget& budget);
// Text, and binary of both byte orders.
std::optional<Mesh> ReadPly(std::string_view file, const MeshLimits& limits, WorkBudget& budget);
std::optional<Mesh> Read3ds(std::string_view file, const MeshLimits& limits, WorkBudget& budget);

using ModelReader = std::optional<Mesh> (*)(std::string_view file, const MeshLimits& limits,
                                            WorkBudget& budget);
// The reader for a file's extension, without its dot, letters of any case; null when there is none.
ModelReader ReaderForExtension(std::string_view extension);

}  // namespace file_explorer::preview
