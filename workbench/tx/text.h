// Comparing 8-bit texts without regard to the case of the letters A to Z. Bytes outside ASCII compare as they
// are: extensions, GUIDs and environment names that Windows programs use are ASCII, and folding bytes of an
// unknown code page would be wrong for some of them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench::tx {

char FoldAscii(char c);
// Negative, 0 or positive, as a comes before, equals or follows b.
int CompareIgnoringCase(std::string_view a, std::string_view b);
bool EqualIgnoringCase(std::string_view a, std::string_view b);
bool EndsIgnoringCase(std::string_view text, std::string_view ending);

std::string_view TrimBlanks(std::string_view text);  // blanks and tabs, at both ends

// For containers keyed by texts: look-ups take a std::string_view and allocate nothing.
struct LessIgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return CompareIgnoringCase(a, b) < 0; }
};
struct HashIgnoringCase {
  using is_transparent = void;
  size_t operator()(std::string_view text) const;
};
struct EqualsIgnoringCase {
  using is_transparent = void;
  bool operator()(std::string_view a, std::string_view b) const { return EqualIgnoringCase(a, b); }
};

// Copies text with its terminator. False, with an empty result where there is room for one, when it does not
// fit or result is null.
bool CopyToBuffer(std::string_view text, char* result, size_t resultSize);

}  // namespace workbench::tx
