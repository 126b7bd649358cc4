// Letter case of file names: which names a file system that ignores case takes for one.
#pragma once

#include <string>
#include <string_view>

namespace base {

// Upper-case form of a character for comparisons: exact for ASCII and Latin-1, the C library's for the rest.
wchar_t FoldCase(wchar_t character);

// The whole text in that form.
std::wstring FoldedName(std::wstring_view name);

// True when both texts are equal without regard to case.
bool EqualsIgnoringCase(std::wstring_view first, std::wstring_view second);

}  // namespace base
