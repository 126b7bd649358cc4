#include "src/filter/pattern_list.h"

#include <algorithm>
#include <array>

namespace file_explorer {
namespace {

constexpr std::string_view kBlanks = " \t\r\n\v\f";

}  // namespace

std::string_view StripBlanks(std::string_view text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(kBlanks) - first + 1);
}

bool PatternListWalk::Next(std::string_view* pattern) {
  while (!rest_.empty() && rest_.front() != '|') {
    const size_t length = std::min(rest_.find_first_of(",|"), rest_.size());
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
