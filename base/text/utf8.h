// UTF-8 without the help of the system: what it says does not depend on the code page of the process.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace base {

enum class Utf8Sequence { kGood, kBad, kCutOff };

// Reads the sequence that begins at byte `at`, which exists. Good: *code is its character. *length is what to
// go on by: the whole good sequence; else the lead byte and as many bytes after it as could still have
// belonged to it. Overlong forms, surrogates and numbers past U+10FFFF are bad. kCutOff: the text ends before
// the sequence does.
Utf8Sequence ReadUtf8(std::string_view bytes, std::size_t at, char32_t* code, std::size_t* length);

// Each broken sequence becomes one U+FFFD.
std::wstring WideFromUtf8(std::string_view bytes);
// A surrogate without its partner becomes U+FFFD.
std::string Utf8FromWide(std::wstring_view text);

// One character in the units of wchar_t: UTF-16 on Windows, whole characters elsewhere.
void AppendCharacter(std::wstring& text, char32_t character);
// The character at unit `at`, which exists, and the number of its units in *units. A surrogate without its
// partner stands for itself.
char32_t CharacterAt(std::wstring_view text, std::size_t at, std::size_t* units);

constexpr bool IsSurrogate(char32_t character) {
  return character >= 0xD800 && character <= 0xDFFF;
}

}  // namespace base
