#include "workbench/app/panel/utility_panel.h"

#include <algorithm>

namespace workbench {
namespace {

// A page may keep hidden windows beside those that it shows.
bool HasVisibleChild(HWND page) {
  for (HWND child = GetWindow(page, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    if (IsWindowVisible(child)) return true;
  }
  return false;
}

}  // namespace

std::span<const PanelPageWindow::MessageHandler> PanelPageWindow::Handlers() {
  static constexpr MessageHandler kHandlers[] = {{WM_ERASEBKGND, &PanelPageWindow::OnErase}};
  return kHandlers;
}

PanelPageWindow::PanelPageWindow(HWND parent, const std::wstring& title) {
  CreateWindowAt(0, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, RECT{}, parent, title.c_str());
}

LRESULT PanelPageWindow::OnErase(const Message& message) {
  RECT client = {};
  GetClientRect(window(), &client);
  FillColor(reinterpret_cast<HDC>(message.first), ToRect(client), GetSysColor(COLOR_3DFACE));
  return 1;
}

std::span<const UtilityPanel::MessageHandler> UtilityPanel::Handlers() {
  static constexpr MessageHandler kHandlers[] = {
      {WM_PAINT, &UtilityPanel::OnPaint},
      {WM_ERASEBKGND, &UtilityPanel::OnErase},
      {WM_SIZE, &UtilityPanel::OnSize},
      {WM_MOUSEMOVE, &UtilityPanel::OnMouseMove},
      {WM_MOUSELEAVE, &UtilityPanel::OnMouseLeave},
      {WM_LBUTTONDOWN, &UtilityPanel::OnButtonDown},
      {WM_SETFOCUS, &UtilityPanel::OnSetFocus},
      {kShowFirstMessage, &UtilityPanel::OnShowFirst},
  };
  return kHandlers;
}

UtilityPanel::UtilityPanel(HWND parent, const Theme& theme) : theme_(theme) {
  CreateWindowAt(0, WS_CHILD | WS_CLIPCHILDREN | WS_CLIPSIBLINGS, RECT{}, parent, L"Utility panel");
}

UtilityPanel::~UtilityPanel() {
  pages_.clear();
  DestroyNow();
}

const UtilityPanel::Page* UtilityPanel::Find(const std::string& guid) const {
  const auto found =
      std::find_if(pages_.begin(), pages_.end(), [&](const Page& page) { return page.facts.guid == guid; });
  return found == pages_.end() ? nullptr : &*found;
}

HWND UtilityPanel::AddPage(const PageRequest& request) {
  if (request.guid.empty() || Find(request.guid) != nullptr) return nullptr;
  Page page;
  page.id = nextPage_++;
  page.facts = request;
  page.window = std::make_unique<PanelPageWindow>(window(), request.title);
  const HWND created = page.window->window();
  if (created == nullptr) return nullptr;
  pages_.push_back(std::move(page));
  Update();
  PostMessageW(window(), kShowFirstMessage, 0, 0);
  return created;
}

void UtilityPanel::RemovePage(const std::string& guid) {
  const auto found =
      std::find_if(pages_.begin(), pages_.end(), [&](const Page& page) { return page.facts.guid == guid; });
  if (found == pages_.end()) return;
  const bool wasFront = front_ == guid;
  Page removed = std::move(*found);
  pages_.erase(found);
  if (wasFront) front_.clear();
  removed.window.reset();
  if (wasFront && !pages_.empty()) BringToFront(pages_.front());
  Update();
}

bool UtilityPanel::ShowPage(const std::string& guid) {
  const Page* page = Find(guid);
  if (page == nullptr) return false;
  BringToFront(*page);
  return true;
}

HWND UtilityPanel::PageWindow(const std::string& guid) const {
  const Page* page = Find(guid);
  return page == nullptr ? nullptr : page->window->window();
}

Rect UtilityPanel::TabRect(const std::string& guid) const {
  const Page* page = Find(guid);
  return page == nullptr ? Rect{} : tabs_.TabRect(page->id);
}

std::vector<std::string> UtilityPanel::PageGuids() const {
  std::vector<std::string> guids;
  for (const Page& page : pages_) guids.push_back(page.facts.guid);
  return guids;
}

Rect UtilityPanel::PageRect() const {
  RECT client = {};
  GetClientRect(window(), &client);
  Rect rect = ToRect(client);
  rect.top = std::min(rect.top + theme_.tabHeight(), rect.bottom);
  return rect;
}

void UtilityPanel::Update() {
  RECT client = {};
  GetClientRect(window(), &client);
  std::vector<Tab> tabs;
  for (const Page& page : pages_) tabs.push_back({page.id, page.facts.title, page.facts.image});
  tabs_.SetTabs(std::move(tabs));
  const Page* front = Find(front_);
  tabs_.SetActive(front == nullptr ? 0 : front->id);
  tabs_.SetRect({0, 0, static_cast<int>(client.right), PageRect().top}, theme_);
  InvalidateRect(window(), nullptr, FALSE);
  if (front == nullptr) return;
  const Rect place = PageRect();
  SetWindowPos(front->window->window(), nullptr, place.left, place.top, place.width(), place.height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
}

void UtilityPanel::BringToFront(const Page& page) {
  const HWND shown = page.window->window();
  const HWND before = front_ == page.facts.guid ? nullptr : PageWindow(front_);
  front_ = page.facts.guid;
  Update();  // a page has its size before it shows
  if (before != nullptr) ShowWindow(before, SW_HIDE);
  ShowWindow(shown, SW_SHOW);
}

LRESULT UtilityPanel::OnPaint(const Message&) {
  const OffscreenPaint paint(window());
  FillColor(paint.dc(), ToRect(paint.client()), theme_.colors().face);
  tabs_.Draw(paint.dc(), theme_);
  if (pages_.empty()) {
    DrawLine(paint.dc(), theme_.font(), L"No plug-in has added a page", PageRect(), theme_.colors().mutedText,
             DT_CENTER);
  }
  return 0;
}

LRESULT UtilityPanel::OnErase(const Message&) {
  return 1;
}

LRESULT UtilityPanel::OnSize(const Message&) {
  Update();
  return 0;
}

LRESULT UtilityPanel::OnMouseMove(const Message& message) {
  TRACKMOUSEEVENT track = {sizeof track, TME_LEAVE, window(), 0};
  TrackMouseEvent(&track);
  if (tabs_.SetHover(ToPoint(message.point()), theme_)) InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

LRESULT UtilityPanel::OnMouseLeave(const Message&) {
  if (tabs_.SetHover(std::nullopt, theme_)) InvalidateRect(window(), nullptr, FALSE);
  return 0;
}

const UtilityPanel::Page* UtilityPanel::PageAt(Point at) const {
  const int id = tabs_.TabIdAt(at);
  const auto found =
      std::find_if(pages_.begin(), pages_.end(), [&](const Page& page) { return page.id == id; });
  return found == pages_.end() ? nullptr : &*found;
}

LRESULT UtilityPanel::OnButtonDown(const Message& message) {
  const Page* page = PageAt(ToPoint(message.point()));
  SetFocus(window());
  if (page != nullptr) BringToFront(*page);
  return 0;
}

LRESULT UtilityPanel::OnSetFocus(const Message& message) {
  const HWND page = PageWindow(front_);
  if (page != nullptr && HasVisibleChild(page)) {
    SetFocus(page);
    return 0;
  }
  return Default(message);
}

LRESULT UtilityPanel::OnShowFirst(const Message&) {
  if (front_.empty() && !pages_.empty()) BringToFront(pages_.front());
  return 0;
}

}  // namespace workbench
