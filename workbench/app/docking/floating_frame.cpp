#include "workbench/app/docking/floating_frame.h"

namespace workbench {

std::span<const FloatingFrame::MessageHandler> FloatingFrame::Handlers() {
  static constexpr MessageHandler kHandlers[] = {
      {WM_PAINT, &FloatingFrame::OnPaint},
      {WM_ERASEBKGND, &FloatingFrame::OnErase},
      {WM_SIZE, &FloatingFrame::OnSize},
      {WM_SETCURSOR, &FloatingFrame::OnSetCursor},
      {WM_LBUTTONDOWN, &FloatingFrame::OnButtonDown},
      {WM_MOUSEMOVE, &FloatingFrame::OnMouseMove},
      {WM_LBUTTONUP, &FloatingFrame::OnButtonUp},
      {WM_CLOSE, &FloatingFrame::OnClose},
  };
  return kHandlers;
}

FloatingFrame::FloatingFrame(GroupId group, HWND mainWindow, FloatingFrameOwner& owner, const Theme& theme)
    : group_(group), owner_(owner), theme_(theme) {
  CreateWindowAt(WS_EX_TOOLWINDOW, WS_POPUP | WS_CLIPCHILDREN, RECT{}, mainWindow);
}

void FloatingFrame::Hold(HWND frame) {
  frame_ = frame;
  SetParent(frame, window());
  ShowWindow(frame, SW_SHOWNA);
  OnSize({});
}

void FloatingFrame::Place(const Rect& rect, bool visible) {
  SetWindowPos(window(), nullptr, rect.left, rect.top, rect.width(), rect.height(),
               SWP_NOZORDER | SWP_NOACTIVATE | (visible ? SWP_SHOWWINDOW : SWP_HIDEWINDOW));
}

LRESULT FloatingFrame::OnPaint(const Message&) {
  const OffscreenPaint paint(window());
  FillColor(paint.dc(), ToRect(paint.client()), theme_.colors().face);
  FrameColor(paint.dc(), ToRect(paint.client()), theme_.colors().line);
  return 0;
}

LRESULT FloatingFrame::OnErase(const Message&) {
  return 1;
}

LRESULT FloatingFrame::OnSize(const Message&) {
  RECT client = {};
  GetClientRect(window(), &client);
  const int edge = border();
  SetWindowPos(frame_, nullptr, edge, edge, std::max<int>(static_cast<int>(client.right) - 2 * edge, 0),
               std::max<int>(static_cast<int>(client.bottom) - 2 * edge, 0), SWP_NOZORDER | SWP_NOACTIVATE);
  InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

FloatingFrame::Edges FloatingFrame::EdgesAt(POINT at) const {
  RECT client = {};
  GetClientRect(window(), &client);
  const bool inBorder = at.x < border() || at.y < border() || at.x >= client.right - border() ||
                        at.y >= client.bottom - border();
  Edges edges;
  if (!inBorder) return edges;
  const int corner = border() * 4;
  if (at.x < corner) edges.horizontal = -1;
  if (at.x >= client.right - corner) edges.horizontal = 1;
  if (at.y < corner) edges.vertical = -1;
  if (at.y >= client.bottom - corner) edges.vertical = 1;
  return edges;
}

LRESULT FloatingFrame::OnSetCursor(const Message& message) {
  POINT at = {};
  GetCursorPos(&at);
  ScreenToClient(window(), &at);
  const Edges edges = EdgesAt(at);
  if (!edges.any() || reinterpret_cast<HWND>(message.first) != window()) return Default(message);
  int cursor = 32644;  // left and right
  if (edges.horizontal == 0) cursor = 32645;
  if (edges.horizontal * edges.vertical > 0) cursor = 32642;
  if (edges.horizontal * edges.vertical < 0) cursor = 32643;
  SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(cursor)));
  return TRUE;
}

LRESULT FloatingFrame::OnButtonDown(const Message& message) {
  sizing_ = EdgesAt(message.point());
  if (!sizing_.any()) return 0;
  GetCursorPos(&grabbed_);
  GetWindowRect(window(), &startRect_);
  SetCapture(window());
  return 0;
}

LRESULT FloatingFrame::OnMouseMove(const Message& message) {
  if (!sizing_.any() || GetCapture() != window() || (message.first & MK_LBUTTON) == 0) return 0;
  POINT at = {};
  GetCursorPos(&at);
  const int across = static_cast<int>(at.x - grabbed_.x);
  const int down = static_cast<int>(at.y - grabbed_.y);
  Rect rect = ToRect(startRect_);
  const int least = theme_.Scale(120);
  if (sizing_.horizontal < 0) rect.left = std::min(rect.left + across, rect.right - least);
  if (sizing_.horizontal > 0) rect.right = std::max(rect.right + across, rect.left + least);
  if (sizing_.vertical < 0) rect.top = std::min(rect.top + down, rect.bottom - least);
  if (sizing_.vertical > 0) rect.bottom = std::max(rect.bottom + down, rect.top + least);
  Place(rect, true);
  return 0;
}

LRESULT FloatingFrame::OnButtonUp(const Message&) {
  if (!sizing_.any()) return 0;
  sizing_ = {};
  ReleaseCapture();
  RECT rect = {};
  GetWindowRect(window(), &rect);
  owner_.OnFloatingPlaced(group_, ToRect(rect));
  return 0;
}

LRESULT FloatingFrame::OnClose(const Message&) {
  owner_.OnFloatingClose(group_);
  return 0;
}

}  // namespace workbench
