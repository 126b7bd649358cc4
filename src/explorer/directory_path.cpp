#include "src/explorer/directory_path.h"

namespace file_explorer {

bool IsAbsolutePath(std::string_view path) {
  if (path.empty()) return false;
  return path.front() == '\\' || path.front() == '/' || (path.size() > 1 && path[1] == ':');
}

const char* NameOfPath(const char* path) {
  const size_t separator = std::string_view(path).find_last_of("\\/:");
  return separator == std::string_view::npos ? path : path + separator + 1;
}

}  // namespace file_explorer
