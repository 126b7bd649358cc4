// What the user does with the mouse: tabs, buttons, bars, dragging, the docking menu.
#include <algorithm>

#include "src/host/host_services.h"
#include "workbench/app/docking/window_manager.h"

namespace workbench {
namespace {

enum MenuCommand : UINT {
  kMenuDockLeft = 1,  // + host::kDock... for the other sides
  kMenuDocument = 10,
  kMenuFloat = 11,
  kMenuCollapse = 12,
  kMenuClose = 13,
};

constexpr int kTicksUntilHidden = 4;  // of the site's timer, while the mouse is away

UINT MenuState(bool enabled, bool checked) {
  return static_cast<UINT>(MF_STRING | (enabled ? MF_ENABLED : MF_GRAYED) |
                           (checked ? MF_CHECKED : MF_UNCHECKED));
}

}  // namespace

void WindowManager::MoveWindowTo(HWND window, const DockTarget& target) {
  MoveTo(ItemOf(window), false, target);
}

void WindowManager::MoveTo(ItemId item, bool wholeGroup, const DockTarget& asked) {
  const DockGroup* group = model_.GroupOf(item);
  if (group == nullptr) return;
  DockTarget target = asked;
  if (target.area == Area::Document && target.joins == 0) {
    const std::vector<const DockGroup*> pages = model_.GroupsIn(Area::Document);
    if (!pages.empty()) target.joins = pages.front()->id;
    if (target.joins == group->id) return;
  }
  if (target.area == Area::Floating)
    target.floating = FloatingRectFor(*group, target.floating.empty() ? group->floating : target.floating);
  const std::vector<ItemId> moved = wholeGroup ? group->items : std::vector<ItemId>{item};
  const bool done = wholeGroup ? model_.MoveGroup(group->id, target) : model_.MoveItem(item, target);
  if (!done) return;
  // A window that joins a collapsed group shows; it would seem lost otherwise.
  if (target.joins != 0) model_.SetPinned(target.joins, true);
  ApplyLayout();
  SaveAll();
  const bool floats = target.area == Area::Floating;
  for (const ItemId each : moved) Notify(each, floats ? host::kNotifyFloated : host::kNotifyDocked);
  const ManagedWindow* managed = Find(item);
  if (managed != nullptr && managed->page != 0) documents_.Activate(managed->page);
}

void WindowManager::Toggle(GroupId id) {
  const DockGroup* group = model_.FindGroup(id);
  if (group == nullptr || !model_.SetPinned(id, !group->pinned)) return;
  poppedOut_ = 0;
  ApplyLayout();
  SaveAll();
  group = model_.FindGroup(id);
  const std::vector<ItemId> items = model_.VisibleItems(*group);
  for (const ItemId item : items) Notify(item, host::kNotifyStateSet);
}

void WindowManager::RequestClose(HWND window) {
  CloseItem(ItemOf(window));
}

void WindowManager::CloseItem(ItemId item) {
  if (item == 0 || Notify(item, host::kNotifyClose) != 0) return;
  // The window may be gone by now; a window that still exists is kept, hidden, until it is shown again.
  if (Find(item) == nullptr) return;
  model_.SetVisible(item, false);
  ApplyLayout();
}

void WindowManager::OnFrameTab(ItemId item) {
  const bool changed = model_.Activate(item);
  ApplyLayout();
  GiveFocus(item);
  if (changed) Notify(item, host::kNotifyTabbed);
}

void WindowManager::OnFrameClose(ItemId item) {
  CloseItem(item);
}

void WindowManager::OnFramePin(GroupId group) {
  Toggle(group);
}

// The window decides first; one that does not toggle its state floats, or goes back to its side.
void WindowManager::OnFrameToggle(ItemId item) {
  if (Notify(item, host::kNotifyToggle) != 0) return;
  const ManagedWindow* managed = Find(item);
  if (managed == nullptr) return;
  const DockGroup& group = *model_.GroupOf(item);
  const bool collapses = managed->ofWorkbench && IsSide(group.area) && model_.FindItem(item)->collapsible;
  if (collapses) {
    Toggle(group.id);
    return;
  }
  DockTarget target;
  target.area =
      group.area == Area::Floating ? static_cast<Area>(std::min<int>(managed->position, 3)) : Area::Floating;
  MoveTo(item, true, target);
}

void WindowManager::OnFrameMenu(ItemId item, POINT screen) {
  const ManagedWindow* managed = Find(item);
  if (managed != nullptr) ShowDockingMenu(managed->window, screen);
}

void WindowManager::OnFrameClicked(ItemId item) {
  GiveFocus(item);
}

void WindowManager::OnFrameResized(GroupId group, int growth) {
  const DockGroup* found = model_.FindGroup(group);
  const auto frame = frames_.find(group);
  if (found == nullptr || frame == frames_.end() || !IsSide(found->area)) return;
  RECT rect = {};
  GetWindowRect(frame->second->window(), &rect);
  const Side side = SideOf(found->area);
  const int extent = static_cast<int>(IsVertical(side) ? rect.right - rect.left : rect.bottom - rect.top);
  model_.SetExtent(side, std::max(extent + growth, theme_.dockMetrics().minPane));
  ApplyLayout();
}

void WindowManager::OnFrameDrag(GroupId group, ItemId item, POINT screen) {
  BeginDrag(group, item, screen);
}

void WindowManager::GiveFocus(ItemId item) {
  const ManagedWindow* managed = Find(item);
  if (managed == nullptr) return;
  const HWND focus = GetFocus();
  if (focus != managed->window && !IsChild(managed->window, focus)) SetFocus(FocusTarget(*managed));
}

// Where the focus was before it went elsewhere: a list that lost it to a question gets it back.
HWND WindowManager::FocusTarget(const ManagedWindow& managed) {
  const bool usable = IsChild(managed.window, managed.focus) && IsWindowVisible(managed.focus) &&
                      IsWindowEnabled(managed.focus);
  return usable ? managed.focus : managed.window;
}

void WindowManager::ShowDockingMenu(HWND window, POINT screen) {
  const ItemId item = ItemOf(window);
  const DockGroup* group = model_.GroupOf(item);
  if (group == nullptr) return;
  const UniqueMenu menu(CreatePopupMenu());
  const wchar_t* const sides[] = {L"Dock at the &left", L"Dock at the &right", L"Dock at the &top",
                                  L"Dock at the &bottom"};
  for (UINT i = 0; i < 4; ++i) {
    AppendMenuW(menu.get(), MenuState(true, group->area == static_cast<Area>(i)), kMenuDockLeft + i,
                sides[i]);
  }
  AppendMenuW(menu.get(), MenuState(true, group->area == Area::Document), kMenuDocument, L"&Document tab");
  AppendMenuW(menu.get(), MenuState(true, group->area == Area::Floating), kMenuFloat, L"&Float");
  AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
  const std::int32_t state = GetState(window);
  AppendMenuW(menu.get(),
              MenuState(state == host::kStateExpanded || state == host::kStateCollapsed,
                        state == host::kStateCollapsed),
              kMenuCollapse, L"&Collapse to the edge");
  AppendMenuW(menu.get(), MF_STRING, kMenuClose, L"Cl&ose");
  const UINT command =
      static_cast<UINT>(TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_NONOTIFY | TPM_RIGHTBUTTON, screen.x,
                                       screen.y, 0, mainWindow_, nullptr));
  RunMenuCommand(item, command);
}

