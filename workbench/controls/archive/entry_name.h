// Names of archive entries: decoding, and the form in which they can be shown without harm.
#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace controls {

// Bytes that are not UTF-8 (broken, overlong, surrogates) become U+FFFD.
std::wstring TextOfUtf8(std::span<const uint8_t> bytes);
// The code page of the first PCs, in which names stand that say nothing else.
std::wstring TextOfCodePage437(std::span<const uint8_t> bytes);

// Longest part of a path that is shown as it is.
inline constexpr size_t kLongestShownName = 255;

// Whether one part of an entry's path is an ordinary name on this platform: not empty, no separator, no drive
// colon or other forbidden character, nothing invisible or that turns the direction of reading, no device
// ("con", "nul.txt"), no dot or blank at the end (so neither "." nor ".."), not too long.
bool IsHarmlessName(std::wstring_view name);

// The form in which a part of a path is shown that is no ordinary name; it says so: "nul.txt" gives
// "_nul (unsafe name).txt". Nothing gives "(no name)". The result is harmless in the sense above.
std::wstring HarmlessName(std::wstring_view name);

// "a.txt" and 2 give "a (2).txt"; a folder's number stands at the end.
std::wstring NumberedName(std::wstring_view name, uint32_t number, bool folder);

}  // namespace controls
