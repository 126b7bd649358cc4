// The keyboard in a toolbar that has the focus: arrow keys, Home and End lead from button to button, Tab and
// Escape lead out of it. Enter and Space press the button, as the toolbar control does by itself.
#pragma once

#include <windows.h>

namespace file_explorer {

// For as long as the toolbar lives. Tab asks its parent to go on, with WM_NEXTDLGCTL as a dialog's controls
// would; Escape gives the focus to the parent, which gives it to its view.
void AddToolbarKeys(HWND toolbar);

}  // namespace file_explorer
