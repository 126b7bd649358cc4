// The visible side of a group of docked windows: caption strip with title and buttons, the window in front,
// and tabs when several share the place. A child of the dock site, or of a floating frame.
#pragma once

#include "workbench/app/layout/dock_model.h"
#include "workbench/app/ui/tab_strip.h"
#include "workbench/app/ui/theme.h"
#include "workbench/app/ui/window_base.h"

namespace workbench {

// What a frame asks of the window manager. The frame may be gone when a call returns.
class DockFrameOwner {
 public:
  virtual void OnFrameTab(ItemId item) = 0;
  virtual void OnFrameClose(ItemId item) = 0;
  virtual void OnFramePin(GroupId group) = 0;
  virtual void OnFrameToggle(ItemId item) = 0;  // double click on the caption
  virtual void OnFrameMenu(ItemId item, POINT screen) = 0;
  virtual void OnFrameClicked(ItemId item) = 0;
  // The user drags the caption (item 0: the whole group) or one tab.
  virtual void OnFrameDrag(GroupId group, ItemId item, POINT screen) = 0;

 protected:
  ~DockFrameOwner() = default;
};

struct FrameContent {
  std::vector<Tab> tabs;      // ids are item ids
  std::vector<HWND> windows;  // parallel to tabs
  ItemId front = 0;
  bool canCollapse = false;  // shows the pin
  bool pinned = true;
};

class DockFrame : public WindowBase<DockFrame> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchDockFrame";
  static std::span<const MessageHandler> Handlers();

  DockFrame(GroupId group, HWND parent, DockFrameOwner& owner, const Theme& theme);
  ~DockFrame() { DestroyNow(); }

  GroupId group() const { return group_; }
  void SetContent(FrameContent content);
  const FrameContent& content() const { return content_; }
  void SetActive(bool active);
  // Puts the window in front to its place and hides the others.
  void PlaceContent();

  // Places of the parts in client coordinates; for the mouse and for tests.
  Rect CaptionRect() const;
  Rect CloseRect() const { return ButtonRect(kClose); }
  Rect PinRect() const { return ButtonRect(kPin); }
  Rect MenuRect() const { return ButtonRect(kMenu); }
  Rect TabRect(ItemId item) const { return tabs_.TabRect(item); }
  Rect ContentRect() const;

 private:
  enum Button { kNoButton = -1, kClose, kPin, kMenu, kButtonCount };

  Rect ButtonRect(Button button) const;
  Button ButtonAt(Point at) const;
  int TabStripHeight() const;
  const std::wstring& Title() const;
  void DrawCaption(HDC dc);
  void SetHover(Button button);
  void EndPress();

  LRESULT OnPaint(const Message&);
  LRESULT OnErase(const Message&);
  LRESULT OnSize(const Message&);
  LRESULT OnMouseMove(const Message&);
  LRESULT OnMouseLeave(const Message&);
  LRESULT OnButtonDown(const Message&);
  LRESULT OnButtonUp(const Message&);
  LRESULT OnDoubleClick(const Message&);
  LRESULT OnRightUp(const Message&);
  LRESULT OnCaptureChanged(const Message&);

  GroupId group_;
  DockFrameOwner& owner_;
  const Theme& theme_;
  FrameContent content_;
  TabStrip tabs_{TabLook::Bottom};
  bool active_ = false;
  Button hover_ = kNoButton;
  Button pressed_ = kNoButton;
  bool dragArmed_ = false;  // the button went down on the caption or a tab
  ItemId dragTab_ = 0;      // that tab; 0 for the caption
  POINT dragStart_ = {};    // client coordinates
};

}  // namespace workbench
