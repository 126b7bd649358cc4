// Directory paths as the host's profile gives them.
#pragma once

#include <string_view>

namespace file_explorer {

// Paths that begin with a separator (network shares too) or whose second character is ":" stand for themselves; every
// other path counts from the host's working directory. An empty path is relative.
bool IsAbsolutePath(std::string_view path);

// The part of a path behind its last separator or drive colon: a pointer into path.
const char* NameOfPath(const char* path);

// What relative paths count from when the host has no working directory.
inline constexpr char kFallbackWorkingDirectory[] = "c:";

}  // namespace file_explorer
