// Pattern lists: patterns separated by commas. A "|" ends the list; what follows it is remembered history.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

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

// A list, split once for many names.
class PatternList {
 public:
  PatternList() = default;
  explicit PatternList(const char* list) { Assign(list); }

  // Takes over a list; null has no patterns. Costs no more than a comparison when the list is still the same.
  void Assign(const char* list);
  bool exists() const { return exists_; }

  // True when one of the patterns matches the name; they are asked in their order, and the first that matches
  // ends this. Patterns that match everything do so without a call of the matcher. Pattern and name are handed
  // over in their own case. Allocates nothing.
  bool Matches(const char* name, const PatternMatcher& matches) const;

 private:
  struct Pattern {
    std::string text;
    bool matchesEverything;
  };
  std::string source_;
  bool exists_ = false;
  std::vector<Pattern> patterns_;
};

}  // namespace file_explorer
