#include "src/favorites/favorite_target.h"

namespace file_explorer {

FavoriteTarget TargetByName(std::string_view path, bool isKnownType) {
  if (isKnownType) return FavoriteTarget::kFile;
  const size_t place = path.find_last_of("\\/.");
  const bool hasExtension = place != std::string_view::npos && path[place] == '.';
  return hasExtension ? FavoriteTarget::kUnknown : FavoriteTarget::kFolder;
}

}  // namespace file_explorer
