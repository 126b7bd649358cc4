// Texts across the border between the module (8-bit, the process's ANSI code page) and COM (UTF-16).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/framework/com/com_owners.h"

namespace file_explorer {

// Longest text, in UTF-16 units, that is handed on as 8-bit text.
inline constexpr UINT kLongestNarrowedText = 0x3FFFFFFE;

// In the ANSI code page; what it doesn't have becomes its replacement character.
std::string NarrowText(std::wstring_view text);
// Nothing for a null text and for one longer than kLongestNarrowedText.
std::optional<std::string> NarrowBstr(BSTR text);
// From the ANSI code page; null counts as empty.
std::wstring WideText(const char* text);
// Throw std::bad_alloc when memory is short.
UniqueBstr MakeBstr(std::wstring_view text);
UniqueBstr MakeBstr(const char* text);

}  // namespace file_explorer
