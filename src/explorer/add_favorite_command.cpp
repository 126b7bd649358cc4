#include "src/explorer/add_favorite_command.h"

#include "src/explorer/dialog_turn.h"
#include "src/explorer/explorer_state.h"
#include "src/explorer/explorer_window.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/folder_view.h"
#include "src/shellhost/refused_path.h"

namespace file_explorer {
void AddToFavorites(ExplorerState& state, bool fromFolderTree, const std::string& explicitPath) {
  const DialogTurn turn;
  if (!turn || !state.favoritesPane) return;
  ShellControlHost* const fileView = state.explorerWindow ? state.explorerWindow->fileView() : nullptr;
  ShellControlHost* const folderView = state.folderViewHost.get();
  const base::Hold holdFileView(fileView);
  const base::Hold holdFolderView(folderView);
  AddFavoriteSources sources;
  sources.explicitPath = explicitPath;
  sources.fromFolderTree = fromFolderTree;
  sources.folderTreePath = [folderView, &state] {
    return PathOrRefusal(state.MainWindow(), GetSelectedFolder(folderView));
  };
  sources.fileViewSelectionCount = [fileView] { return static_cast<int>(GetSelectedCount(fileView)); };
  sources.fileViewPath = [fileView, &state] {
    return PathOrRefusal(state.MainWindow(), GetFirstSelectedItem(fileView));
  };
  sources.fileViewItemIsVirtual = [fileView] {
    const ShellItem item = GetFirstSelectedItem(fileView);
    return item && item.HasAttributes(SFGAO_FILESYSTEM) == 0;
  };
  state.favoritesPane->AddFavorite(state.MainWindow(), sources);
}

}  // namespace file_explorer
