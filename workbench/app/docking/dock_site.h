// The part of the main window in which windows are docked: draws the bars between areas and the strips of
// collapsed windows, and follows the mouse while a bar or a window is dragged. Parent of the frames and the
// document area.
#pragma once

#include <array>
#include <optional>

#include "workbench/app/layout/arrange.h"
#include "workbench/app/ui/tab_strip.h"
#include "workbench/app/ui/window_base.h"

namespace workbench {

class DockSiteOwner {
 public:
  virtual void OnSiteResized() = 0;
  // A bar is dragged; delta is how far it still is from the mouse.
  virtual void OnSplitterMoved(const Splitter& splitter, int delta) = 0;
  virtual void OnSplitterReleased() = 0;
  virtual void OnEdgeTab(ItemId item, bool clicked) = 0;
  virtual void OnEdgeMenu(ItemId item, POINT screen) = 0;
  virtual void OnSiteTimer() = 0;
  virtual void OnFocusMoved() = 0;  // some time after the keyboard focus went to another window
  virtual void OnDragMoved(POINT screen) = 0;
  virtual void OnDragDropped(POINT screen) = 0;
  virtual void OnDragCancelled() = 0;

 protected:
  ~DockSiteOwner() = default;
};

class DockSite : public WindowBase<DockSite> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchDockSite";
  static std::span<const MessageHandler> Handlers();

  DockSite(HWND parent, DockSiteOwner& owner, const Theme& theme);
  ~DockSite() { DestroyNow(); }

  Rect ClientArea() const;
  void SetArrangement(const Arrangement& arrangement);
  void SetEdgeTabs(Side side, std::vector<Tab> tabs, ItemId shown);
  // Place of a collapsed window's tab, in client coordinates; empty when it has none.
  Rect EdgeTabRect(ItemId item) const;
  // Takes the mouse for the dragging of a window; the owner hears of its moves until it is dropped or
  // cancelled.
  void BeginWindowDrag();
  void SetTimerOn(bool on);

  // Posted to the window by whoever sees the focus move.
  static constexpr UINT kFocusMovedMessage = WM_APP + 1;

 private:
  struct SplitterDrag {
    Splitter splitter;
    int grip = 0;  // offset of the mouse in the bar
  };

  ItemId EdgeItemAt(Point at) const;
  const Splitter* SameSplitter(const Splitter& wanted) const;
  void UpdateEdgeHover(std::optional<Point> at);
  void DrawSplitter(HDC dc, const Splitter& splitter) const;

  LRESULT OnPaint(const Message&);
  LRESULT OnErase(const Message&);
  LRESULT OnSize(const Message&);
  LRESULT OnSetCursor(const Message&);
  LRESULT OnMouseMove(const Message&);
  LRESULT OnMouseHover(const Message&);
  LRESULT OnMouseLeave(const Message&);
  LRESULT OnButtonDown(const Message&);
  LRESULT OnButtonUp(const Message&);
  LRESULT OnRightUp(const Message&);
  LRESULT OnCaptureChanged(const Message&);
  LRESULT OnTimer(const Message&);
  LRESULT OnFocusMoved(const Message&);

  DockSiteOwner& owner_;
  const Theme& theme_;
  Arrangement arrangement_;
  std::array<TabStrip, kSideCount> edges_;
  std::optional<SplitterDrag> splitterDrag_;
  bool windowDrag_ = false;
};

}  // namespace workbench
