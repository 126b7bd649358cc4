// Directory paths as the host's profile gives them.
#pragma once

#include <string_view>

namespace file_explorer {

// Paths that begin with a separator (network shares too) or whose second character is ":" stand for themselves; every
// other path counts from the host's working directory. An empty path is relative.
bool IsAbsolutePath(std::string_view path);

// In the code pages with two-byte characters the second byte can have the value of a backslash: whether a byte begins
// such a character.
using LeadByteTest = bool (*)(unsigned char byte);

// The part of a path after its last separator or drive colon: a pointer into path. Without a test (null) every byte is a
// character of its own, which is also right for UTF-8.
const char* NameOfPath(const char* path, LeadByteTest isLeadByte = nullptr);

// What relative paths count from when the host has no working directory.
inline constexpr char kFallbackWorkingDirectory[] = "c:";

}  // namespace file_explorer
