// Colours for users who have asked the system for high contrast: there every colour of our own gives way to
// one of the system's, which are chosen to go together.
#pragma once

#include <windows.h>

namespace base {

// Whether high contrast is switched on now. Cheap enough to ask once in a painting, not once in a row; a
// window asks again whenever it paints, so it follows a change that repaints it.
bool IsHighContrast();

// ordinary, and while high contrast is on the system's colour with this index (COLOR_...).
COLORREF ContrastColor(COLORREF ordinary, int systemColor);

// Passes a change of the system's colours or settings (WM_SYSCOLORCHANGE, WM_SETTINGCHANGE, WM_THEMECHANGED)
// on to all children of a window, directly below it and deeper, as the common controls expect, and has
// everything painted again. The system itself tells top-level windows only.
void PassOnColorChange(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace base
