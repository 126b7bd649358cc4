// The dialog "Add Favorite": a name for a path, and the folder of the favourites that it goes to.
#pragma once

#include <windows.h>

#include <string>

#include "src/favorites/halvo_tree_view.h"

namespace file_explorer {

struct AddFavoriteDialog {
  HINSTANCE instance = nullptr;
  std::string path;           // what the new reference points to, and the first suggestion for its name
  std::string note;           // line about who adds the reference
  std::string favoritesFile;  // the dialog's own tree is loaded from and saved to it; empty: no file
  FavoriteImages images;
  CHalvoTreeView::ChangeCallback onChange;  // told of every addition, rename and deletion
};

// Modal to owner. True when a reference was added.
bool ShowAddFavoriteDialog(HWND owner, AddFavoriteDialog dialog);

}  // namespace file_explorer
