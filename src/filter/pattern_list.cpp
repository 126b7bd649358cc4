#include "src/filter/pattern_list.h"

#include <algorithm>

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

void PatternList::Assign(const char* list) {
  if (list != nullptr && exists_ && source_ == list) return;
  patterns_.clear();
  source_ = list != nullptr ? list : "";
  exists_ = list != nullptr;
  PatternListWalk walk(source_);
  for (std::string_view pattern; walk.Next(&pattern);) {
    if (pattern.size() < kPatternSize) patterns_.push_back({std::string(pattern), MatchesEverything(pattern)});
  }
}

bool PatternList::Matches(const char* name, const PatternMatcher& matches) const {
  return std::any_of(patterns_.begin(), patterns_.end(), [&](const Pattern& pattern) {
    return pattern.matchesEverything || matches(pattern.text.c_str(), name);
  });
}

}  // namespace file_explorer
