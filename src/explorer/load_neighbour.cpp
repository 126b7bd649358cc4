#include "src/explorer/load_neighbour.h"

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "src/explorer/autoload.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/refused_path.h"

namespace file_explorer {
namespace {

ShellItem ItemInRow(ShellControlHost* fileView, int row) {
  return GetItem(fileView, row + 1);
}

// What a click loads: a file that is neither a folder nor a shortcut.
bool IsLoadable(const ShellItem& item) {
  return item && item.HasAttributes(SFGAO_FOLDER | SFGAO_LINK | SFGAO_FILESYSTEM) == SFGAO_FILESYSTEM;
}

void SetRowState(HWND list, int row, UINT state, UINT mask) {
  LVITEMA item = {};
  item.state = state;
  item.stateMask = mask;
  SendMessageA(list, LVM_SETITEMSTATE, static_cast<WPARAM>(row), reinterpret_cast<LPARAM>(&item));
}

void MoveSelection(HWND list, int from, int to) {
  SetRowState(list, from, 0, LVIS_SELECTED);
  SetRowState(list, to, LVIS_SELECTED | LVIS_FOCUSED, LVIS_SELECTED | LVIS_FOCUSED);
  SendMessageA(list, LVM_SETSELECTIONMARK, 0, to);  // a selection with Shift goes on from here
  SendMessageA(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(to), FALSE);
}

}  // namespace

void LoadNeighbourFile(ExplorerWindow& window, Neighbour direction) {
  ShellControlHost* const fileView = window.fileView();
  const base::Hold hold(fileView);
  const HWND list = GetListWindow(fileView);
  if (list == nullptr || GetSelectedCount(fileView) != 1) return;
  const int from = GetSelectedIndex(fileView);
  const int to = FindNeighbourFile(static_cast<int>(GetItemCount(fileView)), from, direction,
                                   [&](int row) { return IsLoadable(ItemInRow(fileView, row)); });
  if (to < 0) return;
  const ShellItem item = ItemInRow(fileView, to);
  const auto path = item.GetFullPath();
  if (item.GetWidePath().empty()) return;
  // Also to a file that is refused: the next step then leads on from there.
  MoveSelection(list, from, to);
  if (path) {
    LoadFile(window.state(), path->c_str());
  } else {
    RefuseInexpressible(window.state().MainWindow(), item);
  }
}

}  // namespace file_explorer
