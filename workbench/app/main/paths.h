// Paths of the running program.
#pragma once

#include <string>

namespace workbench {

// The folder that the running program lies in, without a separator at its end.
std::wstring ProgramFolder();
// The full path of a path that may be relative to the current folder.
std::wstring FullPathOf(const std::wstring& path);

}  // namespace workbench
