// Fitting a path into the width of a row. Wide text: in an 8-bit one the second byte of a letter can look
// like a backslash.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace file_explorer {

// Width of a text in the row's font, in pixels.
using MeasureText = std::function<int(std::wstring_view)>;

// The path as a row of `room` pixels shows it: whole when it fits, else with folder names after the drive
// replaced by
// ".." from the left until it fits, or with all of them replaced. A file name that fills the room stands
// alone.
std::wstring CompactPath(std::wstring_view path, int room, const MeasureText& measure);

}  // namespace file_explorer
