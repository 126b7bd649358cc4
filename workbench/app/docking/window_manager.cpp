// Taking windows in and letting them go, and the operations of the host's window manager interface.
#include "workbench/app/docking/window_manager.h"

#include <windows.h>

#include <commctrl.h>

#include <algorithm>

#include "src/host/host_services.h"
#include "src/host/plugin_protocol.h"

namespace workbench {
namespace {

constexpr UINT_PTR kWatchId = 0x57424D;  // the subclass that watches a managed window
constexpr LONG_PTR kTopLevelStyles =
    WS_CAPTION | WS_SYSMENU | WS_THICKFRAME | WS_POPUP | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;

// The manager whose site hears of focus changes of this thread.
thread_local WindowManager* focusWatcher = nullptr;

std::uint16_t KnownMethod(std::uint16_t method) {
  switch (method) {
    case host::kMethodTabbedDocument:
    case host::kMethodDocked:
    case host::kMethodFloating:
    case host::kMethodCollapsible:
      return method;
    default:
      return host::kMethodTabbedCollapsible;  // also the host's default method, and what makes no sense
  }
}

Area AreaForRequest(const DockRequest& request) {
  if (request.method == host::kMethodTabbedDocument) return Area::Document;
  if (request.method == host::kMethodFloating) return Area::Floating;
  return request.position > host::kDockBottom ? Area::Bottom : static_cast<Area>(request.position);
}

}  // namespace

WindowManager::WindowManager(HWND mainWindow, const Theme& theme, PlacementStore store)
    : mainWindow_(mainWindow),
      theme_(theme),
      store_(std::move(store)),
      notification_(RegisterWindowMessageW(L"WorkbenchWindowManagerNotification")),
      site_(mainWindow, *this, theme),
      documents_(site_.window(), theme),
      preview_(mainWindow, theme) {
  applying_ = false;
  focusWatcher = this;
  focusHook_ = SetWindowsHookExW(WH_CBT, &WatchFocus, nullptr, GetCurrentThreadId());
  for (const Side side : {Side::Left, Side::Right}) model_.SetExtent(side, theme.Scale(300));
  for (const Side side : {Side::Top, Side::Bottom}) model_.SetExtent(side, theme.Scale(240));
}

WindowManager::~WindowManager() {
  UnhookWindowsHookEx(focusHook_);
  if (focusWatcher == this) focusWatcher = nullptr;
  SaveAll();
  applying_ = true;  // no layout any more while the windows go
  for (auto& [item, managed] : windows_) Release(managed);
  windows_.clear();
}

LRESULT CALLBACK WindowManager::WatchFocus(int code, WPARAM first, LPARAM second) {
  if (code == HCBT_SETFOCUS && focusWatcher != nullptr) {
    PostMessageW(focusWatcher->site_.window(), DockSite::kFocusMovedMessage, 0, 0);
  }
  return CallNextHookEx(nullptr, code, first, second);
}

LRESULT CALLBACK WindowManager::WatchWindow(HWND window, UINT id, WPARAM first, LPARAM second, UINT_PTR,
                                            DWORD_PTR reference) {
  if (id != WM_NCDESTROY) return DefSubclassProc(window, id, first, second);
  auto* manager = reinterpret_cast<WindowManager*>(reference);
  RemoveWindowSubclass(window, &WatchWindow, kWatchId);
  const LRESULT result = DefSubclassProc(window, id, first, second);
  try {
    manager->Forget(manager->ItemOf(window));
  } catch (...) {
    // The window is gone either way; the next layout leaves it out.
  }
  return result;
}

bool WindowManager::IsAdoptable(const DockRequest& request) const {
  if (request.guid.empty() || !IsWindow(request.window) || request.window == mainWindow_) return false;
  if (GetWindowThreadProcessId(request.window, nullptr) != GetCurrentThreadId()) return false;
  return Find(request.window) == nullptr;
}

bool WindowManager::Adopt(const DockRequest& asked, DockAnswer* answer) {
  DockRequest request = asked;
  request.method = KnownMethod(asked.method);
  if (!IsAdoptable(request)) return false;
  std::optional<Placement> placement = store_.Load(request.guid);
  // Who asks for another kind of place than last time has changed his mind; the old place is void.
  const bool sameWish = placement && placement->requestedMethod == request.method &&
                        placement->requestedPosition == request.position;
  if (!sameWish) placement.reset();
  ManagedWindow managed;
  managed.item = AddToModel(request, placement);
  managed.window = request.window;
  managed.guid = request.guid;
  managed.title = request.title;
  managed.image = request.image;
  managed.method = request.method;
  managed.position = request.position;
  managed.ofWorkbench = request.ofWorkbench;
  const ItemId item = managed.item;
  windows_[item] = std::move(managed);
  Strip(*Find(item));
  SetWindowSubclass(request.window, &WatchWindow, kWatchId, reinterpret_cast<DWORD_PTR>(this));
  ApplyLayout();
  if (answer != nullptr) {
    answer->remembered = placement.has_value();
    answer->rect = PlaceOf(item);
  }
  return true;
}

ItemId WindowManager::AddToModel(const DockRequest& request, const std::optional<Placement>& placement) {
  DockItem item;
  item.collapsible = request.method != host::kMethodDocked;
  item.sharesPlace =
      request.method == host::kMethodTabbedCollapsible || request.method == host::kMethodTabbedDocument;
  const Area area = placement ? placement->area : AreaForRequest(request);
  const ItemId id =
      model_.Add(item, area, placement ? placement->slot : -1, placement ? placement->order : -1);
  DockGroup& group = *model_.FindGroup(model_.FindItem(id)->group);
  if (placement) {
    group.floating = placement->floating;
    if (group.items.size() == 1) {
      group.weight = placement->weight;
      group.pinned = placement->pinned || !IsSide(area);
    }
    if (placement->front) group.active = id;
    if (IsSide(area)) model_.SetExtent(SideOf(area), theme_.Scale(placement->extent));
  }
  if (area == Area::Floating) group.floating = FloatingRectFor(group, group.floating);
  return id;
}

// Turns a top-level window into a plain child that has no caption or frame of its own.
void WindowManager::Strip(ManagedWindow& managed) {
  managed.styleBefore = GetWindowLongPtrW(managed.window, GWL_STYLE);
  const bool wasVisible = (managed.styleBefore & WS_VISIBLE) != 0;
  if (wasVisible) ShowWindow(managed.window, SW_HIDE);
  const LONG_PTR style = GetWindowLongPtrW(managed.window, GWL_STYLE);
  SetWindowLongPtrW(managed.window, GWL_STYLE, (style & ~kTopLevelStyles) | WS_CHILD | WS_CLIPSIBLINGS);
  SetParent(managed.window, site_.window());
  SetWindowPos(managed.window, nullptr, 0, 0, 0, 0,
               SWP_NOMOVE | SWP_NOSIZE | SWP_NOZORDER | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

// Gives a window back to its owner as it came: hidden, top-level, with its caption.
void WindowManager::Release(ManagedWindow& managed) {
  RemoveWindowSubclass(managed.window, &WatchWindow, kWatchId);
  if (managed.page != 0) documents_.RemovePage(managed.page);
  if (managed.ofWorkbench || !IsWindow(managed.window)) return;
  ShowWindow(managed.window, SW_HIDE);
  SetParent(managed.window, nullptr);
  SetWindowLongPtrW(managed.window, GWL_STYLE, managed.styleBefore & ~static_cast<LONG_PTR>(WS_VISIBLE));
}

// The window was destroyed: its place is remembered and its neighbours take the room.
void WindowManager::Forget(ItemId item) {
  ManagedWindow* managed = Find(item);
  if (managed == nullptr) return;
  store_.Save(managed->guid, CurrentPlacement(*managed));
  const int page = managed->page;
  const GroupId group = model_.GroupOf(item)->id;
  windows_.erase(item);
  model_.Remove(item);
  if (active_ == item) active_ = 0;
  if (poppedOut_ == group && model_.FindGroup(group) == nullptr) poppedOut_ = 0;
  if (drag_ && (drag_->item == item || model_.FindGroup(drag_->group) == nullptr)) {
    drag_.reset();
    preview_.Show({});
  }
  if (page != 0) documents_.RemovePage(page);
  ApplyLayout();
}

const WindowManager::ManagedWindow* WindowManager::Find(ItemId item) const {
  const auto found = windows_.find(item);
  return found == windows_.end() ? nullptr : &found->second;
}

WindowManager::ManagedWindow* WindowManager::Find(ItemId item) {
  const auto found = windows_.find(item);
  return found == windows_.end() ? nullptr : &found->second;
}

const WindowManager::ManagedWindow* WindowManager::Find(HWND window) const {
  return Find(ItemOf(window));
}

ItemId WindowManager::ItemOf(HWND window) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const auto& entry) { return entry.second.window == window; });
  return window == nullptr || found == windows_.end() ? 0 : found->first;
}

