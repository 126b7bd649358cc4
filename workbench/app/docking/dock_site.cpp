#include "workbench/app/docking/dock_site.h"

namespace workbench {
namespace {

constexpr UINT_PTR kTimer = 1;
constexpr UINT kTimerMs = 150;
constexpr DWORD kHoverMs = 300;

}  // namespace

std::span<const DockSite::MessageHandler> DockSite::Handlers() {
  static constexpr MessageHandler kHandlers[] = {
      {WM_PAINT, &DockSite::OnPaint},
      {WM_ERASEBKGND, &DockSite::OnErase},
      {WM_SIZE, &DockSite::OnSize},
      {WM_SETCURSOR, &DockSite::OnSetCursor},
      {WM_MOUSEMOVE, &DockSite::OnMouseMove},
      {WM_MOUSEHOVER, &DockSite::OnMouseHover},
      {WM_MOUSELEAVE, &DockSite::OnMouseLeave},
      {WM_LBUTTONDOWN, &DockSite::OnButtonDown},
      {WM_LBUTTONUP, &DockSite::OnButtonUp},
      {WM_RBUTTONUP, &DockSite::OnRightUp},
      {WM_CAPTURECHANGED, &DockSite::OnCaptureChanged},
      {WM_TIMER, &DockSite::OnTimer},
      {kFocusMovedMessage, &DockSite::OnFocusMoved},
  };
  return kHandlers;
}

DockSite::DockSite(HWND parent, DockSiteOwner& owner, const Theme& theme)
    : owner_(owner),
      theme_(theme),
      edges_{TabStrip(TabLook::LeftEdge), TabStrip(TabLook::RightEdge), TabStrip(TabLook::TopEdge),
             TabStrip(TabLook::BottomEdge)} {
  CreateWindowAt(0, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, RECT{}, parent);
}

Rect DockSite::ClientArea() const {
  RECT client = {};
  GetClientRect(window(), &client);
  return ToRect(client);
}

void DockSite::SetArrangement(const Arrangement& arrangement) {
  arrangement_ = arrangement;
  InvalidateRect(window(), nullptr, FALSE);
}

void DockSite::SetEdgeTabs(Side side, std::vector<Tab> tabs, ItemId shown) {
  TabStrip& strip = edges_[static_cast<size_t>(side)];
  const EdgeStrip* edge = arrangement_.FindEdge(side);
  strip.SetTabs(std::move(tabs));
  strip.SetActive(shown);
  strip.SetRect(edge == nullptr ? Rect{} : edge->rect, theme_);
}

Rect DockSite::EdgeTabRect(ItemId item) const {
  for (const TabStrip& strip : edges_) {
    const Rect rect = strip.TabRect(item);
    if (!rect.empty()) return rect;
  }
  return {};
}

void DockSite::BeginWindowDrag() {
  windowDrag_ = true;
  SetCapture(window());
}

void DockSite::SetTimerOn(bool on) {
  if (on) {
    SetTimer(window(), kTimer, kTimerMs, nullptr);
  } else {
    KillTimer(window(), kTimer);
  }
}

ItemId DockSite::EdgeItemAt(Point at) const {
  for (const TabStrip& strip : edges_) {
    const ItemId item = strip.TabIdAt(at);
    if (item != 0) return item;
  }
  return 0;
}

const Splitter* DockSite::SameSplitter(const Splitter& wanted) const {
  for (const Splitter& splitter : arrangement_.splitters) {
    const bool same =
        splitter.side == wanted.side && splitter.before == wanted.before && splitter.after == wanted.after;
    if (same) return &splitter;
  }
  return nullptr;
}

LRESULT DockSite::OnPaint(const Message&) {
  const OffscreenPaint paint(window());
  FillColor(paint.dc(), ToRect(paint.client()), theme_.colors().face);
  for (const EdgeStrip& edge : arrangement_.edges)
    edges_[static_cast<size_t>(edge.side)].Draw(paint.dc(), theme_);
  for (const Splitter& splitter : arrangement_.splitters) DrawSplitter(paint.dc(), splitter);
  return 0;
}

// Three dots in the middle of the bar show that it can be taken hold of.
void DockSite::DrawSplitter(HDC dc, const Splitter& splitter) const {
  const int dot = theme_.Scale(2);
  const int x = (splitter.rect.left + splitter.rect.right - dot) / 2;
  const int y = (splitter.rect.top + splitter.rect.bottom - dot) / 2;
  for (int i = -1; i <= 1; ++i) {
    const int step = i * theme_.Scale(6);
    const int left = splitter.movesSideways() ? x : x + step;
    const int top = splitter.movesSideways() ? y + step : y;
    FillColor(dc, {left, top, left + dot, top + dot}, theme_.colors().line);
  }
}

LRESULT DockSite::OnErase(const Message&) {
  return 1;
}

LRESULT DockSite::OnSize(const Message&) {
  owner_.OnSiteResized();
  return 0;
}

LRESULT DockSite::OnSetCursor(const Message& message) {
  if (reinterpret_cast<HWND>(message.first) != window() || windowDrag_) return Default(message);
  POINT at = {};
  GetCursorPos(&at);
  ScreenToClient(window(), &at);
  const Splitter* splitter = arrangement_.SplitterAt(ToPoint(at));
  if (splitter == nullptr) return Default(message);
  SetCursor(LoadCursorW(nullptr, MAKEINTRESOURCEW(splitter->movesSideways() ? 32644 : 32645)));
  return TRUE;
}

void DockSite::UpdateEdgeHover(std::optional<Point> at) {
  for (TabStrip& strip : edges_) {
    if (strip.SetHover(at, theme_)) InvalidateRect(window(), nullptr, FALSE);
  }
}

LRESULT DockSite::OnMouseMove(const Message& message) {
  POINT at = message.point();
  if (windowDrag_) {
    ClientToScreen(window(), &at);
    owner_.OnDragMoved(at);
    return 0;
  }
  if (splitterDrag_) {
    const Splitter* splitter = SameSplitter(splitterDrag_->splitter);
    if (splitter == nullptr) return 0;
    const int now = splitter->movesSideways() ? splitter->rect.left : splitter->rect.top;
    const int mouse = static_cast<int>(splitter->movesSideways() ? at.x : at.y) - splitterDrag_->grip;
    if (mouse != now) owner_.OnSplitterMoved(*splitter, mouse - now);
    return 0;
  }
  UpdateEdgeHover(ToPoint(at));
  TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE | TME_HOVER, window(), kHoverMs};
  TrackMouseEvent(&track);
  return 0;
}

