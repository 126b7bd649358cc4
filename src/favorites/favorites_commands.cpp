#include "src/favorites/favorites_commands.h"

namespace file_explorer {
namespace {

void ShowError(HWND owner, const char* text) {
  MessageBoxA(owner, text, "Error", MB_OK);
}

}  // namespace

void NewFavoritesFolder(CHalvoTreeView& tree, HWND owner) {
  FavoriteRecord* const selected = tree.current();
  if (selected == nullptr) {
    ShowError(owner, "Please select a folder which will become the parent of the new folder to be created");
    return;
  }
  auto folder = std::make_unique<FavoriteRecord>();
  folder->displayName = "New Folder";
  folder->flags = kNewFolderFlags;
  folder->imageIndex = kFolderImage;
  const FavoriteRecord* const added = tree.AddFavorite(std::move(folder), FolderForNewEntry(selected));
  if (added == nullptr) return;
  tree.Select(added);
  tree.EditLabel(*added);
}

void RenameFavorite(CHalvoTreeView& tree, HWND owner) {
  const FavoriteRecord* const selected = tree.current();
  if (selected == nullptr) {
    ShowError(owner, "Please select a folder or item to rename.");
  } else if (selected->Has(kFavoriteProtected)) {
    ShowError(owner, "This item cannot be renamed");
  } else {
    tree.EditLabel(*selected);
  }
}

void DeleteFavorite(CHalvoTreeView& tree, HWND owner) {
  FavoriteRecord* const selected = tree.current();
  if (selected == nullptr) {
    ShowError(owner, "Please select a folder or item to delete.");
    return;
  }
  if (selected->Has(kFavoriteProtected)) {
    ShowError(owner, "This item cannot be deleted");
    return;
  }
  const HWND window = tree.window();
  const int answer = MessageBoxA(owner, "Are you sure you want to delete this item?", "Confirmation Request",
                                 MB_YESNO | MB_ICONQUESTION);
  // The host may have taken the explorer down while the question was open: with the window the tree is gone.
  if (answer == IDYES && IsWindow(window)) tree.DeleteEntry(*selected);
}

bool RunFavoritesKey(CHalvoTreeView& tree, HWND owner, WORD key) {
  const bool isControl = GetKeyState(VK_CONTROL) < 0;
  if (key == VK_F2) {
    RenameFavorite(tree, owner);
  } else if (key == VK_DELETE) {
    DeleteFavorite(tree, owner);
  } else if (key == 'X' && isControl) {
    tree.MarkForMove(tree.current());
  } else if (key == 'V' && isControl) {
    tree.MoveMarked(tree.current());
  } else {
    return false;
  }
  return true;
}

}  // namespace file_explorer
