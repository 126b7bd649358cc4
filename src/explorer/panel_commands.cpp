#include "src/explorer/panel_commands.h"

#include "src/explorer/command_tables.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/selector_area.h"
#include "src/shellhost/folder_view.h"

namespace file_explorer {
namespace {

void ShowView(ExplorerState& state, int command) { ShowSelectorView(state, *SelectorViewOf(command)); }

void NewFolder(ExplorerState& state, int) { CreateNewFolderInTree(state.folderViewHost.get()); }

void ClearHistory(ExplorerState& state, int) {
  if (!state.historyView) return;
  const int answer = MessageBoxA(state.panelWindow,
                                 "Are you sure you want to delete all the items in the history list?",
                                 "Confirmation Request", MB_YESNO | MB_ICONQUESTION);
  if (answer == IDYES) state.historyView->ClearHistory();
}

struct PanelCommandRow {
  int command;
  void (*handler)(ExplorerState& state, int command);
};

constexpr PanelCommandRow kPanelCommands[] = {
    {kCommandFoldersView, ShowView},   {kCommandHistoryView, ShowView},     {kCommandFavoritesView, ShowView},
    {kCommandNewFolder, NewFolder},    {kCommandClearHistory, ClearHistory},
};

}  // namespace

bool RunPanelCommand(ExplorerState& state, int command) {
  for (const PanelCommandRow& row : kPanelCommands) {
    if (row.command != command) continue;
    row.handler(state, command);
    return true;
  }
  return false;
}

}  // namespace file_explorer
