// The add-favourite command: what it takes from the explorer's views.
#pragma once

namespace file_explorer {

struct ExplorerState;

// Adds the selected file or folder to the favourites. fromFolderTree: the folder tree's selection goes before the file
// view's.
void AddToFavorites(ExplorerState& state, bool fromFolderTree);

}  // namespace file_explorer
