#include "src/favorites/check_marks.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace file_explorer {
namespace {

// A record before everything below it.
std::vector<FavoriteRecord*> WithDescendants(std::vector<FavoriteRecord*> roots) {
  for (size_t at = 0; at < roots.size(); ++at) {
    const std::vector<FavoriteRecord*>& children = roots[at]->children;
    roots.insert(roots.end(), children.begin(), children.end());
  }
  return roots;
}

}  // namespace

void SetChecked(FavoriteRecord& record, bool isChecked) {
  record.flags = isChecked ? record.flags | kFavoriteChecked : record.flags & ~kFavoriteChecked;
}

void ToggleCheckMark(const FavoriteList& list, FavoriteRecord& record, bool syncFolders) {
  const bool isChecked = !record.Has(kFavoriteChecked);
  for (FavoriteRecord* const at : WithDescendants({&record})) SetChecked(*at, isChecked);
  if (!syncFolders) return;
  const std::vector<FavoriteRecord*> all = WithDescendants(list.topLevel());
  // Backwards, children come before their folder.
  for (auto at = all.rbegin(); at != all.rend(); ++at) {
    FavoriteRecord& folder = **at;
    if (!folder.Has(kFavoriteFolder) || folder.children.empty()) continue;
    SetChecked(folder, std::all_of(folder.children.begin(), folder.children.end(),
                                   [](const FavoriteRecord* child) { return child->Has(kFavoriteChecked); }));
  }
}

}  // namespace file_explorer
