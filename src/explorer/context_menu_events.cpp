#include "src/explorer/context_menu_events.h"

#include <optional>
#include <string>

#include "src/explorer/add_favorite_command.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/fileops/import_registry.h"
#include "src/host/plugin_protocol.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/folder_view.h"
#include "src/shellhost/refused_path.h"

namespace file_explorer {
namespace {

// A virtual folder's text is its name, which is no path to give away. Nothing for a folder that was refused.
std::optional<std::string> FileSystemPath(const ExplorerState& state, IDispatch* object, const char* path) {
  const ShellItem item(object);
  if (item.HasAttributes(SFGAO_FILESYSTEM) == 0) return std::string();
  if (path != nullptr) return path;
  if (RefuseInexpressible(state.MainWindow(), item)) return std::nullopt;
  return std::string();
}

void ShowImportOptions(const ExplorerState& state, const MenuItems& items) {
  const std::string handler = items.importHandler();  // the dialog may let another menu be opened
  host::Call<host::op::ShowHostDialog>(state.services, host::kImportOptionsDialog, state.MainWindow(),
                                       handler.c_str(), std::intptr_t{0}, std::intptr_t{0}, std::intptr_t{0});
}

void RunFileViewItem(ExplorerWindow& window, ShellControlHost* host, MenuCommand command) {
  ExplorerState& state = window.state();
  switch (command) {
    case MenuCommand::kMove:
    case MenuCommand::kCopy:
      state.shellOperations.CopyOrMoveSelection(host, command == MenuCommand::kMove);
      break;
    case MenuCommand::kAddFavorite:
      AddToFavorites(state, false);
      break;
    case MenuCommand::kImportOptions:
      ShowImportOptions(state, state.fileViewMenu);
      break;
    case MenuCommand::kNone:
      break;
  }
}

void RunFolderViewItem(ExplorerWindow& window, const std::string& path, MenuCommand command) {
  ExplorerState& state = window.state();
  switch (command) {
    case MenuCommand::kMove:
    case MenuCommand::kCopy:
      state.shellOperations.CopyOrMovePath(path.c_str(), command == MenuCommand::kMove);
      break;
    case MenuCommand::kAddFavorite:
      AddToFavorites(state, true, path);
      break;
    case MenuCommand::kImportOptions:
    case MenuCommand::kNone:
      break;
  }
}

}  // namespace

std::int64_t HandleFileViewMenuEvent(ExplorerWindow& window, ControlEvent code, ShellControlHost* host, IDispatch*,
                                     std::int64_t command, const char* path) {
  MenuItems& items = window.state().fileViewMenu;
  if (code == ControlEvent::kFileMenuOpening) {
    items.Build(
        path, [host](const char* caption, const char* verb) { return AddFileViewMenuItem(host, caption, verb); },
        HostImportRegistry());
    return 1;
  }
  const MenuCommand chosen = code == ControlEvent::kMenuCommand ? items.Find(command) : MenuCommand::kNone;
  RunFileViewItem(window, host, chosen);
  return chosen != MenuCommand::kNone;
}

std::int64_t HandleFolderViewMenuEvent(ExplorerWindow& window, ControlEvent code, ShellControlHost* host,
                                       IDispatch* object, std::int64_t command, const char* path) {
  MenuItems& items = window.state().folderViewMenu;
  if (code == ControlEvent::kFolderMenuOpening) {
    items.Build(
        path, [host](const char* caption, const char* verb) { return AddFolderViewMenuItem(host, caption, verb); },
        HostImportRegistry());
    return 1;
  }
  const MenuCommand chosen = code == ControlEvent::kMenuCommand ? items.Find(command) : MenuCommand::kNone;
  if (chosen == MenuCommand::kNone) return 0;
  if (chosen == MenuCommand::kImportOptions) {
    ShowImportOptions(window.state(), items);
  } else if (const auto folder = FileSystemPath(window.state(), object, path)) {
    RunFolderViewItem(window, *folder, chosen);
  }
  return 1;
}

}  // namespace file_explorer
