// Inside this folder: what the shell controls of the module share.
#pragma once

#include <windows.h>

#include <ocidl.h>

#include "src/framework/com/com_owners.h"

namespace file_explorer {

// The one font of all controls, made on first use; null when it can't be made.
IFontDisp* SharedControlFont();

// Initialises COM on this thread, whatever comes of it; ReleaseShellControlState undoes what succeeded.
void InitializeComForControls();

}  // namespace file_explorer
