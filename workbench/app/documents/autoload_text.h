// What the hand-over file says.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench {

// Largest hand-over file that is read, in bytes: room for the longest path.
inline constexpr std::size_t kAutoloadSizeLimit = 32768;

// The path in the file's content (8-bit text): the whole content, without white space and NULs at its end,
// nor quotes around it. Nothing for an empty, over-long or broken content (control characters inside).
std::optional<std::string> ParseAutoloadContent(std::string_view content);

}  // namespace workbench
