// Loading the file before or behind the selected one.
#pragma once

#include "src/explorer/neighbour_file.h"

namespace file_explorer {

class ExplorerWindow;

// Loads the neighbouring file of the one selected item, in the order of the file view, past folders and
// whatever else a click would not load; selection and focus move with it, and the view scrolls to it. Nothing
// happens at the end of the list, and when not exactly one item is selected.
void LoadNeighbourFile(ExplorerWindow& window, Neighbour direction);

}  // namespace file_explorer
