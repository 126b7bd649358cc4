// The editable drop-down boxes of the masks dialog.
#pragma once

#include <windows.h>

#include "src/filter/stored_mask.h"
#include "src/framework/unique_handle.h"
#include "src/host/host_services.h"

namespace file_explorer {

// Shows a mask, given in stored form (null: none), with its history. With reset the box's text starts afresh.
void FillMaskCombo(HWND combo, MaskKind kind, const char* storedList, bool reset);

// Makes the stored form from what the box shows and puts it into *list (none when nothing is left). A pattern
// that is refused is told in a message box of the dialog: then the box gets the focus, *list stays and the
// result is false.
bool StoreMaskCombo(HWND dialog, host::HostServices* services, MaskKind kind, HWND combo,
                    unique_host_text* list);

}  // namespace file_explorer
