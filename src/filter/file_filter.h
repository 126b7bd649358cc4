// The filter of the file view.
#pragma once

#include "src/filter/mask_rules.h"
#include "src/host/host_services.h"

namespace file_explorer {

// True when the masks let a file of this name through. Patterns are matched by the host (services), types
// looked up in its registry of formats. Allocates nothing. A null name is shown.
bool ShouldShowFile(host::HostServices* services, const FileMasks& masks, const char* name);

}  // namespace file_explorer
