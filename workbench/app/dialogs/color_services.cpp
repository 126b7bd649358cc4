#include "workbench/app/dialogs/color_services.h"

#include <commdlg.h>

#include "workbench/app/dialogs/color_values.h"
#include "base/text/code_page.h"
#include "workbench/app/dialogs/profile_text.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

constexpr int kCustomColors = 16;
constexpr COLORREF kDisabledSwatch = RGB(212, 212, 212);

// The custom colours of the picker live as long as the program.
COLORREF* CustomColors() {
  static COLORREF colors[kCustomColors] = {
      RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
      RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
      RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255),
      RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255), RGB(255, 255, 255)};
  return colors;
}

// The system's picker has no field for a title; its hook sets it.
UINT_PTR CALLBACK SetPickerTitle(HWND dialog, UINT message, WPARAM, LPARAM lParam) {
  if (message != WM_INITDIALOG) return 0;
  const auto* choice = reinterpret_cast<const CHOOSECOLORW*>(lParam);
  const auto* title = reinterpret_cast<const std::wstring*>(choice->lCustData);
  if (!title->empty()) SetWindowTextW(dialog, title->c_str());
  return 0;  // the system sets the rest up
}

bool Change(float* value, BYTE byte) {
  if (ColorByte(*value) == byte) return false;
  *value = ColorValue(byte);
  return true;
}

}  // namespace

bool PickColor(HWND dialog, const char* title, float* r, float* g, float* b) {
  if (r == nullptr || g == nullptr || b == nullptr) return false;
  const std::wstring text = title == nullptr ? std::wstring() : base::WideFromNarrow(title);
  CHOOSECOLORW choice = {};
  choice.lStructSize = sizeof choice;
  choice.hwndOwner = dialog;
  choice.rgbResult = RGB(ColorByte(*r), ColorByte(*g), ColorByte(*b));
  choice.lpCustColors = CustomColors();
  choice.Flags = CC_RGBINIT | CC_FULLOPEN | CC_ANYCOLOR | CC_ENABLEHOOK;
  choice.lCustData = reinterpret_cast<LPARAM>(&text);
  choice.lpfnHook = SetPickerTitle;
  if (!ChooseColorW(&choice)) return false;
  const bool red = Change(r, GetRValue(choice.rgbResult));
  const bool green = Change(g, GetGValue(choice.rgbResult));
  const bool blue = Change(b, GetBValue(choice.rgbResult));
  return red || green || blue;
}

void RepaintColorButton(HWND dialog, int controlId, float, float, float) {
  const HWND button = GetDlgItem(dialog, controlId);
  if (button != nullptr) RedrawWindow(button, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_UPDATENOW);
}

void DrawColorButton(const DRAWITEMSTRUCT* item, float r, float g, float b) {
  if (item == nullptr || item->hDC == nullptr) return;
  const bool pressed = (item->itemState & ODS_SELECTED) != 0;
  const bool disabled = (item->itemState & ODS_DISABLED) != 0;
  RECT place = item->rcItem;
  DrawFrameControl(item->hDC, &place, DFC_BUTTON,
                   DFCS_BUTTONPUSH | (pressed ? DFCS_PUSHED : 0u) | (disabled ? DFCS_INACTIVE : 0u));
  const int inset = ScaledPixels(5);
  RECT swatch = place;
  InflateRect(&swatch, -inset, -inset);
  if (pressed) OffsetRect(&swatch, ScaledPixels(1), ScaledPixels(1));
  const UniqueBrush fill(
      CreateSolidBrush(disabled ? kDisabledSwatch : RGB(ColorByte(r), ColorByte(g), ColorByte(b))));
  const HBRUSH edge = GetSysColorBrush(disabled ? COLOR_GRAYTEXT : COLOR_BTNTEXT);
  FillRect(item->hDC, &swatch, fill.get());
  FrameRect(item->hDC, &swatch, edge);
  const bool focus = (item->itemState & ODS_FOCUS) != 0 && (item->itemState & ODS_NOFOCUSRECT) == 0;
  if (!focus || disabled) return;
  RECT frame = place;
  InflateRect(&frame, -ScaledPixels(3), -ScaledPixels(3));
  SetTextColor(item->hDC, RGB(0, 0, 0));
  SetBkColor(item->hDC, RGB(255, 255, 255));
  DrawFocusRect(item->hDC, &frame);
}

}  // namespace workbench
