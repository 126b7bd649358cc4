// How what is selected looks in a view that does not have the focus: a selection is made from elsewhere too, by a
// pattern for example, and the system's own colour for it can hardly be told from the paper.
#pragma once

#include <windows.h>

#include "base/window/high_contrast.h"

namespace controls {

inline COLORREF InactiveSelectionTextColor() {
  return base::ContrastColor(GetSysColor(COLOR_WINDOW), COLOR_HIGHLIGHTTEXT);
}

// The ground behind that text.
inline COLORREF InactiveSelectionColor() {
  if (base::IsHighContrast()) return GetSysColor(COLOR_HIGHLIGHT);
  const COLORREF text = GetSysColor(COLOR_WINDOWTEXT);
  const COLORREF paper = GetSysColor(COLOR_WINDOW);
  const auto mix = [](int most, int rest) { return static_cast<BYTE>((3 * most + 2 * rest) / 5); };
  return RGB(mix(GetRValue(text), GetRValue(paper)), mix(GetGValue(text), GetGValue(paper)),
             mix(GetBValue(text), GetBValue(paper)));
}

}  // namespace controls
