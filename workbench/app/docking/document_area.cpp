#include "workbench/app/docking/document_area.h"

#include <algorithm>
#include <cstdlib>

namespace workbench {

std::span<const DocumentArea::MessageHandler> DocumentArea::Handlers() {
  static constexpr MessageHandler kHandlers[] = {
      {WM_PAINT, &DocumentArea::OnPaint},
      {WM_ERASEBKGND, &DocumentArea::OnErase},
      {WM_SIZE, &DocumentArea::OnSize},
      {WM_MOUSEMOVE, &DocumentArea::OnMouseMove},
      {WM_MOUSELEAVE, &DocumentArea::OnMouseLeave},
      {WM_LBUTTONDOWN, &DocumentArea::OnButtonDown},
      {WM_LBUTTONDBLCLK, &DocumentArea::OnButtonDown},
      {WM_LBUTTONUP, &DocumentArea::OnButtonUp},
      {WM_MBUTTONUP, &DocumentArea::OnMiddleUp},
      {WM_RBUTTONUP, &DocumentArea::OnRightUp},
      {WM_CAPTURECHANGED, &DocumentArea::OnCaptureChanged},
  };
  return kHandlers;
}

DocumentArea::DocumentArea(HWND parent, const Theme& theme) : theme_(theme) {
  CreateWindowAt(0, WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, RECT{}, parent);
  tabs_.SetCloseButtons(true);
}

int DocumentArea::AddPage(HWND page, const std::wstring& title, std::shared_ptr<const TabImage> image,
                          DocumentPageOwner& owner) {
  pages_.push_back({nextPage_++, page, title, std::move(image), &owner});
  if (GetParent(page) != window()) SetParent(page, window());
  if (front_ == 0) front_ = pages_.back().id;
  Update();
  return pages_.back().id;
}

void DocumentArea::RemovePage(int page) {
  const Page* found = Find(page);
  if (found == nullptr) return;
  const size_t at = static_cast<size_t>(found - pages_.data());
  pages_.erase(pages_.begin() + static_cast<std::ptrdiff_t>(at));
  if (front_ == page) {
    front_ = 0;
    if (!pages_.empty()) Activate(pages_[std::min(at, pages_.size() - 1)].id);
  }
  Update();
}

void DocumentArea::SetTitle(int page, const std::wstring& title) {
  Page* found = Find(page);
  if (found == nullptr || found->title == title) return;
  found->title = title;
  Update();
}

void DocumentArea::Activate(int page) {
  const Page* found = Find(page);
  if (found == nullptr) return;
  front_ = page;
  Update();
  found->owner->OnPageActivated(page);
}

int DocumentArea::Neighbour(int step) const {
  const int count = pageCount();
  for (int i = 0; i < count; ++i) {
    if (pages_[static_cast<size_t>(i)].id == front_) {
      return pages_[static_cast<size_t>((i + step + count) % count)].id;
    }
  }
  return 0;
}

void DocumentArea::RequestClose(int page) {
  const Page* found = Find(page);
  if (found != nullptr) found->owner->OnPageClose(page);
}

DocumentArea::Page* DocumentArea::Find(int page) {
  const auto found =
      std::find_if(pages_.begin(), pages_.end(), [&](const Page& other) { return other.id == page; });
  return found == pages_.end() ? nullptr : &*found;
}

Rect DocumentArea::ContentRect() const {
  RECT client = {};
  GetClientRect(window(), &client);
  Rect rect = ToRect(client);
  if (!pages_.empty()) rect.top = std::min(rect.top + theme_.tabHeight(), rect.bottom);
  return {rect.left + 1, rect.top, std::max(rect.right - 1, rect.left + 1),
          std::max(rect.bottom - 1, rect.top)};
}

Rect DocumentArea::CloseRectOf(int page) const {
  const Rect tab = TabRect(page);
  const Point inClose = {tab.right - theme_.Scale(12), (tab.top + tab.bottom) / 2};
  if (!tabs_.IsOnClose(inClose, theme_)) return {};
  return {inClose.x - 1, inClose.y - 1, inClose.x + 1, inClose.y + 1};
}

void DocumentArea::Update() {
  RECT client = {};
  GetClientRect(window(), &client);
  std::vector<Tab> tabs;
  for (const Page& page : pages_) tabs.push_back({page.id, page.title, page.image});
  tabs_.SetTabs(std::move(tabs));
  tabs_.SetActive(front_);
  tabs_.SetRect({0, 0, static_cast<int>(client.right),
                 std::min<int>(theme_.tabHeight(), static_cast<int>(client.bottom))},
                theme_);
  const Rect place = ContentRect();
  for (const Page& page : pages_) {
    if (page.id != front_) {
      ShowWindow(page.window, SW_HIDE);
      continue;
    }
    SetWindowPos(page.window, nullptr, place.left, place.top, place.width(), place.height(),
                 SWP_NOZORDER | SWP_NOACTIVATE | SWP_SHOWWINDOW);
  }
  InvalidateRect(window(), nullptr, FALSE);
}

LRESULT DocumentArea::OnPaint(const Message&) {
  const OffscreenPaint paint(window());
  const Rect client = ToRect(paint.client());
  FillColor(paint.dc(), client, theme_.colors().paper);
  FrameColor(paint.dc(), client, theme_.colors().line);
  if (pages_.empty()) {
    DrawEmpty(paint.dc());
  } else {
    tabs_.Draw(paint.dc(), theme_);
  }
  return 0;
}

void DocumentArea::DrawEmpty(HDC dc) const {
  RECT client = {};
  GetClientRect(window(), &client);
  const int middle = static_cast<int>(client.bottom) / 2;
  const int line = theme_.textHeight() * 2;
  const int right = static_cast<int>(client.right) - theme_.Scale(8);
  const int left = theme_.Scale(8);
  DrawLine(dc, theme_.largeFont(), L"No document is open", {left, middle - line, right, middle},
           theme_.colors().mutedText, DT_CENTER);
  DrawLine(dc, theme_.font(), L"Double-click a file in the explorer, or choose File > Open",
           {left, middle, right, middle + theme_.textHeight() + theme_.Scale(8)}, theme_.colors().mutedText,
           DT_CENTER);
}

LRESULT DocumentArea::OnErase(const Message&) {
  return 1;
}

LRESULT DocumentArea::OnSize(const Message&) {
  Update();
  return 0;
}

LRESULT DocumentArea::OnMouseMove(const Message& message) {
  POINT at = message.point();
  if (pressedTab_ != 0 && (message.first & MK_LBUTTON) != 0) {
    const bool moved = std::abs(at.x - pressedAt_.x) > GetSystemMetrics(SM_CXDRAG) ||
                     std::abs(at.y - pressedAt_.y) > GetSystemMetrics(SM_CYDRAG);
    const Page* page = Find(pressedTab_);
    if (moved && page != nullptr) {
      DocumentPageOwner* owner = page->owner;
      const int id = page->id;
      pressedTab_ = 0;
      ClientToScreen(window(), &at);
      owner->OnPageDrag(id, at);
    }
    return 0;
  }
  TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, window(), 0};
  TrackMouseEvent(&track);
  if (tabs_.SetHover(ToPoint(at), theme_)) InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

LRESULT DocumentArea::OnMouseLeave(const Message&) {
  if (tabs_.SetHover(std::nullopt, theme_)) InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

LRESULT DocumentArea::OnButtonDown(const Message& message) {
  const Point at = ToPoint(message.point());
  const int page = tabs_.TabIdAt(at);
  if (page == 0) return 0;
  SetCapture(window());
  if (tabs_.IsOnClose(at, theme_)) {
    pressedClose_ = page;
    return 0;
  }
  pressedTab_ = page;
  pressedAt_ = message.point();
  Activate(page);
  return 0;
}

LRESULT DocumentArea::OnButtonUp(const Message& message) {
  const int closing = pressedClose_;
  pressedClose_ = pressedTab_ = 0;
  if (GetCapture() == window()) ReleaseCapture();
  const Point at = ToPoint(message.point());
  if (closing != 0 && tabs_.TabIdAt(at) == closing && tabs_.IsOnClose(at, theme_)) RequestClose(closing);
  return 0;
}

LRESULT DocumentArea::OnMiddleUp(const Message& message) {
  RequestClose(tabs_.TabIdAt(ToPoint(message.point())));
  return 0;
}

LRESULT DocumentArea::OnRightUp(const Message& message) {
  const Page* page = Find(tabs_.TabIdAt(ToPoint(message.point())));
  POINT at = message.point();
  ClientToScreen(window(), &at);
  if (page != nullptr) page->owner->OnPageMenu(page->id, at);
  return 0;
}

LRESULT DocumentArea::OnCaptureChanged(const Message&) {
  pressedClose_ = pressedTab_ = 0;
  return 0;
}

}  // namespace workbench
