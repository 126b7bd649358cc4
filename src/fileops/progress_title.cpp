#include "src/fileops/progress_title.h"

namespace file_explorer {

std::string ProgressTitle(bool move, int count) {
  if (count != 0) return move ? "Moving file..." : "Copying file...";
  return (move ? "Moving " : "Copying ") + std::to_string(count) + " files...";
}

}  // namespace file_explorer
