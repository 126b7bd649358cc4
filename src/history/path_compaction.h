// Fitting a path into the width of a row.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace file_explorer {

// Width of a text in the row's font, in pixels.
using MeasureText = std::function<int(std::string_view)>;

// The path as a row of `room` pixels shows it: whole when it fits, else with folder names after the drive
// replaced by
// ".." from the left until it fits, or with all of them replaced. A file name that fills the room stands
// alone.
std::string CompactPath(std::string_view path, int room, const MeasureText& measure);

}  // namespace file_explorer
