#include "src/favorites/add_favorite.h"

namespace file_explorer {
namespace {

constexpr unsigned kProductFlags = 32 | 64;

template <typename Result>
Result Ask(const std::function<Result()>& source) {
  return source ? source() : Result();
}

std::optional<std::string> AskPath(const std::function<std::optional<std::string>()>& source) {
  return source ? source() : std::string();
}

AddFavoriteChoice Take(std::string path) {
  if (path.size() >= kFavoritePathSize) path.resize(kFavoritePathSize - 1);
  return {std::move(path), nullptr, nullptr};
}

}  // namespace

AddFavoriteChoice ChooseFavoritePath(const AddFavoriteSources& sources) {
  if (!sources.explicitPath.empty()) return Take(sources.explicitPath);
  if (sources.fromFolderTree) {
    const auto path = AskPath(sources.folderTreePath);
    if (!path) return {};
    if (!path->empty()) return Take(*path);
  }
  if (Ask(sources.fileViewSelectionCount) > 1) return {std::string(), kSelectOnlyOneText, "Error"};
  auto path = AskPath(sources.fileViewPath);
  if (path && path->empty() && !Ask(sources.fileViewItemIsVirtual)) path = AskPath(sources.folderTreePath);
  if (!path) return {};
  if (!path->empty()) return Take(*path);
  return {std::string(), kVirtualItemText, "Warning"};
}

std::string AddFavoriteNote(unsigned hostFlags) {
  const char* const product = (hostFlags & kProductFlags) != 0 ? "Teskar" : "Corvalent";
  return std::string(product) + " will add this file reference to your Favorites list.";
}

}  // namespace file_explorer
