#include "src/explorer/neighbour_file.h"

namespace file_explorer {

int FindNeighbourFile(int count, int from, Neighbour direction, const std::function<bool(int row)>& isFile) {
  if (from < 0 || from >= count) return -1;
  const int step = static_cast<int>(direction);
  for (int row = from + step; row >= 0 && row < count; row += step) {
    if (isFile(row)) return row;
  }
  return -1;
}

}  // namespace file_explorer
