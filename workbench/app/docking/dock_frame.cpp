#include "workbench/app/docking/dock_frame.h"

#include <cstdlib>

namespace workbench {
namespace {

POINT ToScreen(HWND window, POINT point) {
  ClientToScreen(window, &point);
  return point;
}

}  // namespace

std::span<const DockFrame::MessageHandler> DockFrame::Handlers() {
  static constexpr MessageHandler kHandlers[] = {
      {WM_PAINT, &DockFrame::OnPaint},
      {WM_ERASEBKGND, &DockFrame::OnErase},
      {WM_SIZE, &DockFrame::OnSize},
      {WM_MOUSEMOVE, &DockFrame::OnMouseMove},
      {WM_MOUSELEAVE, &DockFrame::OnMouseLeave},
      {WM_LBUTTONDOWN, &DockFrame::OnButtonDown},
      {WM_LBUTTONUP, &DockFrame::OnButtonUp},
      {WM_LBUTTONDBLCLK, &DockFrame::OnDoubleClick},
      {WM_RBUTTONUP, &DockFrame::OnRightUp},
      {WM_CAPTURECHANGED, &DockFrame::OnCaptureChanged},
  };
  return kHandlers;
}

DockFrame::DockFrame(GroupId group, HWND parent, DockFrameOwner& owner, const Theme& theme)
    : group_(group), owner_(owner), theme_(theme) {
  CreateWindowAt(0, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, RECT{}, parent);
}

void DockFrame::SetContent(FrameContent content) {
  content_ = std::move(content);
  tabs_.SetTabs(content_.tabs);
  tabs_.SetActive(content_.front);
  PlaceContent();
  InvalidateRect(window(), nullptr, FALSE);
}

void DockFrame::SetActive(bool active) {
  if (active_ == active) return;
  active_ = active;
  InvalidateRect(window(), nullptr, FALSE);
}

void DockFrame::PlaceContent() {
  RECT client = {};
  GetClientRect(window(), &client);
  const Rect area = ToRect(client);
  tabs_.SetRect({area.left + 1, area.bottom - TabStripHeight(), area.right - 1, area.bottom - 1}, theme_);
  const Rect place = ContentRect();
  HWND front = nullptr;
  for (size_t i = 0; i < content_.windows.size(); ++i) {
    if (content_.tabs[i].id == content_.front) {
      front = content_.windows[i];
    } else {
      ShowWindow(content_.windows[i], SW_HIDE);
    }
  }
  if (front == nullptr) return;
  SetWindowPos(front, nullptr, place.left, place.top, std::max(place.width(), 0), std::max(place.height(), 0),
               SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
}

Rect DockFrame::CaptionRect() const {
  RECT client = {};
  GetClientRect(window(), &client);
  return {1, 1, static_cast<int>(client.right) - 1, 1 + theme_.captionHeight()};
}

Rect DockFrame::ContentRect() const {
  RECT client = {};
  GetClientRect(window(), &client);
  const Rect caption = CaptionRect();
  const int bottom = static_cast<int>(client.bottom) - std::max(TabStripHeight(), 1);
  return {1, caption.bottom, caption.right, std::max(bottom, caption.bottom)};
}

int DockFrame::TabStripHeight() const {
  return content_.tabs.size() > 1 ? theme_.tabHeight() : 0;
}

Rect DockFrame::ButtonRect(Button button) const {
  if (button == kPin && !content_.canCollapse) return {};
  const Rect caption = CaptionRect();
  const int size = caption.height() - theme_.Scale(4);
  const int place = button == kMenu && !content_.canCollapse ? 1 : static_cast<int>(button);
  const int right = caption.right - theme_.Scale(3) - place * (size + theme_.Scale(1));
  const int top = caption.top + (caption.height() - size) / 2;
  return {right - size, top, right, top + size};
}

DockFrame::Button DockFrame::ButtonAt(Point at) const {
  for (const Button button : {kClose, kPin, kMenu}) {
    if (ButtonRect(button).Contains(at)) return button;
  }
  return kNoButton;
}

const std::wstring& DockFrame::Title() const {
  static const std::wstring kNone;
  for (const Tab& tab : content_.tabs) {
    if (tab.id == content_.front) return tab.title;
  }
  return kNone;
}

LRESULT DockFrame::OnPaint(const Message&) {
  const OffscreenPaint paint(window());
  const Rect client = ToRect(paint.client());
  FillColor(paint.dc(), client, theme_.colors().paper);
  DrawCaption(paint.dc());
  if (TabStripHeight() > 0) tabs_.Draw(paint.dc(), theme_);
  FrameColor(paint.dc(), client, theme_.colors().line);
  return 0;
}

void DockFrame::DrawCaption(HDC dc) {
  const ThemeColors& colors = theme_.colors();
  const Rect caption = CaptionRect();
  FillColor(dc, caption, active_ ? colors.activeCaption : colors.caption);
  const COLORREF color = active_ ? colors.activeText : colors.text;
  const Rect text = {caption.left + theme_.Scale(7), caption.top, MenuRect().left - theme_.Scale(4),
                     caption.bottom};
  if (text.width() > 0) DrawLine(dc, theme_.font(), Title().c_str(), text, color);
  for (const Button button : {kClose, kPin, kMenu}) {
    const Rect rect = ButtonRect(button);
    if (rect.empty() || rect.left < caption.left) continue;
    const bool lit = button == hover_ || button == pressed_;
    if (lit) FillColor(dc, rect, colors.hover);
    const Glyph pin = content_.pinned ? Glyph::Pinned : Glyph::Collapsed;
    const Glyph glyph = button == kClose ? Glyph::Close : button == kMenu ? Glyph::Menu : pin;
    DrawGlyph(dc, theme_, glyph, rect, lit ? colors.text : color);
  }
}

LRESULT DockFrame::OnErase(const Message&) {
  return 1;
}

LRESULT DockFrame::OnSize(const Message&) {
  PlaceContent();
  InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

void DockFrame::SetHover(Button button) {
  if (hover_ == button) return;
  hover_ = button;
  InvalidateRect(window(), nullptr, FALSE);
}

LRESULT DockFrame::OnMouseMove(const Message& message) {
  const POINT at = message.point();
  if (dragArmed_ && (message.first & MK_LBUTTON) != 0) {
    const bool moved = std::abs(at.x - dragStart_.x) > GetSystemMetrics(SM_CXDRAG) ||
                     std::abs(at.y - dragStart_.y) > GetSystemMetrics(SM_CYDRAG);
    if (moved) {
      const ItemId tab = dragTab_;
      EndPress();
      owner_.OnFrameDrag(group_, tab, ToScreen(window(), at));
    }
    return 0;
  }
  TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, window(), 0};
  TrackMouseEvent(&track);
  SetHover(ButtonAt(ToPoint(at)));
  if (tabs_.SetHover(ToPoint(at), theme_)) InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

LRESULT DockFrame::OnMouseLeave(const Message&) {
  SetHover(kNoButton);
  if (tabs_.SetHover(std::nullopt, theme_)) InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

LRESULT DockFrame::OnButtonDown(const Message& message) {
  const Point at = ToPoint(message.point());
  pressed_ = ButtonAt(at);
  const ItemId tab = TabStripHeight() > 0 ? tabs_.TabIdAt(at) : 0;
  dragArmed_ = pressed_ == kNoButton && (tab != 0 || CaptionRect().Contains(at));
  dragTab_ = tab;
  dragStart_ = message.point();
  SetCapture(window());
  InvalidateRect(window(), nullptr, FALSE);
  if (tab != 0) {
    owner_.OnFrameTab(tab);
  } else if (pressed_ == kNoButton) {
    owner_.OnFrameClicked(content_.front);
  }
  return 0;
}

LRESULT DockFrame::OnButtonUp(const Message& message) {
  const Button button = pressed_;
  EndPress();
  if (button == kNoButton || ButtonAt(ToPoint(message.point())) != button) return 0;
  const Rect rect = ButtonRect(button);
  if (button == kClose) owner_.OnFrameClose(content_.front);
  if (button == kPin) owner_.OnFramePin(group_);
  if (button == kMenu) owner_.OnFrameMenu(content_.front, ToScreen(window(), {rect.left, rect.bottom}));
  return 0;
}

LRESULT DockFrame::OnDoubleClick(const Message& message) {
  const Point at = ToPoint(message.point());
  if (ButtonAt(at) == kNoButton && CaptionRect().Contains(at)) {
    owner_.OnFrameToggle(content_.front);
    return 0;
  }
  return OnButtonDown(message);
}

LRESULT DockFrame::OnRightUp(const Message& message) {
  const Point at = ToPoint(message.point());
  const ItemId tab = TabStripHeight() > 0 ? tabs_.TabIdAt(at) : 0;
  const bool onCaption = CaptionRect().Contains(at);
  if (tab != 0 || onCaption)
    owner_.OnFrameMenu(tab != 0 ? tab : content_.front, ToScreen(window(), message.point()));
  return 0;
}

LRESULT DockFrame::OnCaptureChanged(const Message&) {
  pressed_ = kNoButton;
  dragArmed_ = false;
  InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

void DockFrame::EndPress() {
  pressed_ = kNoButton;
  dragArmed_ = false;
  if (GetCapture() == window()) ReleaseCapture();
  InvalidateRect(window(), nullptr, FALSE);
}

}  // namespace workbench
