// Selection of the file view's items by a pattern.
#pragma once

#include <windows.h>

#include "src/host/host_services.h"

namespace file_explorer {

struct ShellControlHost;

// Selects the items whose names match the text of the edit box and deselects the others. Letters match in any case.
// Text in double quotes (the closing one may be missing) matches whole names; every other text matches as it stands or
// with "*" behind it, so abc selects what begins with abc. An empty or blank text changes nothing.
void SelectItemsByPattern(host::HostServices* services, ShellControlHost* fileView, HWND edit);

}  // namespace file_explorer
