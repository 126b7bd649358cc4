// What the pane paints itself: the status line, the text of an empty list, and room that the list leaves out.
#include <algorithm>

#include "base/window/high_contrast.h"
#include "workbench/controls/fileview/list_pane.h"

namespace controls {

void ListPane::Paint() {
  PAINTSTRUCT paint;
  const HDC context = BeginPaint(hwnd(), &paint);
  PaintStatus(context);
  EndPaint(hwnd(), &paint);
}

void ListPane::PaintStatus(HDC context) {
  RECT rect;
  GetClientRect(hwnd(), &rect);
  rect.top = rect.bottom - StatusHeight();
  FillRect(context, &rect, GetSysColorBrush(COLOR_BTNFACE));
  RECT line = rect;
  line.bottom = line.top + 1;
  FillRect(context, &line, GetSysColorBrush(COLOR_BTNSHADOW));
  bool isError = false;
  const std::wstring text = owner_.StatusText(isError);
  if (text != statusText_) {
    statusText_ = text;
    SetWindowTextW(hwnd(), text.c_str());  // what is painted can be read by a screen reader too
  }
  rect.left += Scale(6);
  rect.right -= Scale(6);
  rect.top += 1;
  const HGDIOBJ old = SelectObject(context, font_ ? font_ : GetStockObject(DEFAULT_GUI_FONT));
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context,
               isError ? base::ContrastColor(RGB(160, 0, 0), COLOR_BTNTEXT) : GetSysColor(COLOR_BTNTEXT));
  DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &rect,
            DT_SINGLELINE | DT_VCENTER | DT_LEFT | DT_NOPREFIX | DT_END_ELLIPSIS);
  SelectObject(context, old);
}

void ListPane::PaintEmptyText() {
  if (SendMessageW(list_, LVM_GETITEMCOUNT, 0, 0) != 0) return;
  const std::wstring text = owner_.EmptyText();
  if (text.empty()) return;
  RECT rect;
  GetClientRect(list_, &rect);
  const auto header = reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETHEADER, 0, 0));
  if (header && IsWindowVisible(header)) {
    RECT headerRect;
    GetClientRect(header, &headerRect);
    rect.top += headerRect.bottom;
  }
  rect.top += Scale(14);
  rect.left += Scale(12);
  rect.right -= Scale(12);
  const HDC context = GetDC(list_);
  const HGDIOBJ old = SelectObject(context, font_ ? font_ : GetStockObject(DEFAULT_GUI_FONT));
  SetBkMode(context, TRANSPARENT);
  SetTextColor(context, GetSysColor(COLOR_GRAYTEXT));
  DrawTextW(context, text.c_str(), static_cast<int>(text.size()), &rect,
            DT_CENTER | DT_NOPREFIX | DT_WORDBREAK);
  SelectObject(context, old);
  ReleaseDC(list_, context);
}

// In columns of names the list keeps room for a scroll bar below them, also when there is none, and some
// versions of it never paint that room.
void ListPane::EraseBelowColumns(HDC context) const {
  if (view_ != ViewStyle::kList) return;
  RECT room;
  GetClientRect(list_, &room);
  constexpr int kEdge = 2;
  room.top = std::max<LONG>(room.top, room.bottom - GetSystemMetrics(SM_CYHSCROLL) - kEdge);
  const auto color = static_cast<COLORREF>(SendMessageW(list_, LVM_GETBKCOLOR, 0, 0));
  const COLORREF previous = SetBkColor(context, color);
  ExtTextOutW(context, 0, 0, ETO_OPAQUE, &room, nullptr, 0, nullptr);
  SetBkColor(context, previous);
}

}  // namespace controls
