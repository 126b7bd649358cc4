#include "src/explorer/directory_path.h"

namespace file_explorer {

bool IsAbsolutePath(std::string_view path) {
  if (path.empty()) return false;
  return path.front() == '\\' || path.front() == '/' || (path.size() > 1 && path[1] == ':');
}

}  // namespace file_explorer