HWND WindowManager::WindowOf(const std::string& guid) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const auto& entry) { return entry.second.guid == guid; });
  return found == windows_.end() ? nullptr : found->second.window;
}

bool WindowManager::IsShown(HWND window) const {
  const DockItem* item = model_.FindItem(ItemOf(window));
  return item != nullptr && item->visible;
}

DockFrame* WindowManager::FrameOf(HWND window) const {
  const DockGroup* group = model_.GroupOf(ItemOf(window));
  const auto found = group == nullptr ? frames_.end() : frames_.find(group->id);
  return found == frames_.end() ? nullptr : found->second.get();
}

std::vector<WindowManager::WindowFacts> WindowManager::Windows() const {
  std::vector<WindowFacts> result;
  for (const auto& [item, managed] : windows_)
    result.push_back({managed.window, managed.title, IsShown(managed.window)});
  return result;
}

Placement WindowManager::CurrentPlacement(const ManagedWindow& managed) const {
  const DockGroup& group = *model_.GroupOf(managed.item);
  Placement placement;
  placement.area = group.area;
  placement.slot = model_.IndexInArea(group.id);
  placement.order =
      static_cast<int>(std::find(group.items.begin(), group.items.end(), managed.item) - group.items.begin());
  if (IsSide(group.area)) placement.extent = std::max(theme_.Unscale(model_.extent(SideOf(group.area))), 1);
  placement.weight = Limit(group.weight, 1, 32767);
  placement.pinned = group.pinned;
  placement.front = model_.FrontItem(group) == managed.item || group.active == managed.item;
  placement.requestedMethod = managed.method;
  placement.requestedPosition = managed.position;
  placement.floating = group.floating;
  return placement;
}

