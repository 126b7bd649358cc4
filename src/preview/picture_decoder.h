// Pictures through the system's decoders.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "src/preview/picture.h"
#include "src/preview/work_budget.h"

namespace file_explorer::preview {

// The picture in a file's content, upright, made to fit into a square of `edge` pixels and never enlarged.
// None for what is damaged, of an unknown kind, or states more pixels than the limit. Needs COM on the
// thread.
std::optional<Picture> DecodePicture(std::string content, int edge, std::uint64_t pixelLimit,
                                     WorkBudget& budget);

}  // namespace file_explorer::preview
