// Turning the bytes of a text file into UTF-16.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace workbench {

enum class TextEncoding { kAscii, kUtf8, kUtf8WithMark, kUtf16LittleEndian, kUtf16BigEndian, kWindows1252 };

// What the encoding is called in a status line.
const char* EncodingName(TextEncoding encoding);

// The encoding of the bytes of a file: by its byte-order mark; without one, UTF-16 when every other byte of
// western text is zero, UTF-8 when all is well formed, else Windows-1252. A character cut off at the end is
// no error.
TextEncoding DetectEncoding(std::string_view bytes);

// Decodes the bytes without their byte-order mark. What is ill-formed becomes U+FFFD; a character cut off at
// the end is left out when `cutOff` says that the file goes on behind the bytes.
std::u16string DecodeText(std::string_view bytes, TextEncoding encoding, bool cutOff);

// How much of a file's beginning LooksLikeText wants to see, in bytes.
inline constexpr std::size_t kSniffSize = std::size_t{64} * 1024;

// True when the beginning of a file reads as text: no NULs (unless it is UTF-16) and hardly any control
// characters. Empty content is text.
bool LooksLikeText(std::string_view beginning);

}  // namespace workbench
