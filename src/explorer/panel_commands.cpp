#include "src/explorer/panel_commands.h"

#include "src/explorer/add_favorite_command.h"
#include "src/explorer/command_tables.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/selector_area.h"
#include "src/shellhost/folder_view.h"

namespace file_explorer {
namespace {

void ShowView(ExplorerState& state, HWND, int command) { ShowSelectorView(state, *SelectorViewOf(command)); }

void NewFolder(ExplorerState& state, HWND, int) { CreateNewFolderInTree(state.folderViewHost.get()); }

// The Folders toolbar adds what the folder tree has selected, the Favorites toolbar what the file view has.
void AddFolderToFavorites(ExplorerState& state, HWND, int) { AddToFavorites(state, true); }
void AddSelectionToFavorites(ExplorerState& state, HWND, int) { AddToFavorites(state, false); }

void RunFavoritesCommand(ExplorerState& state, HWND, int command) {
  if (state.favoritesPane) state.favoritesPane->HandleCommand(command);
}

void RunHistoryCommand(ExplorerState& state, HWND panel, int command) {
  if (state.historyView) state.historyView->HandleCommand(command, state.toolbars.history, panel);
}

struct PanelCommandRow {
  int first;
  int last;
  void (*handler)(ExplorerState& state, HWND panel, int command);
};

constexpr PanelCommandRow kPanelCommands[] = {
    {kCommandFoldersView, kCommandFavoritesView, ShowView},
    {kCommandAddToFavorites, kCommandAddToFavorites, AddFolderToFavorites},
    {kCommandNewFolder, kCommandNewFolder, NewFolder},
    {kCommandNewFavoritesFolder, kCommandDeleteFavorite, RunFavoritesCommand},
    {kCommandAddSelectionToFavorites, kCommandAddSelectionToFavorites, AddSelectionToFavorites},
    {kCommandClearHistory, kCommandHistoryIcons, RunHistoryCommand},
    {kCommandFirstSorting, kCommandFirstSorting + 3, RunHistoryCommand},
};

}  // namespace

bool RunPanelCommand(ExplorerState& state, HWND panel, int command) {
  for (const PanelCommandRow& row : kPanelCommands) {
    if (command < row.first || command > row.last) continue;
    row.handler(state, panel, command);
    return true;
  }
  return false;
}

}  // namespace file_explorer
