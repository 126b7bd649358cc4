// The favourites pane: the panel's favourites tree with its file, commands and activation.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "src/favorites/add_favorite.h"
#include "src/favorites/halvo_tree_view.h"
#include "src/framework/command_ids.h"

namespace file_explorer {

// What the pane needs from its surroundings. Functions may be empty except mainWindow.
struct FavoritesServices {
  HINSTANCE instance = nullptr;                      // the module: resources
  std::function<HWND()> mainWindow;                  // the host's main window, owner of the message boxes
  std::function<void(const char* path)> loadFile;    // hands a file to the host for loading
  std::function<void(const char* path)> openFolder;  // shows a folder in the file view
  std::function<std::uint32_t()> hostFlags;          // the host's product flags
};

class FavoritesPane {
 public:
  // The tree, hidden, in the panel's client area. Null when the tree control can't be created.
  static std::unique_ptr<FavoritesPane> Create(HWND panel, FavoritesServices services);
  ~FavoritesPane();  // saves nothing
  FavoritesPane(const FavoritesPane&) = delete;
  FavoritesPane& operator=(const FavoritesPane&) = delete;

  CHalvoTreeView& tree() { return *tree_; }
  HWND window() const { return tree_->window(); }

  // Loads the user's favourites, or makes the folder "Favorites" when there are none.
  void Load();
  // Nothing is saved when the host gives no directory.
  void Save();

  // The panel window's procedure offers every message while the pane is shown: true when it is dealt with and
  // *result is the answer. The Tab key in the tree asks the panel for the next control (WM_NEXTDLGCTL).
  bool HandleMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, LRESULT* result);
  // Commands 129, 130 and 131; false for every other command.
  bool HandleCommand(int command);

  // The add-favourite command: takes a path from the sources, refuses it or opens the dialog, owned by owner.
  void AddFavorite(HWND owner, const AddFavoriteSources& sources);

 private:
  explicit FavoritesPane(FavoritesServices services);
  void OnActivation(const FavoriteRecord* record) const;
  bool OnKey(HWND panel, WORD key);
  void Mirror(const FavoriteRecord& record, const FavoriteRecord* parent, FavoriteChange change);

  const FavoritesServices services_;
  // Dies with the pane: a dialog that outlives it knows by it that there is no pane to change.
  const std::shared_ptr<const bool> alive_ = std::make_shared<const bool>(true);
  FavoriteImages images_;
  std::unique_ptr<CHalvoTreeView> tree_;
};

}  // namespace file_explorer
