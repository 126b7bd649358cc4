// Shell link files as the keepers of a folder.
#pragma once

#include <string>

#include "src/framework/unique_handle.h"

namespace file_explorer {

// The item identifier list that a shell link file points to; empty when the file is missing, is no link or has no
// target. The target is not searched for when it is gone, and nothing is shown.
unique_pidl ReadShellLink(const std::string& linkPath);

// Writes a shell link file to a folder (virtual ones too), replacing an older one in one step: it is the old one or the
// new one at every moment. False, with the old one in its place, when it can't be written.
bool WriteShellLink(const std::string& linkPath, LPCITEMIDLIST target);

}  // namespace file_explorer
