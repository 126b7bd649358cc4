// Text in the process's 8-bit code page, which may be UTF-8. No conversion here ever bends a letter into another
// one that looks like it: a path that was bent names another file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

// From the code page. Bytes that are no text in it become U+FFFD or what the system has for them.
std::wstring WideFromNarrow(std::string_view text);

// Into the code page; nothing when it lacks one of the letters, or when the text is no valid UTF-16. For
// everything that names something: paths, file names, keys.
std::optional<std::string> ExactNarrow(std::wstring_view text);

// Into the code page, with "?" for each letter that it lacks: only to be shown.
std::string DisplayNarrow(std::wstring_view text);

}  // namespace base
