#include "src/filter/pattern_list.h"

#include <algorithm>
#include <array>

namespace file_explorer {
namespace {

constexpr bool IsBlank(char c) {
  return c == ' ' || (c >= '\t' && c <= '\r');
}

}  // namespace

std::string_view StripBlanks(std::string_view text) {
  while (!text.empty() && IsBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

bool PatternListWalk::Next(std::string_view* pattern) {
  while (!rest_.empty() && rest_.front() != '|') {
    // This runs once a file and pattern; find_first_of takes several times as long.
    const auto end = std::find_if(rest_.begin(), rest_.end(), [](char c) { return c == ',' || c == '|'; });
    const auto length = static_cast<size_t>(end - rest_.begin());
    *pattern = StripBlanks(rest_.substr(0, length));
    rest_.remove_prefix(length);
    if (!rest_.empty() && rest_.front() == ',') rest_.remove_prefix(1);
    if (!pattern->empty()) return true;
  }
  return false;
}

bool MatchesEverything(std::string_view pattern) {
  return pattern == "*" || pattern == "*.*";
}

bool MatchesPatternList(const char* list, const char* name, const PatternMatcher& matches) {
  if (list == nullptr) return false;
  std::array<char, kPatternSize> text;
  PatternListWalk walk(list);
  for (std::string_view pattern; walk.Next(&pattern);) {
    if (MatchesEverything(pattern)) return true;
    if (pattern.size() >= text.size()) continue;
    *std::copy(pattern.begin(), pattern.end(), text.begin()) = '\0';
    if (matches(text.data(), name)) return true;
  }
  return false;
}

}  // namespace file_explorer
