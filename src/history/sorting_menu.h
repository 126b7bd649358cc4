// The popup menu that chooses the history's sorting method.
#pragma once

#include <windows.h>

namespace file_explorer {

// Opens the menu at a screen position with the current method checked; the choice is sent to commandWindow as
// a command. Returns when the menu is closed.
void ShowHistorySortingMenu(HINSTANCE instance, HWND commandWindow, POINT screen, int currentMethod);

}  // namespace file_explorer
