// What the favourites take from the platform and the host: the code page's letters, file calls, keys, places,
// images.
#pragma once

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

#include "src/favorites/favorites_file.h"
#include "src/framework/unique_handle.h"

namespace file_explorer {

// The file calls of the C library and the host.
const FavoritesFileCalls& SystemFileCalls();

// A key that no other favourite has.
std::string NewFavoriteKey();

// Full path of favorites.dat in the user's directory of the host; empty when the host gives none.
std::string FavoritesFilePath(HWND mainWindow);

// The pictures of all favourites trees: 0 folder, 1 reference. Shared by the trees that show them.
using FavoriteImages = std::shared_ptr<unique_himagelist>;
FavoriteImages LoadFavoriteImages(HINSTANCE instance);
// From a bitmap strip; the caller keeps the bitmap. Null for a null bitmap.
FavoriteImages MakeFavoriteImages(HBITMAP strip);

}  // namespace file_explorer