void WindowManager::RunMenuCommand(ItemId item, UINT command) {
  const DockGroup* group = model_.GroupOf(item);
  if (group == nullptr || command == 0) return;
  DockTarget target;
  if (command >= kMenuDockLeft && command < kMenuDockLeft + 4) {
    target.area = static_cast<Area>(command - kMenuDockLeft);
    if (group->area != target.area) MoveTo(item, false, target);
  } else if (command == kMenuDocument || command == kMenuFloat) {
    target.area = command == kMenuDocument ? Area::Document : Area::Floating;
    if (group->area != target.area) MoveTo(item, false, target);
  } else if (command == kMenuCollapse) {
    Toggle(group->id);
  } else {
    CloseItem(item);
  }
}

void WindowManager::OnFloatingPlaced(GroupId group, const Rect& rect) {
  DockGroup* found = model_.FindGroup(group);
  if (found == nullptr) return;
  found->floating = FloatingRectFor(*found, rect);
  ApplyLayout();
  SaveAll();
}

void WindowManager::OnFloatingClose(GroupId group) {
  const DockGroup* found = model_.FindGroup(group);
  if (found != nullptr) CloseItem(model_.FrontItem(*found));
}

void WindowManager::OnSiteResized() {
  ApplyLayout();
}

void WindowManager::OnSplitterMoved(const Splitter& splitter, int delta) {
  MoveSplitter(model_, arrangement_, splitter, delta, theme_.dockMetrics());
  ApplyLayout();
  UpdateWindow(site_.window());
}

