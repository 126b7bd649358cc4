#include "workbench/app/ui/tab_strip.h"

namespace workbench {
namespace {

constexpr int kImageSize = 16;  // at 96 DPI
constexpr int kPadding = 9;

}  // namespace

std::shared_ptr<const TabImage> TabImage::Copy(HBITMAP bitmap, COLORREF transparent) {
  BITMAP facts = {};
  if (bitmap == nullptr || GetObjectW(bitmap, sizeof facts, &facts) == 0) return nullptr;
  auto image = std::make_shared<TabImage>();
  // Drawn into a bitmap of our own: the caller's one may be a section of any depth, or selected somewhere.
  const HDC screen = GetDC(nullptr);
  const HDC from = CreateCompatibleDC(screen);
  const HDC to = CreateCompatibleDC(screen);
  image->bitmap_.reset(CreateCompatibleBitmap(screen, facts.bmWidth, facts.bmHeight));
  {
    const ObjectSelection source(from, bitmap);
    const ObjectSelection target(to, image->bitmap_.get());
    BitBlt(to, 0, 0, facts.bmWidth, facts.bmHeight, from, 0, 0, SRCCOPY);
  }
  DeleteDC(to);
  DeleteDC(from);
  ReleaseDC(nullptr, screen);
  image->size_ = {facts.bmWidth, facts.bmHeight};
  image->transparent_ = transparent & 0x00FFFFFF;
  return image;
}

void TabImage::Draw(HDC dc, int left, int top, int size) const {
  const HDC from = CreateCompatibleDC(dc);
  {
    const ObjectSelection source(from, bitmap_.get());
    // A strip of square pictures shows its first one.
    const int width = std::min<int>(static_cast<int>(size_.cx), static_cast<int>(size_.cy));
    TransparentBlt(dc, left, top, size, size, from, 0, 0, width, size_.cy, transparent_);
  }
  DeleteDC(from);
}

int TabStrip::WantedLength(const Tab& tab, const Theme& theme) const {
  int length = theme.TextWidth(tab.title.c_str()) + 2 * theme.Scale(kPadding) + 2;
  if (tab.image != nullptr) length += theme.Scale(kImageSize + 5);
  if (closeButtons_) length += theme.Scale(16);
  return length;
}

void TabStrip::SetRect(const Rect& rect, const Theme& theme) {
  rect_ = rect;
  std::vector<int> wanted;
  for (const Tab& tab : tabs_) wanted.push_back(WantedLength(tab, theme));
  layout_ = LayOutTabs(wanted, vertical() ? rect.height() : rect.width(), theme.Scale(36));
}

int TabStrip::IndexAt(Point at) const {
  if (!rect_.Contains(at)) return -1;
  return TabAt(layout_, vertical() ? at.y - rect_.top : at.x - rect_.left);
}

Rect TabStrip::RectOf(int index) const {
  const int start = layout_.start(index);
  const int end = start + layout_.length(index);
  if (vertical()) return {rect_.left, rect_.top + start, rect_.right, rect_.top + end};
  return {rect_.left + start, rect_.top, rect_.left + end, rect_.bottom};
}

Rect TabStrip::CloseRect(const Rect& tab, const Theme& theme) const {
  const int size = theme.Scale(16);
  const int top = (tab.top + tab.bottom - size) / 2;
  const int right = tab.right - theme.Scale(4);
  return {right - size, top, right, top + size};
}

int TabStrip::TabIdAt(Point at) const {
  const int index = IndexAt(at);
  return index < 0 || index >= static_cast<int>(tabs_.size()) ? 0 : tabs_[static_cast<size_t>(index)].id;
}

bool TabStrip::IsOnClose(Point at, const Theme& theme) const {
  const int index = IndexAt(at);
  return closeButtons_ && index >= 0 && CloseRect(RectOf(index), theme).Contains(at);
}

Rect TabStrip::TabRect(int id) const {
  for (int i = 0; i < layout_.count() && i < static_cast<int>(tabs_.size()); ++i) {
    if (tabs_[static_cast<size_t>(i)].id == id) return RectOf(i);
  }
  return {};
}

bool TabStrip::SetHover(std::optional<Point> at, const Theme& theme) {
  const int hover = at ? IndexAt(*at) : -1;
  const bool onClose = at && IsOnClose(*at, theme);
  if (hover == hover_ && onClose == hoverOnClose_) return false;
  hover_ = hover;
  hoverOnClose_ = onClose;
  return true;
}

void TabStrip::Draw(HDC dc, const Theme& theme) const {
  const ThemeColors& colors = theme.colors();
  FillColor(dc, rect_, colors.face);
  if (look_ == TabLook::Top) {
    FillColor(dc, {rect_.left, rect_.bottom - 1, rect_.right, rect_.bottom}, colors.line);
  } else if (look_ == TabLook::Bottom) {
    FillColor(dc, {rect_.left, rect_.top, rect_.right, rect_.top + 1}, colors.line);
  }
  for (int i = 0; i < layout_.count() && i < static_cast<int>(tabs_.size()); ++i) DrawTab(dc, theme, i);
}

void TabStrip::DrawTab(HDC dc, const Theme& theme, int index) const {
  const ThemeColors& colors = theme.colors();
  const Tab& tab = tabs_[static_cast<size_t>(index)];
  Rect rect = RectOf(index);
  const bool front = tab.id == active_;
  const bool hover = index == hover_;
  if (front && !atEdge()) {
    FillColor(dc, rect, colors.paper);
    FillColor(dc, {rect.left, rect.top, rect.left + 1, rect.bottom}, colors.line);
    FillColor(dc, {rect.right - 1, rect.top, rect.right, rect.bottom}, colors.line);
  } else if (hover || front) {
    FillColor(dc, {rect.left, rect.top + 1, rect.right, rect.bottom - 1}, colors.hover);
  }
  if (front || atEdge()) DrawMark(dc, theme, rect);
  const COLORREF color = front || hover ? colors.text : colors.mutedText;
  if (vertical()) {
    DrawUpward(dc, theme, tab, rect, color);
    return;
  }
  DrawUpright(dc, theme, tab, rect, color);
  if (closeButtons_ && (front || hover)) {
    const Rect close = CloseRect(rect, theme);
    if (hover && hoverOnClose_) FillColor(dc, close, colors.hover);
    DrawGlyph(dc, theme, Glyph::Close, close, color);
  }
}

// The coloured line on the tab's free side.
void TabStrip::DrawMark(HDC dc, const Theme& theme, const Rect& rect) const {
  const int thick = theme.Scale(atEdge() ? 3 : 2);
  const int inset = atEdge() ? theme.Scale(4) : 0;
  const bool live = tabs_.empty() || !atEdge() || TabRect(active_) == rect;
  const COLORREF color = live ? theme.colors().accent : theme.colors().line;
  const bool atTop = look_ == TabLook::Top || look_ == TabLook::TopEdge;
  if (look_ == TabLook::LeftEdge) {
    FillColor(dc, {rect.left, rect.top + inset, rect.left + thick, rect.bottom - inset}, color);
  } else if (look_ == TabLook::RightEdge) {
    FillColor(dc, {rect.right - thick, rect.top + inset, rect.right, rect.bottom - inset}, color);
  } else if (atTop) {
    FillColor(dc, {rect.left + inset, rect.top, rect.right - inset, rect.top + thick}, color);
  } else {
    FillColor(dc, {rect.left + inset, rect.bottom - thick, rect.right - inset, rect.bottom}, color);
  }
}

void TabStrip::DrawUpright(HDC dc, const Theme& theme, const Tab& tab, const Rect& rect,
                           COLORREF color) const {
  Rect text = {rect.left + theme.Scale(kPadding), rect.top, rect.right - theme.Scale(kPadding) + 2,
               rect.bottom};
  if (tab.image != nullptr) {
    const int size = theme.Scale(kImageSize);
    tab.image->Draw(dc, text.left, (rect.top + rect.bottom - size) / 2, size);
    text.left += theme.Scale(kImageSize + 5);
  }
  if (closeButtons_) text.right -= theme.Scale(14);
  DrawLine(dc, theme.font(), tab.title.c_str(), text, color);
}

void TabStrip::DrawUpward(HDC dc, const Theme& theme, const Tab& tab, const Rect& rect,
                          COLORREF color) const {
  int bottom = rect.bottom - theme.Scale(kPadding);
  if (tab.image != nullptr) {
    const int size = theme.Scale(kImageSize);
    tab.image->Draw(dc, (rect.left + rect.right - size) / 2, bottom - size, size);
    bottom -= theme.Scale(kImageSize + 5);
  }
  const ObjectSelection selected(dc, theme.upwardFont());
  SetBkMode(dc, TRANSPARENT);
  SetTextColor(dc, color);
  const RECT clip = ToRECT({rect.left, rect.top + 2, rect.right, bottom});
  ExtTextOutW(dc, (rect.left + rect.right - theme.textHeight()) / 2, bottom, ETO_CLIPPED, &clip,
              tab.title.c_str(), static_cast<UINT>(tab.title.size()), nullptr);
}

}  // namespace workbench
