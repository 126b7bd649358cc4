// The messages of the explorer's page in the host's utility panel.
#include <windows.h>

#include <commctrl.h>
#include <windowsx.h>

#include "base/window/high_contrast.h"
#include "src/explorer/command_tables.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/panel_commands.h"
#include "src/explorer/selector_area.h"
#include "src/explorer/tooltip_request.h"

namespace file_explorer {
namespace {

// The view in front sees every message first.
bool OfferToCurrentView(ExplorerState& state, HWND panel, UINT message, WPARAM wParam, LPARAM lParam,
                        LRESULT* result) {
  if (state.currentView == SelectorView::History && state.historyView) {
    return state.historyView->HandleMessage(panel, message, wParam, lParam);
  }
  if (state.currentView == SelectorView::Favorites && state.favoritesPane) {
    return state.favoritesPane->HandleMessage(panel, message, wParam, lParam, result);
  }
  return false;
}

LRESULT OnNotify(ExplorerState& state, HWND panel, LPARAM lParam) {
  auto* const header = reinterpret_cast<NMHDR*>(lParam);
  if (IsTooltipRequest(*header)) {
    AnswerTooltipRequest(state.instance, *header);
  } else if (header->code == static_cast<UINT>(TBN_DROPDOWN)) {
    const auto* const dropDown = reinterpret_cast<const NMTOOLBARA*>(lParam);
    SendMessageA(panel, WM_COMMAND, static_cast<WPARAM>(dropDown->iItem), 0);
  }
  return 0;
}

// The page is the host's and may be a wide window; what the module makes in it is told that it takes 8-bit text. A
// window of the host's is answered by the host.
bool SpeaksEightBit(const ExplorerState& state, WPARAM asking, LPARAM question) {
  return question == NF_QUERY && reinterpret_cast<HINSTANCE>(GetWindowLongPtrA(
                                     reinterpret_cast<HWND>(asking), GWLP_HINSTANCE)) == state.instance;
}

void OnCommand(ExplorerState& state, HWND panel, WPARAM wParam, LPARAM lParam) {
  const int command = LOWORD(wParam);
  if (RunPanelCommand(state, panel, command)) return;
  // What the panel does not know is the explorer's; the host's own procedure sees the message as well.
  if (state.explorerWindow) {
    SendMessageA(state.explorerWindow->window(), WM_COMMAND, static_cast<WPARAM>(command), lParam);
  }
}

}  // namespace

LRESULT HandlePanelMessage(ExplorerState& state, HWND panel, UINT message, WPARAM wParam, LPARAM lParam,
                           bool* handled) {
  LRESULT result = 0;
  if (OfferToCurrentView(state, panel, message, wParam, lParam, &result)) {
    *handled = true;
    return result;
  }
  switch (message) {
    case WM_SIZE:
      LayOutSelectorArea(state, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam));
      break;
    case WM_SHOWWINDOW:
      if (wParam != FALSE) EnsureSelectorArea(state);
      break;
    case WM_SETFOCUS:  // the panel itself has nothing to type into
      FocusCurrentView(state);
      break;
    case WM_NEXTDLGCTL:  // Tab in a view or in its toolbar
      FocusNextInSelector(state, wParam != FALSE);
      *handled = true;
      break;
    case WM_SYSCOLORCHANGE:
      base::PassOnColorChange(panel, message, wParam, lParam);
      break;
    case WM_NOTIFYFORMAT:
      *handled = SpeaksEightBit(state, wParam, lParam);
      return *handled ? NFR_ANSI : 0;
    case WM_NOTIFY:
      return OnNotify(state, panel, lParam);
    case WM_COMMAND:
      OnCommand(state, panel, wParam, lParam);
      break;
  }
  return 0;
}

}  // namespace file_explorer