void WindowManager::SaveAll() const {
  for (const auto& [item, managed] : windows_) store_.Save(managed.guid, CurrentPlacement(managed));
}

// The place on the screen that an item has, or would have when it showed.
Rect WindowManager::PlaceOf(ItemId item) const {
  const DockGroup* group = model_.GroupOf(item);
  if (group == nullptr) return {};
  if (group->area == Area::Floating) return group->floating;
  DockModel shown = model_;
  shown.SetVisible(item, true);
  const Arrangement arrangement = Arrange(shown, site_.ClientArea(), theme_.dockMetrics());
  if (group->area == Area::Document) return ScreenRect(arrangement.document);
  const GroupPlace* pane = arrangement.FindPane(group->id);
  return ScreenRect(pane != nullptr ? pane->rect
                                    : PopOutRect(shown, arrangement, group->id, theme_.dockMetrics()));
}

LRESULT WindowManager::Notify(ItemId item, std::uint16_t code) {
  const ManagedWindow* managed = Find(item);
  if (managed == nullptr || managed->ofWorkbench) return 0;
  ++notifying_;
  const LRESULT result = SendMessageW(managed->window, notification_, code, 0);
  --notifying_;
  return result;
}

void WindowManager::SetSize(HWND window, int width, int height, int code) {
  const DockGroup* group = model_.GroupOf(ItemOf(window));
  if (group == nullptr || width < 0 || height < 0) return;
  const bool takesWidth = (code & 1) != 0;
  const bool takesHeight = (code & 2) != 0;
  if (group->area == Area::Floating) {
    Rect rect = group->floating;
    if (takesWidth) rect.right = rect.left + width;
    if (takesHeight) rect.bottom = rect.top + height;
    model_.FindGroup(group->id)->floating = FloatingRectFor(*group, rect);
  } else if (IsSide(group->area)) {
    const Side side = SideOf(group->area);
    const Rect site = site_.ClientArea();
    // A docked window never takes more than half of the room this way: the rest of the program stays usable.
    const int half = (IsVertical(side) ? site.width() : site.height()) / 2;
    if (IsVertical(side) ? takesWidth : takesHeight)
      model_.SetExtent(side, std::min(IsVertical(side) ? width : height, half));
  }
  ApplyLayout();
}

void WindowManager::SetPosition(HWND window, int left, int top) {
  const DockGroup* group = model_.GroupOf(ItemOf(window));
  if (group == nullptr || group->area != Area::Floating) return;
  const Rect& old = group->floating;
  model_.FindGroup(group->id)->floating =
      FloatingRectFor(*group, {left, top, left + old.width(), top + old.height()});
  ApplyLayout();
}

void WindowManager::SetState(HWND window, std::int32_t state) {
  if (state != host::kStateExpanded && state != host::kStateCollapsed) return;
  const std::int32_t now = GetState(window);
  const bool canChange = now == host::kStateExpanded || now == host::kStateCollapsed;
  if (canChange && now != state) Toggle(model_.GroupOf(ItemOf(window))->id);
}

std::int32_t WindowManager::GetState(HWND window) const {
  const ItemId item = ItemOf(window);
  const DockGroup* group = model_.GroupOf(item);
  if (group == nullptr) return 0;
  if (!IsSide(group->area) || !model_.FindItem(item)->collapsible) return kStateNormal;
  return group->pinned ? host::kStateExpanded : host::kStateCollapsed;
}

bool WindowManager::StoredRectangle(const std::string& guid, Rect* screenRect) const {
  if (guid == host::kInitialRectangleGuid) {
    *screenRect = ScreenRect(site_.ClientArea());
    return true;
  }
  const HWND window = WindowOf(guid);
  if (window == nullptr) return false;
  *screenRect = PlaceOf(ItemOf(window));
  return true;
}

void WindowManager::Show(HWND window, bool show) {
  const ItemId item = ItemOf(window);
  if (item == 0) return;
  const bool changed = model_.SetVisible(item, show);
  if (show) model_.Activate(item);
  const GroupId group = model_.GroupOf(item)->id;
  if (!show && poppedOut_ == group && !model_.IsVisible(*model_.FindGroup(group))) poppedOut_ = 0;
  ApplyLayout();
  const ManagedWindow* managed = Find(item);
  if (show && managed->page != 0) documents_.Activate(managed->page);
  if (show && !changed && GetState(window) == host::kStateCollapsed) PopOut(item, false);
  if (show && changed) Notify(item, host::kNotifyShown);
}

}  // namespace workbench
