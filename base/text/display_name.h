// Names as people are shown them, where a name could be made to look like another one.
#pragma once

#include <string>
#include <string_view>

namespace base {

// Whether a character shows itself and nothing else: false for control characters, for those that are
// invisible or turn the direction of reading, for those that end a line, for surrogates, and for numbers that
// are no character.
bool ShowsItself(char32_t character);

// The text with U+FFFD for each character that does not show itself.
std::wstring HarmlessText(std::wstring_view text);

}  // namespace base