LRESULT DockSite::OnMouseHover(const Message& message) {
  const ItemId item = EdgeItemAt(ToPoint(message.point()));
  if (item != 0 && !windowDrag_ && !splitterDrag_) owner_.OnEdgeTab(item, false);
  return 0;
}

LRESULT DockSite::OnMouseLeave(const Message&) {
  UpdateEdgeHover(std::nullopt);
  return 0;
}

LRESULT DockSite::OnButtonDown(const Message& message) {
  const Point at = ToPoint(message.point());
  const ItemId item = EdgeItemAt(at);
  if (item != 0) {
    owner_.OnEdgeTab(item, true);
    return 0;
  }
  const Splitter* splitter = arrangement_.SplitterAt(at);
  if (splitter == nullptr) return 0;
  const int grip = splitter->movesSideways() ? at.x - splitter->rect.left : at.y - splitter->rect.top;
  splitterDrag_ = SplitterDrag{*splitter, grip};
  SetCapture(window());
  return 0;
}

LRESULT DockSite::OnButtonUp(const Message& message) {
  POINT at = message.point();
  if (windowDrag_) {
    windowDrag_ = false;
    ReleaseCapture();
    ClientToScreen(window(), &at);
    owner_.OnDragDropped(at);
  } else if (splitterDrag_) {
    splitterDrag_.reset();
    ReleaseCapture();
    owner_.OnSplitterReleased();
  }
  return 0;
}

LRESULT DockSite::OnRightUp(const Message& message) {
  const ItemId item = EdgeItemAt(ToPoint(message.point()));
  POINT at = message.point();
  ClientToScreen(window(), &at);
  if (item != 0) owner_.OnEdgeMenu(item, at);
  return 0;
}

LRESULT DockSite::OnCaptureChanged(const Message&) {
  splitterDrag_.reset();
  if (windowDrag_) {
    windowDrag_ = false;
    owner_.OnDragCancelled();
  }
  return 0;
}

LRESULT DockSite::OnTimer(const Message&) {
  owner_.OnSiteTimer();
  return 0;
}

LRESULT DockSite::OnFocusMoved(const Message&) {
  owner_.OnFocusMoved();
  return 0;
}

}  // namespace workbench
