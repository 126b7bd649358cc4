// Small letters as the system knows them, for comparing and for names that are written in small letters.
#pragma once

#include <string>
#include <string_view>

namespace base {

// One unit for one unit: the length stays.
std::wstring LowerCase(std::wstring text);

// The same for text in the process's code page; there the length can change, since a small letter may take
// more bytes than its capital. A capital whose small form the code page lacks stays, and so does a text that
// is none in it.
std::string LowerCaseNarrow(std::string_view text);

}  // namespace base
