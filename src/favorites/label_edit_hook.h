// Enter and Escape for a tree's label editor inside a dialog, which would take both keys for its buttons.
#pragma once

#include <windows.h>

namespace file_explorer {

// The editor's previous procedure is kept in a property of its window until the hook is taken off.
void HookLabelEdit(HWND edit);
void UnhookLabelEdit(HWND edit);

}  // namespace file_explorer
