// Loading and saving favorites.dat so that a cut at any step loses nothing, and the file beside it that has
// what a save leaves out.
#pragma once

#include <string>
#include <string_view>

#include "base/files/save_recovery.h"
#include "src/favorites/favorites_file.h"

namespace file_explorer {

// The file with everything, beside `path`: "favorites.dat" has "favorites.all.dat".
std::string AllFavoritesPath(const std::string& path);

// As ReadFavoritesFile; a save that was cut short is brought to its end first.
bool LoadFavorites(const std::string& path, const FavoritesFileCalls& files, base::RecoveryCalls& calls,
                   const FavoriteList& list, const PlaceFavorite& place);

// Saves from `first` on, see FavoritesText. A save that starts at an entry further down leaves others out:
// the whole tree goes to the file with everything before. From then on each save brings that file up to date;
// what it has and the tree lacks stays in it, save what the user has deleted. Nothing is written at all when
// there is no room for what must lie beside, or when entries would be left out and can't be kept.
void SaveFavorites(const std::string& path, const FavoritesFileCalls& files, base::RecoveryCalls& calls,
                   const FavoriteList& list, FavoriteRecord* first);

// The lines of the tree together with those of `kept`, an earlier text of everything. Of an entry that both
// have the tree's name, path and flags count, and its folder where it has one. Entries that the tree has
// deleted go, unless something that the tree lacks lies below them. fold: that of the tree's own letters.
std::string MergeFavorites(std::string_view kept, const FavoriteList& tree, FoldCase fold);

}  // namespace file_explorer
