// The tool window around a floating group: a border that resizes it, and the group's frame inside.
#pragma once

#include "workbench/app/docking/dock_frame.h"

namespace workbench {

class FloatingFrameOwner {
 public:
  // The user moved or resized the window; rect is its place on the screen.
  virtual void OnFloatingPlaced(GroupId group, const Rect& rect) = 0;
  // Alt+F4 on the window.
  virtual void OnFloatingClose(GroupId group) = 0;

 protected:
  ~FloatingFrameOwner() = default;
};

class FloatingFrame : public WindowBase<FloatingFrame> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchFloatingFrame";
  static std::span<const MessageHandler> Handlers();

  FloatingFrame(GroupId group, HWND mainWindow, FloatingFrameOwner& owner, const Theme& theme);
  ~FloatingFrame() { DestroyNow(); }

  // Takes a frame in; it fills the window inside the border.
  void Hold(HWND frame);
  void Place(const Rect& screenRect, bool visible);
  int border() const { return theme_.Scale(4); }

 private:
  struct Edges {
    int horizontal = 0;  // -1 left, 1 right
    int vertical = 0;    // -1 top, 1 bottom
    bool any() const { return horizontal != 0 || vertical != 0; }
  };
  Edges EdgesAt(POINT client) const;

  LRESULT OnPaint(const Message&);
  LRESULT OnErase(const Message&);
  LRESULT OnSize(const Message&);
  LRESULT OnSetCursor(const Message&);
  LRESULT OnButtonDown(const Message&);
  LRESULT OnMouseMove(const Message&);
  LRESULT OnButtonUp(const Message&);
  LRESULT OnClose(const Message&);

  GroupId group_;
  FloatingFrameOwner& owner_;
  const Theme& theme_;
  HWND frame_ = nullptr;
  Edges sizing_;
  POINT grabbed_ = {};   // screen point at which sizing began
  RECT startRect_ = {};  // the window's place at that time
};

}  // namespace workbench
