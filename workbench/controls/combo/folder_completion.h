// The rest of a folder's name that is being typed.
#pragma once

#include <string>

namespace controls {

// What is missing of the first folder on disk whose path begins as typed; empty when there is none or when a
// folder of just this name exists. So that nobody waits while typing, network and removable drives are not
// looked at, and a look that takes longer than a tenth of a second is given up.
std::wstring FolderCompletion(const std::wstring& typed);

}  // namespace controls
