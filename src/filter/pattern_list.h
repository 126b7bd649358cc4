// Pattern lists: patterns separated by commas. A "|" ends the list; what follows it is remembered history.
#pragma once

#include <functional>
#include <string_view>

namespace file_explorer {

// Longest pattern, in bytes with its terminator, that a list is asked with. A longer one matches nothing.
inline constexpr int kPatternSize = 2048;

// Says whether a whole name matches a pattern. Both are NUL-terminated.
using PatternMatcher = std::function<bool(const char* pattern, const char* name)>;

// The text without white space (blank, tab, line ends, vertical tab, form feed) at its ends.
std::string_view StripBlanks(std::string_view text);

// The patterns of a list's current part, one after the other.
class PatternListWalk {
 public:
  explicit PatternListWalk(std::string_view list) : rest_(list) {}

  // The next pattern, without blanks around it; false at the end of the text or at a "|". Empty ones are
  // skipped.
  bool Next(std::string_view* pattern);

 private:
  std::string_view rest_;
};

// "*" and "*.*" match every name.
bool MatchesEverything(std::string_view pattern);

// True when one of the list's patterns matches the name; the first that does ends the walk. Patterns that
// match everything do so without a call of the matcher. Pattern and name are handed over in their own case.
// Allocates nothing. A null list has no patterns.
bool MatchesPatternList(const char* list, const char* name, const PatternMatcher& matches);

}  // namespace file_explorer
