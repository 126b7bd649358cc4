#include "src/explorer/toolbar_builder.h"

#include <cstring>

#include "base/text/code_page.h"

namespace file_explorer {
namespace {

constexpr int kImageWidth = 16;
constexpr int kImageHeight = 15;
constexpr COLORREF kMaskColor = RGB(251, 195, 0);
constexpr int kInitialImages = 6;
constexpr int kGrowImages = 4;
constexpr int kLabelLeft = 6;
constexpr int kLabelRoom = 12;  // what button 128 is wider than its label

void AddButton(HWND toolbar, const ToolbarButton& row) {
  TBBUTTON button = {};
  button.iBitmap = row.image;
  button.idCommand = row.command;
  button.fsState = TBSTATE_ENABLED;
  button.fsStyle = static_cast<BYTE>(row.style);
  if (row.style != ButtonStyle::Separator) button.fsStyle |= BTNS_AUTOSIZE;
  button.iString = -1;  // no text
  SendMessageA(toolbar, TB_ADDBUTTONSA, 1, reinterpret_cast<LPARAM>(&button));
}

}  // namespace

unique_himagelist LoadToolbarImages(HINSTANCE instance) {
  unique_himagelist images(
      ImageList_Create(kImageWidth, kImageHeight, ILC_COLOR24 | ILC_MASK, kInitialImages, kGrowImages));
  const unique_hbitmap strip(LoadBitmapA(instance, "ToolbarBitmaps1"));
  if (!images || !strip || ImageList_AddMasked(images.get(), strip.get(), kMaskColor) < 0) images.reset();
  return images;
}

HWND CreateToolbarFromTable(const ToolbarRequest& request) {
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_CLIPSIBLINGS | TBSTYLE_LIST | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS |
                      (request.atBottom ? CCS_BOTTOM : CCS_TOP);
  const HWND toolbar = CreateWindowExA(0, TOOLBARCLASSNAMEA, "", style, 0, 0, 100, 30, request.parent,
                                       reinterpret_cast<HMENU>(static_cast<INT_PTR>(request.id)), request.instance,
                                       nullptr);
  if (toolbar == nullptr) return nullptr;
  SendMessageA(toolbar, TB_SETUNICODEFORMAT, FALSE, 0);  // 8-bit notifications whatever the parent is
  SendMessageA(toolbar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
  SendMessageA(toolbar, TB_SETBITMAPSIZE, 0, MAKELPARAM(kImageWidth, kImageHeight));
  SendMessageA(toolbar, TB_SETPADDING, 0, MAKELPARAM(2, 6));
  SendMessageA(toolbar, TB_SETIMAGELIST, 0, reinterpret_cast<LPARAM>(request.images));
  for (const ToolbarButton& button : request.buttons) AddButton(toolbar, button);
  SendMessageA(toolbar, TB_AUTOSIZE, 0, 0);
  for (const ToolbarButton& button : request.buttons) {
    if (button.style == ButtonStyle::Check) SendMessageA(toolbar, TB_CHECKBUTTON, button.command, FALSE);
  }
  return toolbar;
}

SIZE MeasureText(HWND window, const char* text) {
  SIZE size = {};
  const HDC dc = GetDC(window);
  const HFONT font = reinterpret_cast<HFONT>(SendMessageA(window, WM_GETFONT, 0, 0));
  const HGDIOBJ oldFont = font != nullptr ? SelectObject(dc, font) : nullptr;
  const std::wstring wide = base::WideFromNarrow(text);
  GetTextExtentPoint32W(dc, wide.c_str(), static_cast<int>(wide.size()), &size);
  if (oldFont != nullptr) SelectObject(dc, oldFont);
  ReleaseDC(window, dc);
  return size;
}

HWND CreateToolbarLabel(HINSTANCE instance, HWND toolbar, const char* text) {
  const SIZE size = MeasureText(toolbar, text);
  TBBUTTONINFOA info = {};
  info.cbSize = sizeof(info);
  info.dwMask = TBIF_SIZE;
  info.cx = static_cast<WORD>(size.cx + kLabelRoom);
  SendMessageA(toolbar, TB_SETBUTTONINFOA, kCommandLabelSpacer, reinterpret_cast<LPARAM>(&info));
  SendMessageA(toolbar, TB_AUTOSIZE, 0, 0);
  RECT bounds = {};
  GetWindowRect(toolbar, &bounds);
  const int top = (bounds.bottom - bounds.top - size.cy - 4) / 2;
  const HWND label = CreateWindowExA(0, "STATIC", text, WS_CHILD | WS_VISIBLE | SS_LEFTNOWORDWRAP, kLabelLeft, top,
                                     size.cx, size.cy + 4, toolbar, nullptr, instance, nullptr);
  if (label != nullptr) SendMessageA(label, WM_SETFONT, SendMessageA(toolbar, WM_GETFONT, 0, 0), TRUE);
  return label;
}

int SizeToolbar(HWND toolbar) {
  if (toolbar == nullptr) return 0;
  SendMessageA(toolbar, TB_AUTOSIZE, 0, 0);
  RECT bounds = {};
  GetWindowRect(toolbar, &bounds);
  return bounds.bottom - bounds.top;
}

void EnableToolbarButton(HWND toolbar, int command, bool enabled) {
  if (toolbar != nullptr) {
    SendMessageA(toolbar, TB_SETSTATE, static_cast<WPARAM>(command), enabled ? TBSTATE_ENABLED : 0);
  }
}

}  // namespace file_explorer
