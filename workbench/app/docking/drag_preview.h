// The frame that shows where a dragged window would go.
#pragma once

#include "workbench/app/layout/geometry.h"
#include "workbench/app/ui/theme.h"
#include "workbench/app/ui/window_base.h"

namespace workbench {

class DragPreview : public WindowBase<DragPreview> {
 public:
  static constexpr wchar_t kClassName[] = L"WorkbenchDragPreview";
  static std::span<const MessageHandler> Handlers();

  DragPreview(HWND mainWindow, const Theme& theme);
  // Shows the frame around a place on the screen; an empty rectangle hides it.
  void Show(const Rect& screenRect);
  const Rect& shown() const { return shown_; }

 private:
  LRESULT OnPaint(const Message&);

  const Theme& theme_;
  Rect shown_;
};

}  // namespace workbench
