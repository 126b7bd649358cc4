// Check marks of favourites, kept in the records' flags.
#pragma once

#include "src/favorites/favorite_list.h"

namespace file_explorer {

void SetChecked(FavoriteRecord& record, bool isChecked);

// What a click on the record's check box does: flips it, gives a folder's new state to everything below it
// and, with syncFolders, makes every folder checked exactly when all of its children are. A folder without
// children keeps its own.
void ToggleCheckMark(const FavoriteList& list, FavoriteRecord& record, bool syncFolders);

}  // namespace file_explorer
