#include "src/history/sorting_menu.h"

#include "src/framework/unique_handle.h"
#include "src/history/history_order.h"
#include "src/history/history_view.h"

namespace file_explorer {

void ShowHistorySortingMenu(HINSTANCE instance, HWND commandWindow, POINT screen, int currentMethod) {
  const unique_hmenu menu(LoadMenuA(instance, "history_sorting_popup_menu"));
  const HMENU popup = GetSubMenu(menu.get(), 0);
  if (popup == nullptr) return;
  for (int method = 0; method < kSortMethodCount; ++method) {
    const UINT state = method == currentMethod ? MF_CHECKED : MF_UNCHECKED;
    CheckMenuItem(popup, static_cast<UINT>(kCommandFirstSorting + method), MF_BYCOMMAND | state);
  }
  // Opened by a press of the left button the choice is made with that button, otherwise with either.
  const bool isLeftDown = GetAsyncKeyState(VK_LBUTTON) < 0;
  TrackPopupMenu(popup, TPM_LEFTALIGN | (isLeftDown ? TPM_LEFTBUTTON : TPM_RIGHTBUTTON), screen.x, screen.y,
                 0, commandWindow, nullptr);
}

}  // namespace file_explorer
