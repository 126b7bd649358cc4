// Text in the process's 8-bit code page, which may be UTF-8. No conversion here ever bends a letter into
// another one that looks like it: a path that was bent names another file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace base {

// From the code page. Bytes that are no text in it become U+FFFD or what the system has for them.
std::wstring WideFromNarrow(std::string_view text);

// From the code page; nothing when the bytes are no text in it. For what names something.
std::optional<std::wstring> ExactWide(std::string_view text);

// Into the code page; nothing when it lacks one of the letters, or when the text is no valid UTF-16. For
// everything that names something: paths, file names, keys.
std::optional<std::string> ExactNarrow(std::wstring_view text);

// Into the code page, with "?" for each letter that it lacks (U+FFFD, in UTF-8, for half a character): only
// to be shown.
std::string DisplayNarrow(std::wstring_view text);
// The same into a string whose room is used again: for many texts, one after the other.
void DisplayNarrow(std::wstring_view text, std::string* result);

// The same for a code page that is named by its number.
std::wstring WideFromCodePage(unsigned codePage, std::string_view text);
std::optional<std::wstring> ExactWideFromCodePage(unsigned codePage, std::string_view text);
std::optional<std::string> ExactInCodePage(unsigned codePage, std::wstring_view text);
std::string DisplayInCodePage(unsigned codePage, std::wstring_view text);

}  // namespace base
