#include "workbench/app/ui/theme.h"

#include <cwchar>

#include "base/window/high_contrast.h"

namespace workbench {
namespace {

// A screen device context for measuring.
class ScreenContext {
 public:
  ScreenContext() : dc_(GetDC(nullptr)) {}
  ~ScreenContext() { ReleaseDC(nullptr, dc_); }
  ScreenContext(const ScreenContext&) = delete;
  ScreenContext& operator=(const ScreenContext&) = delete;
  HDC get() const { return dc_; }

 private:
  HDC dc_;
};

COLORREF Mix(COLORREF first, COLORREF second, int percentOfFirst) {
  const auto part = [&](int a, int b) {
    return static_cast<BYTE>((a * percentOfFirst + b * (100 - percentOfFirst)) / 100);
  };
  return RGB(part(GetRValue(first), GetRValue(second)), part(GetGValue(first), GetGValue(second)),
             part(GetBValue(first), GetBValue(second)));
}

// In high contrast no colour is mixed: what lies between two of the system's can be read on neither.
void UseSystemColorsAlone(ThemeColors& colors) {
  colors.mutedText = colors.line = colors.text;
  colors.caption = colors.hover = colors.face;
}

ThemeColors SystemColors() {
  ThemeColors colors;
  colors.face = GetSysColor(COLOR_3DFACE);
  colors.paper = GetSysColor(COLOR_WINDOW);
  colors.text = GetSysColor(COLOR_WINDOWTEXT);
  colors.accent = GetSysColor(COLOR_HIGHLIGHT);
  colors.mutedText = Mix(colors.text, colors.face, 62);
  colors.line = Mix(colors.text, colors.face, 26);
  colors.caption = Mix(colors.text, colors.face, 7);
  colors.activeCaption = colors.accent;
  colors.activeText = GetSysColor(COLOR_HIGHLIGHTTEXT);
  colors.hover = Mix(colors.accent, colors.face, 22);
  if (base::IsHighContrast()) UseSystemColorsAlone(colors);
  return colors;
}

struct Pen {
  Pen(HDC dc, int width, COLORREF color) : pen(CreatePen(PS_SOLID, width, color)), selected(dc, pen.get()) {}
  UniquePen pen;
  ObjectSelection selected;
};

void Stroke(HDC dc, int fromX, int fromY, int toX, int toY) {
  MoveToEx(dc, fromX, fromY, nullptr);
  LineTo(dc, toX, toY);
}

void DrawCross(HDC dc, int x, int y, int half, int width, COLORREF color) {
  const Pen pen(dc, width, color);
  Stroke(dc, x - half, y - half, x + half + 1, y + half + 1);
  Stroke(dc, x + half, y - half, x - half - 1, y + half + 1);
}

// A pin from above: a head, a bar and the needle; lying on its side when the pane is collapsed.
void DrawPin(HDC dc, const Theme& theme, int x, int y, bool upright, COLORREF color) {
  // Lengths are scaled one by one, so that the pin keeps its size between whole multiples of 96 DPI.
  const auto block = [&](int left, int top, int right, int bottom) {
    left = theme.Scale(left);
    top = theme.Scale(top);
    right = theme.Scale(right);
    bottom = theme.Scale(bottom);
    const Rect rect = upright ? Rect{x + left, y + top, x + right, y + bottom}
                              : Rect{x - bottom, y + left, x - top, y + right};
    FillColor(dc, rect, color);
  };
  block(-3, -5, 3, -4);
  block(-3, -4, -2, 1);
  block(1, -4, 3, 1);
  block(-4, 1, 4, 2);
  block(-1, 2, 1, 6);
}

void DrawArrow(HDC dc, int x, int y, int half, COLORREF color) {
  for (int row = 0; row <= half; ++row) {
    FillColor(dc, {x - half + row, y - half / 2 + row, x + half - row + 1, y - half / 2 + row + 1}, color);
  }
}

}  // namespace

Theme::Theme() : colors_(SystemColors()) {
  const ScreenContext screen;
  dpi_ = GetDeviceCaps(screen.get(), LOGPIXELSX);
  if (dpi_ <= 0) dpi_ = 96;
  NONCLIENTMETRICSW metrics = {};
  metrics.cbSize = sizeof metrics;
  SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
  LOGFONTW description = metrics.lfMessageFont;
  font_.reset(CreateFontIndirectW(&description));
  description.lfEscapement = description.lfOrientation = 900;
  upward_.reset(CreateFontIndirectW(&description));
  const ObjectSelection selected(screen.get(), font_.get());
  TEXTMETRICW text = {};
  GetTextMetricsW(screen.get(), &text);
  textHeight_ = static_cast<int>(text.tmHeight);
}

void Theme::ReadColors() {
  colors_ = SystemColors();
}

DockMetrics Theme::dockMetrics() const {
  DockMetrics metrics;
  metrics.splitter = Scale(5);
  metrics.edgeStrip = tabHeight();
  metrics.minPane = Scale(60);
  metrics.minDocument = Scale(80);
  return metrics;
}

int Theme::TextWidth(const wchar_t* text) const {
  const ScreenContext screen;
  const ObjectSelection selected(screen.get(), font());
  SIZE size = {};
  GetTextExtentPoint32W(screen.get(), text, static_cast<int>(std::wcslen(text)), &size);
  return static_cast<int>(size.cx);
}

void FillColor(HDC dc, const Rect& rect, COLORREF color) {
  const RECT area = ToRECT(rect);
  SetBkColor(dc, color);
  ExtTextOutW(dc, 0, 0, ETO_OPAQUE, &area, L"", 0, nullptr);
}

void FrameColor(HDC dc, const Rect& rect, COLORREF color) {
  FillColor(dc, {rect.left, rect.top, rect.right, rect.top + 1}, color);
  FillColor(dc, {rect.left, rect.bottom - 1, rect.right, rect.bottom}, color);
  FillColor(dc, {rect.left, rect.top, rect.left + 1, rect.bottom}, color);
  FillColor(dc, {rect.right - 1, rect.top, rect.right, rect.bottom}, color);
}

void DrawLine(HDC dc, HFONT font, const wchar_t* text, const Rect& rect, COLORREF color, UINT format) {
  const ObjectSelection selected(dc, font);
  RECT area = ToRECT(rect);
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, color);
  DrawTextW(dc, text, -1, &area, format | DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
}

void DrawGlyph(HDC dc, const Theme& theme, Glyph glyph, const Rect& rect, COLORREF color) {
  const int x = (rect.left + rect.right) / 2;
  const int y = (rect.top + rect.bottom) / 2;
  switch (glyph) {
    case Glyph::Close:
      DrawCross(dc, x, y, theme.Scale(4), std::max(theme.dpi() / 96, 1), color);
      break;
    case Glyph::Pinned:
      DrawPin(dc, theme, x, y, true, color);
      break;
    case Glyph::Collapsed:
      DrawPin(dc, theme, x, y, false, color);
      break;
    case Glyph::Menu:
      DrawArrow(dc, x, y, theme.Scale(4), color);
      break;
  }
}

}  // namespace workbench
