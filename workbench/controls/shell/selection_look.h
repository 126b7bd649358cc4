// How what is selected looks in a view that does not have the focus: the system's own colour for it can hardly be told
// from a window's background.
#pragma once

#include <windows.h>

namespace controls {

// A pale shade of the colour of selections, dark text reads well on it.
inline COLORREF InactiveSelectionColor() {
  const COLORREF window = GetSysColor(COLOR_WINDOW);
  const COLORREF selection = GetSysColor(COLOR_HIGHLIGHT);
  const auto mix = [](int a, int b) { return static_cast<BYTE>((a * 3 + b) / 4); };
  return RGB(mix(GetRValue(window), GetRValue(selection)), mix(GetGValue(window), GetGValue(selection)),
             mix(GetBValue(window), GetBValue(selection)));
}

}  // namespace controls
