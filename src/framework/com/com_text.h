// Texts across the border between the module (8-bit, the process's ANSI code page) and COM (UTF-16).
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "src/framework/com/com_owners.h"

namespace file_explorer {

// Longest text, in UTF-16 units, that is handed on as 8-bit text.
inline constexpr UINT kLongestNarrowedText = 0x3FFFFFFE;

// Nothing for a null text and for one longer than kLongestNarrowedText. The view holds as long as the text.
std::optional<std::wstring_view> TextOfBstr(BSTR text);
// The same in the ANSI code page, "?" for what that lacks: to be shown, sorted and matched, never to name a file.
std::optional<std::string> DisplayBstr(BSTR text);
// Throw std::bad_alloc when memory is short.
UniqueBstr MakeBstr(std::wstring_view text);
UniqueBstr MakeBstr(const char* text);  // null counts as empty

}  // namespace file_explorer
