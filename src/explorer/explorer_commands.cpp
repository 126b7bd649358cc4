#include "src/explorer/explorer_commands.h"

#include "src/explorer/add_favorite_command.h"
#include "src/explorer/command_tables.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/explorer/load_neighbour.h"
#include "src/host/plugin_protocol.h"
#include "src/shellhost/file_view.h"

namespace file_explorer {
namespace {

void ShowDockingMenu(ExplorerWindow& window, int) {
  POINT cursor = {};
  GetCursorPos(&cursor);
  host::Call<host::op::ShowDockingMenu>(window.state().services, window.window(), static_cast<std::int32_t>(cursor.x),
                                        static_cast<std::int32_t>(cursor.y));
}

void ChooseDisplayMode(ExplorerWindow& window, int command) {
  window.SetDisplayMode(FindDisplayModeOfCommand(command)->mode);
}

void LoadPrevious(ExplorerWindow& window, int) { LoadNeighbourFile(window, Neighbour::Previous); }
void LoadNext(ExplorerWindow& window, int) { LoadNeighbourFile(window, Neighbour::Next); }
void NewFolder(ExplorerWindow& window, int) { CreateNewFolder(window.fileView()); }

void SearchFiles(ExplorerWindow& window, int) {
  const char* const keywords[] = {"showfileselectionpanel", nullptr};
  void* values[] = {nullptr, nullptr};
  host::Call<host::op::CallPlugin>(window.state().services, host::kFileSelectionPluginGuid,
                                   static_cast<const char* const*>(keywords), static_cast<void**>(values));
}

void AddFavorite(ExplorerWindow& window, int) { AddToFavorites(window.state(), false); }
void Cut(ExplorerWindow& window, int) { ExecuteOnSelection(window.fileView(), ShellCommand::kCut); }
void Copy(ExplorerWindow& window, int) { ExecuteOnSelection(window.fileView(), ShellCommand::kCopy); }
void Paste(ExplorerWindow& window, int) { ExecuteOnFolder(window.fileView(), ShellCommand::kPaste); }
void Rename(ExplorerWindow& window, int) { ExecuteOnSelection(window.fileView(), ShellCommand::kRename); }
void MoveFiles(ExplorerWindow& window, int) {
  window.state().shellOperations.CopyOrMoveSelection(window.fileView(), true);
}
void CopyFiles(ExplorerWindow& window, int) {
  window.state().shellOperations.CopyOrMoveSelection(window.fileView(), false);
}
void Delete(ExplorerWindow& window, int) { ExecuteOnSelection(window.fileView(), ShellCommand::kDelete); }

void ShowHelp(ExplorerWindow& window, int) {
  Import_IO_DisplayHelpTopic(window.state().helpLocation.c_str(), "ui_file_explorer.hlp", "main");
}

struct CommandRow {
  int command;
  void (*handler)(ExplorerWindow& window, int command);
};

constexpr CommandRow kCommands[] = {
    {kCommandDockingMenu, ShowDockingMenu},
    {kCommandAddToFavorites, AddFavorite},
    {kCommandLoadPrevious, LoadPrevious},
    {kCommandLoadNext, LoadNext},
    {kCommandDetailMode, ChooseDisplayMode},
    {kCommandListMode, ChooseDisplayMode},
    {kCommandLargeIconMode, ChooseDisplayMode},
    {kCommandSmallIconMode, ChooseDisplayMode},
    {kCommandThumbnailMode, ChooseDisplayMode},
    {kCommandNewFolder, NewFolder},
    {kCommandSearch, SearchFiles},
    {kCommandCut, Cut},
    {kCommandCopy, Copy},
    {kCommandPaste, Paste},
    {kCommandMoveTo, MoveFiles},
    {kCommandCopyTo, CopyFiles},
    {kCommandRename, Rename},
    {kCommandDelete, Delete},
    {kCommandHelp, ShowHelp},
};

}  // namespace

void RunExplorerCommand(ExplorerWindow& window, int command) {
  for (const CommandRow& row : kCommands) {
    if (row.command == command) {
      row.handler(window, command);
      return;
    }
  }
}

}  // namespace file_explorer
