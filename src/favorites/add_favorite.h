// Which path the add-favourite command takes, and what it says when there is none.
#pragma once

#include <functional>
#include <optional>
#include <string>

namespace file_explorer {

// What the command asks the explorer. Functions may be empty; then there is nothing of that kind. A path that is nothing
// at all (rather than empty) can't be expressed: the user has been told, and the command ends.
struct AddFavoriteSources {
  std::string explicitPath;     // file-system path of an item that was named explicitly; empty: none
  bool fromFolderTree = false;  // the folder tree's selection goes before the file view's
  std::function<std::optional<std::string>()> folderTreePath;  // path of the folder tree's selected folder; empty: none
  std::function<int()> fileViewSelectionCount;  // number of items selected in the file view
  std::function<std::optional<std::string>()> fileViewPath;    // path of the file view's selected item; empty: none
  std::function<bool()> fileViewItemIsVirtual;  // whether that item is inside an archive or the like
};

inline constexpr char kSelectOnlyOneText[] =
    "Please select one, and only one, file or folder from the 'File Explorer' file list window or the 'File "
    "Folders "
    "Tree View' window.\n\nAlso, you cannot add a file from inside a ZIP file to the Favorites list.";
inline constexpr char kVirtualItemText[] =
    "You have selected a file or folder in a virtual file system (which can include files in a ZIP file "
    "archive). This "
    "is disallowed.\n\nNothing added to the Favorites list.";

// Longest path that is taken, with its terminator.
inline constexpr size_t kFavoritePathSize = 2048;

struct AddFavoriteChoice {
  std::string path;               // empty: refused
  const char* message = nullptr;  // the refusal's text; none when the user has been told already
  const char* caption = nullptr;  // and its caption
};
AddFavoriteChoice ChooseFavoritePath(const AddFavoriteSources& sources);

// The dialog's line about the product that adds the reference; flags are the host's flags.
std::string AddFavoriteNote(unsigned hostFlags);

}  // namespace file_explorer
