#include "src/explorer/toolbar_states.h"

#include <windows.h>

#include <commctrl.h>

#include "src/explorer/command_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/toolbar_builder.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {

void RefreshToolbarStates(ExplorerWindow& window) {
  const HWND list = GetListWindow(window.fileView());
  CommandSituation situation;
  situation.selectedItems = static_cast<int>(SendMessageA(list, LVM_GETSELECTEDCOUNT, 0, 0));
  situation.clipboardHasContent = CountClipboardFormats() != 0;
  for (const int command : SelectionDependentCommands()) {
    EnableToolbarButton(window.toolbar(), command, IsCommandEnabled(command, situation));
  }
}

}  // namespace file_explorer
