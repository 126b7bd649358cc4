#include "base/text/display_name.h"

#include <algorithm>
#include <iterator>

#include "base/text/utf8.h"

namespace base {
namespace {

struct Range {
  char32_t first;
  char32_t last;
};

constexpr Range kHidden[] = {
    {0x0000, 0x001F},    // control characters
    {0x007F, 0x009F},    // delete, and the control characters of the eight-bit sets
    {0x00AD, 0x00AD},    // soft hyphen
    {0x034F, 0x034F},    // grapheme joiner
    {0x061C, 0x061C},    // Arabic letter mark: turns the direction
    {0x115F, 0x1160},    // fillers of Hangul
    {0x180E, 0x180E},    // vowel separator
    {0x200B, 0x200F},    // zero width, and marks of direction
    {0x2028, 0x202E},    // ends of line and paragraph, embeddings and overrides of direction
    {0x2060, 0x206F},    // invisible operators, isolates of direction, shaping
    {0x3164, 0x3164},    // filler of Hangul
    {0xD800, 0xDFFF},    // surrogates
    {0xFEFF, 0xFEFF},    // byte-order mark
    {0xFFA0, 0xFFA0},    // half-width filler
    {0xFFF0, 0xFFFB},    // annotation marks
    {0xFFFE, 0xFFFF},    // no characters
    {0xE0000, 0xE0FFF},  // tags
    {0x110000, 0xFFFFFFFF},
};

constexpr char32_t kReplacement = 0xFFFD;

}  // namespace

bool ShowsItself(char32_t character) {
  return std::none_of(std::begin(kHidden), std::end(kHidden), [character](const Range& range) {
    return character >= range.first && character <= range.last;
  });
}

std::wstring HarmlessText(std::wstring_view text) {
  std::wstring shown;
  shown.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    std::size_t units = 1;
    const char32_t character = CharacterAt(text, at, &units);
    AppendCharacter(shown, ShowsItself(character) ? character : kReplacement);
    at += units;
  }
  return shown;
}

}  // namespace base
