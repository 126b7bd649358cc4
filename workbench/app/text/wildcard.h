// Wildcard patterns: the host's ValidateMatchPattern and MatchPattern.
//
//   *        any run of characters, also none
//   ?        exactly one character
//   [abc]    one character of the set; ranges ("[a-z]") and single characters in any order
//   [!abc]   one character that is not in the set
//   \        the next character stands for itself, also inside a set
//   other    itself
//
// In a set "-" stands for itself at either end. Where reading "\]" as an escape would leave the set unclosed
// (no other "]" follows), the backslash is the set's last member and the "]" closes the set: "[a-z\]" takes
// the letters and the backslash. "]" outside a set stands for itself.
//
// Texts are 8-bit. A well-formed UTF-8 sequence counts as one character and every other byte as one of its
// own, so that "?" takes one letter of a name whatever the code page is.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

// True when the pattern is well formed. Else false, and *reason (may be null) gets a short phrase without a
// final full stop. Ill-formed are: a set that is not closed, an empty set, a range whose ends are in the
// wrong order, and a "\" at the end. The empty pattern is well formed and matches the empty name alone.
bool ValidatePattern(std::string_view pattern, std::string* reason);

// True when the whole name matches the pattern; letters match their other case too when ignoreCase is set. An
// ill-formed pattern matches nothing. Allocates nothing; takes at most time proportional to pattern length
// times name length.
bool MatchPattern(std::string_view pattern, std::string_view name, bool ignoreCase);

// How many steps that takes: characters looked at, and members of sets that they are compared with. For tests
// of the bound.
std::size_t CountMatchSteps(std::string_view pattern, std::string_view name, bool ignoreCase);

}  // namespace workbench
