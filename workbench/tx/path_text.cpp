#include "workbench/tx/path_text.h"

namespace workbench::tx {
namespace {

// Where the base name begins.
size_t BaseStart(std::string_view path, LeadByteTest isLeadByte) {
  size_t start = path.size() > 1 && path[1] == ':' ? 2 : 0;
  for (size_t i = 0; i < path.size(); ++i) {
    if (IsPathSeparator(path[i])) {
      start = i + 1;
    } else if (isLeadByte && isLeadByte(static_cast<unsigned char>(path[i]))) {
      ++i;
    }
  }
  return start;
}

}  // namespace

bool IsPathSeparator(char c) {
  return c == '\\' || c == '/';
}

bool EndsInPathSeparator(std::string_view path, LeadByteTest isLeadByte) {
  // The test of the last byte alone would take the second half of a two-byte character for a separator.
  return !path.empty() && IsPathSeparator(path.back()) && BaseStart(path, isLeadByte) == path.size();
}

std::string JoinPath(std::string_view folder, std::string_view name, LeadByteTest isLeadByte) {
  if (folder.empty()) return std::string(name);
  const bool nameBegins = !name.empty() && IsPathSeparator(name.front());
  const bool folderEnds = EndsInPathSeparator(folder, isLeadByte);
  if (folderEnds && nameBegins) name.remove_prefix(1);
  std::string result;
  result.reserve(folder.size() + 1 + name.size());
  result.append(folder);
  if (!folderEnds && !nameBegins) result.push_back('\\');
  result.append(name);
  return result;
}

std::string_view BaseName(std::string_view path, LeadByteTest isLeadByte) {
  return path.substr(BaseStart(path, isLeadByte));
}

std::string_view BasePath(std::string_view path, LeadByteTest isLeadByte) {
  return path.substr(0, BaseStart(path, isLeadByte));
}

std::string_view Extension(std::string_view path, LeadByteTest isLeadByte) {
  const std::string_view name = BaseName(path, isLeadByte);
  const size_t dot = name.rfind('.');  // never the second half of a character: those begin at 0x30
  if (dot == std::string_view::npos || name.find_first_not_of('.') >= dot) return {};
  return name.substr(dot);
}

std::string WithExtension(std::string_view path, std::string_view extension, LeadByteTest isLeadByte) {
  std::string result(path.substr(0, path.size() - Extension(path, isLeadByte).size()));
  if (extension.empty() || extension == ".") return result;
  if (extension.front() != '.') result.push_back('.');
  return result.append(extension);
}

}  // namespace workbench::tx
