// The add-favourite command: what it takes from the explorer's views.
#pragma once

#include <string>

namespace file_explorer {

struct ExplorerState;

// Adds the selected file or folder to the favourites. fromFolderTree: the folder tree's selection goes before the file
// view's. explicitPath: file-system path of an item that was named explicitly, which goes before both; may be empty. Nothing when a dialog of
// the explorer is open already.
void AddToFavorites(ExplorerState& state, bool fromFolderTree, const std::string& explicitPath = std::string());

}  // namespace file_explorer