void WindowManager::OnSplitterReleased() {
  SaveAll();
}

void WindowManager::OnEdgeTab(ItemId item, bool clicked) {
  const DockGroup* group = model_.GroupOf(item);
  if (group == nullptr) return;
  const bool shows = group->id == poppedOut_ && model_.FrontItem(*group) == item;
  if (shows && clicked) {
    HidePopOut();
  } else if (!shows) {
    PopOut(item, clicked);
  }
}

void WindowManager::OnEdgeMenu(ItemId item, POINT screen) {
  OnFrameMenu(item, screen);
}

void WindowManager::PopOut(ItemId item, bool withFocus) {
  model_.Activate(item);
  poppedOut_ = model_.GroupOf(item)->id;
  ticksAway_ = 0;
  ApplyLayout();
  if (withFocus) GiveFocus(item);
}

void WindowManager::HidePopOut() {
  if (poppedOut_ == 0) return;
  const DockGroup* group = model_.FindGroup(poppedOut_);
  const ManagedWindow* front = group == nullptr ? nullptr : Find(model_.FrontItem(*group));
  const bool hadFocus =
      front != nullptr && (GetFocus() == front->window || IsChild(front->window, GetFocus()));
  poppedOut_ = 0;
  ApplyLayout();
  if (hadFocus) SetFocus(mainWindow_);
}

// A popped-out window goes back to the edge when neither the mouse nor the focus is in it.
void WindowManager::OnSiteTimer() {
  const auto frame = frames_.find(poppedOut_);
  if (poppedOut_ == 0 || frame == frames_.end()) return;
  const HWND window = frame->second->window();
  POINT mouse = {};
  GetCursorPos(&mouse);
  const HWND under = WindowFromPoint(mouse);
  const HWND focus = GetFocus();
  const bool busy = under == window || IsChild(window, under) || IsChild(window, focus) ||
                    under == site_.window() || GetCapture() != nullptr;
  ticksAway_ = busy ? 0 : ticksAway_ + 1;
  if (ticksAway_ >= kTicksUntilHidden) HidePopOut();
}

void WindowManager::OnFocusMoved() {
  const HWND focus = GetFocus();
  ItemId item = 0;
  for (auto& [id, managed] : windows_) {
    if (focus != managed.window && !IsChild(managed.window, focus)) continue;
    item = id;
    managed.focus = focus;
  }
  if (poppedOut_ != 0 && item != 0 && model_.GroupOf(item)->id != poppedOut_) HidePopOut();
  // Focus that left the program altogether leaves the active window what it is.
  if (focus != nullptr) SetActive(item);
}

void WindowManager::SetActive(ItemId item) {
  if (item == active_) return;
  active_ = item;
  if (item != 0) lastActive_ = item;
  for (const auto& [group, frame] : frames_) {
    const DockGroup* facts = model_.FindGroup(group);
    frame->SetActive(facts != nullptr && active_ != 0 && model_.FrontItem(*facts) == active_);
  }
  if (item != 0) Notify(item, host::kNotifyActivated);
}

