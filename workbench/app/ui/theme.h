// Fonts, colours and sizes of the workbench's own drawing, at the screen's resolution.
#pragma once

#include <windows.h>

#include "workbench/app/layout/arrange.h"
#include "workbench/app/ui/gdi_owners.h"

namespace workbench {

struct ThemeColors {
  COLORREF face = 0;           // background between panes, strips
  COLORREF caption = 0;        // caption of a pane
  COLORREF activeCaption = 0;  // caption of the active pane
  COLORREF activeText = 0;
  COLORREF text = 0;
  COLORREF mutedText = 0;
  COLORREF line = 0;    // thin borders
  COLORREF paper = 0;   // front tab, content background
  COLORREF hover = 0;   // button or tab under the mouse
  COLORREF accent = 0;  // mark of the front tab, drop preview
};

class Theme {
 public:
  Theme();

  int dpi() const { return dpi_; }
  // Pixels for a length given at 96 DPI.
  int Scale(int at96) const { return MulDiv(at96, dpi_, 96); }
  // The length at 96 DPI for pixels.
  int Unscale(int pixels) const { return MulDiv(pixels, 96, dpi_); }

  HFONT font() const { return font_.get(); }
  HFONT upwardFont() const { return upward_.get(); }  // for text that runs from bottom to top
  int textHeight() const { return textHeight_; }

  int captionHeight() const { return textHeight_ + Scale(9); }
  int tabHeight() const { return textHeight_ + Scale(11); }
  DockMetrics dockMetrics() const;
  const ThemeColors& colors() const { return colors_; }
  // After the system's colours have changed, or high contrast was switched.
  void ReadColors();

  // Width in pixels of a text in font().
  int TextWidth(const wchar_t* text) const;

 private:
  int dpi_ = 96;
  UniqueFont font_;
  UniqueFont upward_;
  int textHeight_ = 0;
  ThemeColors colors_;
};

// ---- Small drawing helpers ----

inline Rect ToRect(const RECT& rect) {
  return {static_cast<int>(rect.left), static_cast<int>(rect.top), static_cast<int>(rect.right),
          static_cast<int>(rect.bottom)};
}
inline RECT ToRECT(const Rect& rect) {
  return {rect.left, rect.top, rect.right, rect.bottom};
}
inline Point ToPoint(POINT point) {
  return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

void FillColor(HDC dc, const Rect& rect, COLORREF color);
void FrameColor(HDC dc, const Rect& rect, COLORREF color);
// One line of text, cut with an ellipsis when it does not fit.
void DrawLine(HDC dc, HFONT font, const wchar_t* text, const Rect& rect, COLORREF color,
              UINT format = DT_LEFT);

enum class Glyph { Close, Pinned, Collapsed, Menu };
// A button's sign in the middle of rect.
void DrawGlyph(HDC dc, const Theme& theme, Glyph glyph, const Rect& rect, COLORREF color);

}  // namespace workbench
