#include "src/explorer/directory_path.h"

namespace file_explorer {

bool IsAbsolutePath(std::string_view path) {
  if (path.empty()) return false;
  return path.front() == '\\' || path.front() == '/' || (path.size() > 1 && path[1] == ':');
}

const char* NameOfPath(const char* path, LeadByteTest isLeadByte) {
  const char* name = path;
  for (const char* at = path; *at != '\0'; ++at) {
    if (isLeadByte != nullptr && isLeadByte(static_cast<unsigned char>(*at)) && at[1] != '\0') {
      ++at;
    } else if (*at == '\\' || *at == '/' || *at == ':') {
      name = at + 1;
    }
  }
  return name;
}

}  // namespace file_explorer
