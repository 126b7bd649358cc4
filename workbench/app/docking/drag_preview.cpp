#include "workbench/app/docking/drag_preview.h"

namespace workbench {

std::span<const DragPreview::MessageHandler> DragPreview::Handlers() {
  static constexpr MessageHandler kHandlers[] = {{WM_PAINT, &DragPreview::OnPaint}};
  return kHandlers;
}

DragPreview::DragPreview(HWND mainWindow, const Theme& theme) : theme_(theme) {
  // A hollow region instead of a translucent window: it looks the same with and without a desktop that
  // composes.
  CreateWindowAt(WS_EX_TOOLWINDOW | WS_EX_TOPMOST | WS_EX_NOACTIVATE | WS_EX_TRANSPARENT,
                 WS_POPUP | WS_DISABLED, RECT{}, mainWindow);
}

void DragPreview::Show(const Rect& rect) {
  if (rect == shown_) return;
  shown_ = rect;
  if (rect.empty()) {
    ShowWindow(window(), SW_HIDE);
    return;
  }
  const int thick = theme_.Scale(5);
  const HRGN frame = CreateRectRgn(0, 0, rect.width(), rect.height());
  const HRGN hole = CreateRectRgn(thick, thick, rect.width() - thick, rect.height() - thick);
  if (rect.width() > 2 * thick && rect.height() > 2 * thick) CombineRgn(frame, frame, hole, RGN_DIFF);
  DeleteObject(hole);
  SetWindowRgn(window(), frame, FALSE);  // the system owns the region from here on
  SetWindowPos(window(), HWND_TOPMOST, rect.left, rect.top, rect.width(), rect.height(),
               SWP_NOACTIVATE | SWP_SHOWWINDOW);
  InvalidateRect(window(), nullptr, FALSE);
}

LRESULT DragPreview::OnPaint(const Message&) {
  const OffscreenPaint paint(window());
  FillColor(paint.dc(), ToRect(paint.client()), theme_.colors().accent);
  return 0;
}

}  // namespace workbench
