// The window manager: takes windows in, docks, tabs, collapses and floats them as their owners and the user
// ask, and remembers their places. Behind interface 3 of the host services.
//
// All calls on the user-interface thread. A managed window may be destroyed at any time; the manager then
// forgets it.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>

#include "workbench/app/docking/dock_frame.h"
#include "workbench/app/docking/dock_site.h"
#include "workbench/app/docking/document_area.h"
#include "workbench/app/docking/drag_preview.h"
#include "workbench/app/docking/floating_frame.h"
#include "workbench/app/docking/placement_store.h"
#include "workbench/app/layout/drop_target.h"

namespace workbench {

inline constexpr std::int32_t kStateNormal =
    1;  // window state of a window that cannot be collapsed where it is

// A window that wants a place.
struct DockRequest {
  std::string guid;       // its place is remembered under this name
  HWND window = nullptr;  // top-level window of the same thread, or a child window of the workbench itself
  std::wstring title;
  std::uint16_t method = 5;    // host::kMethod...
  std::uint16_t position = 3;  // host::kDock...
  std::shared_ptr<const TabImage> image;
  bool ofWorkbench = false;  // a window of the workbench's own: gets no notifications, closing hides it
};

struct DockAnswer {
  bool remembered = false;  // the place is the one of an earlier run
  Rect rect;                // that place, in screen pixels
};

class WindowManager final : private DockFrameOwner,
                            private FloatingFrameOwner,
                            private DockSiteOwner,
                            private DocumentPageOwner {
 public:
  WindowManager(HWND mainWindow, const Theme& theme, PlacementStore store);
  ~WindowManager();
  WindowManager(const WindowManager&) = delete;
  WindowManager& operator=(const WindowManager&) = delete;

  // ---- What the host services offer; unknown windows are ignored, or give 0 ----
  bool Adopt(const DockRequest& request, DockAnswer* answer);
  void SetSize(HWND window, int width, int height, int code);
  void SetPosition(HWND window, int left, int top);
  void SetState(HWND window, std::int32_t state);
  std::int32_t GetState(HWND window) const;
  void ShowDockingMenu(HWND window, POINT screen);
  bool StoredRectangle(const std::string& guid, Rect* screenRect) const;
  void Show(HWND window, bool show);

  // ---- What the main window and tests use ----
  DockSite& site() { return site_; }
  DocumentArea& documents() { return documents_; }
  const DockModel& model() const { return model_; }
  const Arrangement& arrangement() const { return arrangement_; }
  UINT notificationMessage() const { return notification_; }
  bool isNotifying() const { return notifying_ > 0; }
  ItemId ItemOf(HWND window) const;
  HWND WindowOf(const std::string& guid) const;
  bool IsShown(HWND window) const;
  // The frame around a docked or floating window; null for one in the document area, or an unknown one.
  DockFrame* FrameOf(HWND window) const;
  GroupId poppedOut() const { return poppedOut_; }
  const Rect& dragPreview() const { return preview_.shown(); }
  void MoveWindowTo(HWND window, const DockTarget& target);  // as the user does by the docking menu
  void RequestClose(HWND window);                            // as the user does by the close button
  void ResetLayout();
  void SaveAll() const;
  void FocusNext(int step);  // keyboard focus to the next shown window
  void RestoreFocus();       // keyboard focus to the window that was active last, when it still shows
  // Titles of the managed windows, hidden ones too, with whether they show; for menus.
  struct WindowFacts {
    HWND window;
    std::wstring title;
    bool shown;
  };
  std::vector<WindowFacts> Windows() const;

 private:
  struct ManagedWindow {
    ItemId item = 0;
    HWND window = nullptr;
    std::string guid;
    std::wstring title;
    std::shared_ptr<const TabImage> image;
    std::uint16_t method = 5;
    std::uint16_t position = 3;
    bool ofWorkbench = false;
    LONG_PTR styleBefore = 0;
    int page = 0;          // number in the document area while it shows there
    HWND focus = nullptr;  // what in it had the keyboard focus last
  };

  // window_manager.cpp
  bool IsAdoptable(const DockRequest& request) const;
  ItemId AddToModel(const DockRequest& request, const std::optional<Placement>& placement);
  void Strip(ManagedWindow& managed);
  void Release(ManagedWindow& managed);
  void Forget(ItemId item);
  ManagedWindow* Find(ItemId item);
  const ManagedWindow* Find(ItemId item) const;
  const ManagedWindow* Find(HWND window) const;
  Placement CurrentPlacement(const ManagedWindow& managed) const;
  Rect PlaceOf(ItemId item) const;
  LRESULT Notify(ItemId item, std::uint16_t code);
  static LRESULT CALLBACK WatchWindow(HWND, UINT, WPARAM, LPARAM, UINT_PTR, DWORD_PTR);
  static LRESULT CALLBACK WatchFocus(int code, WPARAM first, LPARAM second);

  // window_manager_layout.cpp
  void ApplyLayout();
  void SyncFrames();
  void SyncParents();
  void SyncPages();
  void DropUnusedFrames();
  void PlaceFrames();
  void UpdateEdges();
  void ReleaseHiddenFocus();
  DockFrame& FrameFor(const DockGroup& group);
  FloatingFrame& FloatingFor(const DockGroup& group);
  FrameContent ContentOf(const DockGroup& group) const;
  Rect FloatingRectFor(const DockGroup& group, const Rect& wanted) const;
  Rect ScreenRect(const Rect& siteRect) const;
  void SetInitialExtent(const DockRequest& request, const Placement* placement);

  // window_manager_user.cpp
  void MoveTo(ItemId item, bool wholeGroup, const DockTarget& target);
  void Toggle(GroupId group);
  void CloseItem(ItemId item);
  void PopOut(ItemId item, bool withFocus);
  void HidePopOut();
  void BeginDrag(GroupId group, ItemId item, POINT screen);
  DropTarget TargetAt(POINT screen) const;
  void RunMenuCommand(ItemId item, UINT command);
  void SetActive(ItemId item);
  void GiveFocus(ItemId item);
  static HWND FocusTarget(const ManagedWindow& managed);

  void OnFrameTab(ItemId item) override;
  void OnFrameClose(ItemId item) override;
  void OnFramePin(GroupId group) override;
  void OnFrameToggle(ItemId item) override;
  void OnFrameMenu(ItemId item, POINT screen) override;
  void OnFrameClicked(ItemId item) override;
  void OnFrameResized(GroupId group, int growth) override;
  void OnFrameDrag(GroupId group, ItemId item, POINT screen) override;
  void OnFloatingPlaced(GroupId group, const Rect& rect) override;
  void OnFloatingClose(GroupId group) override;
  void OnSiteResized() override;
  void OnSplitterMoved(const Splitter& splitter, int delta) override;
  void OnSplitterReleased() override;
  void OnEdgeTab(ItemId item, bool clicked) override;
  void OnEdgeMenu(ItemId item, POINT screen) override;
  void OnSiteTimer() override;
  void OnFocusMoved() override;
  void OnDragMoved(POINT screen) override;
  void OnDragDropped(POINT screen) override;
  void OnDragCancelled() override;
  void OnPageActivated(int page) override;
  void OnPageClose(int page) override;
  void OnPageMenu(int page, POINT screen) override;
  void OnPageDrag(int page, POINT screen) override;
  ItemId ItemOfPage(int page) const;

  struct Drag {
    GroupId group = 0;
    ItemId item = 0;  // 0: the whole group
    Size grip;        // of the mouse in the window
    Size size;        // of the floating window that a drop outside makes
  };

  bool applying_ = true;  // first: the site reports its size while it is being created
  HWND mainWindow_;
  const Theme& theme_;
  PlacementStore store_;
  UINT notification_;
  DockModel model_;
  Arrangement arrangement_;
  std::map<ItemId, ManagedWindow> windows_;
  std::map<GroupId, std::unique_ptr<FloatingFrame>> floats_;
  DockSite site_;
  DocumentArea documents_;
  std::map<GroupId, std::unique_ptr<DockFrame>> frames_;
  DragPreview preview_;
  ItemId active_ = 0;
  ItemId lastActive_ = 0;
  GroupId poppedOut_ = 0;
  int ticksAway_ = 0;
  int notifying_ = 0;

  std::optional<Drag> drag_;
  HHOOK focusHook_ = nullptr;
};

}  // namespace workbench
