// The file before or behind another one in a list of files and folders.
#pragma once

#include <functional>

namespace file_explorer {

enum class Neighbour : int { Previous = -1, Next = 1 };

// The nearest row before or behind row `from` for which isFile holds; -1 at the end of the list. Rows count
// from 0 to count - 1 in the order shown; isFile is asked only for rows on the way. -1 for a `from` outside
// of the list.
int FindNeighbourFile(int count, int from, Neighbour direction, const std::function<bool(int row)>& isFile);

}  // namespace file_explorer
