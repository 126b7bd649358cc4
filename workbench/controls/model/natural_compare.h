// The order in which people expect names: digits by value, letters without regard to case.
#pragma once

#include <string_view>

namespace controls {

// Upper-case form of a character for comparisons: exact for ASCII and Latin-1, the C library's for the rest.
wchar_t FoldCase(wchar_t character);

// True when both texts are equal without regard to case.
bool EqualsIgnoringCase(std::wstring_view first, std::wstring_view second);

// Negative, zero or positive as first stands before, with or after second. "file9" stands before "file10".
// Names that differ only in case or in leading zeros get a stable order too, so zero means equal texts.
int CompareNatural(std::wstring_view first, std::wstring_view second);

}  // namespace controls
