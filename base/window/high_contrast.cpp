#include "base/window/high_contrast.h"

namespace base {
namespace {

struct Change {
  UINT message;
  WPARAM wParam;
  LPARAM lParam;
};

BOOL CALLBACK Tell(HWND child, LPARAM parameter) {
  const auto& change = *reinterpret_cast<const Change*>(parameter);
  SendMessageW(child, change.message, change.wParam, change.lParam);
  return TRUE;
}

}  // namespace

bool IsHighContrast() {
  HIGHCONTRASTW contrast = {};
  contrast.cbSize = sizeof(contrast);
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof(contrast), &contrast, 0) &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

COLORREF ContrastColor(COLORREF ordinary, int systemColor) {
  return IsHighContrast() ? GetSysColor(systemColor) : ordinary;
}

void PassOnColorChange(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  const Change change = {message, wParam, lParam};
  EnumChildWindows(window, Tell, reinterpret_cast<LPARAM>(&change));
  RedrawWindow(window, nullptr, nullptr, RDW_INVALIDATE | RDW_ERASE | RDW_FRAME | RDW_ALLCHILDREN);
}

}  // namespace base