void WindowManager::FocusNext(int step) {
  std::vector<ItemId> shown;
  for (const auto& [item, managed] : windows_) {
    if (IsWindowVisible(managed.window)) shown.push_back(item);
  }
  if (shown.empty()) return;
  const auto at = std::find(shown.begin(), shown.end(), active_);
  const int count = static_cast<int>(shown.size());
  const int now = at == shown.end() ? (step > 0 ? -1 : 0) : static_cast<int>(at - shown.begin());
  GiveFocus(shown[static_cast<size_t>((now + step + count) % count)]);
}

void WindowManager::RestoreFocus() {
  const ManagedWindow* managed = Find(lastActive_);
  if (managed != nullptr && IsWindowVisible(managed->window)) SetFocus(FocusTarget(*managed));
}

void WindowManager::BeginDrag(GroupId group, ItemId item, POINT screen) {
  const DockGroup* found = model_.FindGroup(group);
  if (found == nullptr) return;
  Drag drag;
  drag.group = group;
  drag.item = item;
  const Rect now = PlaceOf(item != 0 ? item : model_.FrontItem(*found));
  const Rect site = site_.ClientArea();
  // What floats after a drop is not larger than most of the room, so that docking it again stays easy.
  drag.size = {std::min(now.width(), std::max(site.width() * 3 / 5, theme_.Scale(200))),
               std::min(now.height(), std::max(site.height() * 3 / 5, theme_.Scale(160)))};
  if (found->area == Area::Floating || !found->floating.empty()) {
    drag.size = {found->floating.width(), found->floating.height()};
  }
  drag.grip = {Limit(static_cast<int>(screen.x) - now.left, 0, drag.size.width),
               Limit(static_cast<int>(screen.y) - now.top, 0, theme_.captionHeight())};
  poppedOut_ = poppedOut_ == group ? 0 : poppedOut_;
  drag_ = drag;
  ApplyLayout();
  site_.BeginWindowDrag();
  OnDragMoved(screen);
}

DropTarget WindowManager::TargetAt(POINT screen) const {
  POINT inSite = screen;
  ScreenToClient(site_.window(), &inSite);
  DropTarget target =
      FindDropTarget(model_, arrangement_, ToPoint(inSite), drag_->group, drag_->item == 0, theme_.Scale(28));
  if (target.floats) {
    const int left = static_cast<int>(screen.x) - drag_->grip.width;
    const int top = static_cast<int>(screen.y) - drag_->grip.height;
    target.place.floating = {left, top, left + drag_->size.width, top + drag_->size.height};
    target.preview = target.place.floating;
  } else {
    target.preview = ScreenRect(target.preview);
  }
  return target;
}

void WindowManager::OnDragMoved(POINT screen) {
  if (!drag_) return;
  if ((GetAsyncKeyState(VK_ESCAPE) & 0x8000) != 0) {
    ReleaseCapture();  // the site then cancels the drag
    return;
  }
  preview_.Show(TargetAt(screen).preview);
}

void WindowManager::OnDragDropped(POINT screen) {
  if (!drag_) return;
  const DropTarget target = TargetAt(screen);
  const Drag drag = *drag_;
  OnDragCancelled();
  const DockGroup* group = model_.FindGroup(drag.group);
  if (group != nullptr)
    MoveTo(drag.item != 0 ? drag.item : model_.FrontItem(*group), drag.item == 0, target.place);
}

void WindowManager::OnDragCancelled() {
  drag_.reset();
  preview_.Show({});
}

ItemId WindowManager::ItemOfPage(int page) const {
  for (const auto& [item, managed] : windows_) {
    if (managed.page == page) return item;
  }
  return 0;
}

void WindowManager::OnPageActivated(int page) {
  const ItemId item = ItemOfPage(page);
  if (item == 0) return;
  model_.Activate(item);
  Notify(item, host::kNotifyTabbed);
}

void WindowManager::OnPageClose(int page) {
  CloseItem(ItemOfPage(page));
}

void WindowManager::OnPageMenu(int page, POINT screen) {
  OnFrameMenu(ItemOfPage(page), screen);
}

void WindowManager::OnPageDrag(int page, POINT screen) {
  const ItemId item = ItemOfPage(page);
  const DockGroup* group = model_.GroupOf(item);
  if (group != nullptr) BeginDrag(group->id, item, screen);
}

}  // namespace workbench
