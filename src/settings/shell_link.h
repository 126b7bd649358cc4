// Shell link files as the keepers of a folder.
#pragma once

#include <string>

#include "src/framework/unique_handle.h"

namespace file_explorer {

// The item identifier list that a shell link file points to; empty when the file is missing, is no link or has no
// target. The target is not searched for when it is gone, nor looked at, and nothing is shown. *attributes, unless null,
// gets what the target was when the link was written (FILE_ATTRIBUTE_...); 0 when the link doesn't say.
unique_pidl ReadShellLink(const std::string& linkPath, DWORD* attributes = nullptr);

// Writes a shell link file to a folder (virtual ones too), replacing an older one in one step: it is the old one or the
// new one at every moment. False, with the old one in its place, when it can't be written.
bool WriteShellLink(const std::string& linkPath, LPCITEMIDLIST target);

}  // namespace file_explorer
