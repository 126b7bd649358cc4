// From the model to windows: frames, their places, the strips of collapsed windows and the document pages.
#include <algorithm>

#include "workbench/app/docking/window_manager.h"

namespace workbench {

void WindowManager::ApplyLayout() {
  // Moving windows sends messages whose handlers may ask for a layout again; the first one sees to
  // everything.
  if (applying_) return;
  applying_ = true;
  const DockGroup* popped = model_.FindGroup(poppedOut_);
  if (popped == nullptr || popped->pinned || !model_.IsVisible(*popped)) poppedOut_ = 0;
  arrangement_ = Arrange(model_, site_.ClientArea(), theme_.dockMetrics());
  SyncFrames();
  SyncParents();
  SyncPages();
  DropUnusedFrames();
  PlaceFrames();
  UpdateEdges();
  applying_ = false;
}

DockFrame& WindowManager::FrameFor(const DockGroup& group) {
  auto& frame = frames_[group.id];
  if (frame == nullptr) {
    frame =
        std::make_unique<DockFrame>(group.id, site_.window(), static_cast<DockFrameOwner&>(*this), theme_);
  }
  return *frame;
}

FloatingFrame& WindowManager::FloatingFor(const DockGroup& group) {
  auto& floating = floats_[group.id];
  if (floating == nullptr) {
    floating = std::make_unique<FloatingFrame>(group.id, mainWindow_, static_cast<FloatingFrameOwner&>(*this),
                                               theme_);
  }
  return *floating;
}

void WindowManager::SyncFrames() {
  for (const DockGroup& group : model_.groups()) {
    if (group.area == Area::Document) continue;
    DockFrame& frame = FrameFor(group);
    const HWND parent = group.area == Area::Floating ? FloatingFor(group).window() : site_.window();
    if (GetParent(frame.window()) == parent) continue;
    if (group.area == Area::Floating) {
      FloatingFor(group).Hold(frame.window());
    } else {
      SetParent(frame.window(), parent);
    }
  }
}

// Every window lies in its group's frame, or in the document area, before frames without a group go.
void WindowManager::SyncParents() {
  for (auto& [item, managed] : windows_) {
    const DockGroup& group = *model_.GroupOf(item);
    const bool isPage = group.area == Area::Document;
    const HWND parent = isPage ? documents_.window() : FrameFor(group).window();
    if (GetParent(managed.window) == parent) continue;
    ShowWindow(managed.window, SW_HIDE);
    SetParent(managed.window, parent);
  }
}

void WindowManager::SyncPages() {
  for (auto& [item, managed] : windows_) {
    const DockItem& facts = *model_.FindItem(item);
    const bool isPage = model_.GroupOf(item)->area == Area::Document && facts.visible;
    if (isPage && managed.page == 0) {
      managed.page = documents_.AddPage(managed.window, managed.title, managed.image,
                                        static_cast<DocumentPageOwner&>(*this));
    } else if (!isPage && managed.page != 0) {
      documents_.RemovePage(managed.page);
      managed.page = 0;
    }
    if (!facts.visible) ShowWindow(managed.window, SW_HIDE);
  }
}

void WindowManager::DropUnusedFrames() {
  std::erase_if(frames_, [&](const auto& entry) {
    const DockGroup* group = model_.FindGroup(entry.first);
    return group == nullptr || group->area == Area::Document;
  });
  std::erase_if(floats_, [&](const auto& entry) {
    const DockGroup* group = model_.FindGroup(entry.first);
    return group == nullptr || group->area != Area::Floating;
  });
}

FrameContent WindowManager::ContentOf(const DockGroup& group) const {
  FrameContent content;
  content.front = model_.FrontItem(group);
  content.pinned = group.pinned;
  for (const ItemId item : model_.VisibleItems(group)) {
    const ManagedWindow* managed = Find(item);
    if (managed == nullptr) continue;
    content.tabs.push_back({item, managed->title, managed->image});
    content.windows.push_back(managed->window);
    content.canCollapse = content.canCollapse || (IsSide(group.area) && model_.FindItem(item)->collapsible);
  }
  return content;
}

void WindowManager::PlaceFrames() {
  const Rect& document = arrangement_.document;
  SetWindowPos(documents_.window(), nullptr, document.left, document.top, document.width(), document.height(),
               SWP_NOZORDER | SWP_NOACTIVATE);
  for (const DockGroup& group : model_.groups()) {
    if (group.area == Area::Document) continue;
    DockFrame& frame = FrameFor(group);
    frame.SetContent(ContentOf(group));
    frame.SetActive(active_ != 0 && model_.FrontItem(group) == active_);
    if (group.area == Area::Floating) {
      FloatingFor(group).Place(group.floating, model_.IsVisible(group));
      ShowWindow(frame.window(), SW_SHOWNA);
      continue;
    }
    const GroupPlace* pane = arrangement_.FindPane(group.id);
    const bool popped = group.id == poppedOut_;
    if (pane == nullptr && !popped) {
      ShowWindow(frame.window(), SW_HIDE);
      continue;
    }
    const Rect place =
        pane != nullptr ? pane->rect : PopOutRect(model_, arrangement_, group.id, theme_.dockMetrics());
    SetWindowPos(frame.window(), popped ? HWND_TOP : HWND_BOTTOM, place.left, place.top, place.width(),
                 place.height(), SWP_NOACTIVATE | SWP_SHOWWINDOW);
  }
}

void WindowManager::UpdateEdges() {
  site_.SetArrangement(arrangement_);
  for (const Side side : {Side::Left, Side::Right, Side::Top, Side::Bottom}) {
    std::vector<Tab> tabs;
    ItemId shown = 0;
    for (const DockGroup* group : model_.GroupsIn(AreaOf(side))) {
      if (group->pinned) continue;
      if (group->id == poppedOut_) shown = model_.FrontItem(*group);
      for (const ItemId item : model_.VisibleItems(*group)) {
        const ManagedWindow* managed = Find(item);
        if (managed != nullptr) tabs.push_back({item, managed->title, managed->image});
      }
    }
    site_.SetEdgeTabs(side, std::move(tabs), shown);
  }
  site_.SetTimerOn(poppedOut_ != 0);
}

// A usable place for a floating window: big enough to take hold of, and on a screen that exists.
Rect WindowManager::FloatingRectFor(const DockGroup& group, const Rect& wanted) const {
  Rect rect = wanted;
  const int least = theme_.Scale(120);
  if (rect.empty() && group.floating.empty()) {
    const Rect site = ScreenRect(site_.ClientArea());
    const Size size = {std::max(site.width() * 3 / 5, least), std::max(site.height() * 3 / 5, least)};
    rect = {site.left + site.width() / 5, site.top + site.height() / 5, 0, 0};
    rect.right = rect.left + size.width;
    rect.bottom = rect.top + size.height;
  }
  rect.right = std::max(rect.right, rect.left + least);
  rect.bottom = std::max(rect.bottom, rect.top + least);
  const RECT asked = ToRECT(rect);
  MONITORINFO monitor = {};
  monitor.cbSize = sizeof monitor;
  if (!GetMonitorInfoW(MonitorFromRect(&asked, MONITOR_DEFAULTTONEAREST), &monitor)) return rect;
  return KeepInside(rect, ToRect(monitor.rcWork));
}

Rect WindowManager::ScreenRect(const Rect& rect) const {
  RECT mapped = ToRECT(rect);
  MapWindowPoints(site_.window(), nullptr, reinterpret_cast<POINT*>(&mapped), 2);
  return ToRect(mapped);
}

void WindowManager::ResetLayout() {
  store_.Clear();
  const Rect site = site_.ClientArea();
  for (const Side side : {Side::Left, Side::Right}) model_.SetExtent(side, theme_.Scale(300));
  // The same share of the height that a window gets that was never placed before.
  for (const Side side : {Side::Top, Side::Bottom}) model_.SetExtent(side, site.height() / 2 * 9 / 10);
  std::vector<ItemId> items;
  for (const auto& [item, managed] : windows_) items.push_back(item);
  for (const ItemId item : items) {
    const ManagedWindow& managed = *Find(item);
    DockTarget target;
    target.area = managed.method == 0   ? Area::Document
                  : managed.method == 2 ? Area::Floating
                                        : static_cast<Area>(std::min<int>(managed.position, 3));
    model_.SetVisible(item, true);
    MoveTo(item, false, target);
  }
}

}  // namespace workbench
