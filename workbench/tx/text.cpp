#include "workbench/tx/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace workbench::tx {

char FoldAscii(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

int CompareIgnoringCase(std::string_view a, std::string_view b) {
  const size_t common = std::min(a.size(), b.size());
  for (size_t i = 0; i < common; ++i) {
    const auto left = static_cast<unsigned char>(FoldAscii(a[i]));
    const auto right = static_cast<unsigned char>(FoldAscii(b[i]));
    if (left != right) return left < right ? -1 : 1;
  }
  if (a.size() == b.size()) return 0;
  return a.size() < b.size() ? -1 : 1;
}

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return a.size() == b.size() && CompareIgnoringCase(a, b) == 0;
}

bool EndsIgnoringCase(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && EqualIgnoringCase(text.substr(text.size() - ending.size()), ending);
}

std::string_view TrimBlanks(std::string_view text) {
  const size_t first = text.find_first_not_of(" \t");
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(" \t") - first + 1);
}

size_t HashIgnoringCase::operator()(std::string_view text) const {
  uint64_t hash = 14695981039346656037u;  // FNV-1a
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(FoldAscii(c))) * 1099511628211u;
  return static_cast<size_t>(hash);
}

bool CopyToBuffer(std::string_view text, char* result, size_t resultSize) {
  if (!result || resultSize == 0) return false;
  if (text.size() >= resultSize) {
    result[0] = '\0';
    return false;
  }
  if (!text.empty()) std::memcpy(result, text.data(), text.size());
  result[text.size()] = '\0';
  return true;
}

}  // namespace workbench::tx
