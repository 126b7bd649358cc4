#include "workbench/app/ui/gdi_owners.h"

#include <algorithm>

namespace workbench {

OffscreenPaint::OffscreenPaint(HWND window) : window_(window) {
  const HDC screen = BeginPaint(window, &paint_);
  GetClientRect(window, &client_);
  buffer_ = CreateCompatibleDC(screen);
  bitmap_.reset(
      CreateCompatibleBitmap(screen, std::max(client_.right, LONG{1}), std::max(client_.bottom, LONG{1})));
  previous_ = SelectObject(buffer_, bitmap_.get());
}

OffscreenPaint::~OffscreenPaint() {
  BitBlt(paint_.hdc, 0, 0, client_.right, client_.bottom, buffer_, 0, 0, SRCCOPY);
  SelectObject(buffer_, previous_);
  DeleteDC(buffer_);
  EndPaint(window_, &paint_);
}

}  // namespace workbench
