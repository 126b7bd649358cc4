// The commands that the favourites pane and the add-favourite dialog have in common. owner owns the message
// boxes.
#pragma once

#include <windows.h>

#include "src/favorites/halvo_tree_view.h"

namespace file_explorer {

// A folder named "New Folder" below the selected folder (or the selected reference's), ready to be renamed.
void NewFavoritesFolder(CHalvoTreeView& tree, HWND owner);
void RenameFavorite(CHalvoTreeView& tree, HWND owner);
void DeleteFavorite(CHalvoTreeView& tree, HWND owner);

// What a key does in the tree: F2 renames, Delete deletes, Ctrl+X and Ctrl+V move an entry. False for all
// others.
bool RunFavoritesKey(CHalvoTreeView& tree, HWND owner, WORD key);

}  // namespace file_explorer
