#include "base/text/utf8.h"

namespace base {
namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kFirstBeyondUnits = 0x10000;

unsigned char ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

// The bytes that a sequence has after its lead byte, and what its first one may be: that already rules out
// overlong forms, surrogates and numbers that are too large.
struct Shape {
  std::size_t following;  // 0: no lead byte
  unsigned char lowest;
  unsigned char highest;
};

Shape ShapeOf(unsigned char lead) {
  if (lead >= 0xC2 && lead <= 0xDF) return {1, 0x80, 0xBF};
  if (lead == 0xE0) return {2, 0xA0, 0xBF};
  if (lead == 0xED) return {2, 0x80, 0x9F};
  if (lead >= 0xE1 && lead <= 0xEF) return {2, 0x80, 0xBF};
  if (lead == 0xF0) return {3, 0x90, 0xBF};
  if (lead >= 0xF1 && lead <= 0xF3) return {3, 0x80, 0xBF};
  if (lead == 0xF4) return {3, 0x80, 0x8F};
  return {0, 0, 0};
}

bool IsHighSurrogate(char32_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}
bool IsLowSurrogate(char32_t unit) {
  return unit >= 0xDC00 && unit <= 0xDFFF;
}

void AppendUtf8(std::string& bytes, char32_t character) {
  const auto add = [&bytes](char32_t byte) { bytes += static_cast<char>(static_cast<unsigned char>(byte)); };
  const auto following = [&](int shift) { add(0x80 | ((character >> shift) & 0x3F)); };
  if (character < 0x80) return add(character);
  if (character < 0x800) {
    add(0xC0 | (character >> 6));
    return following(0);
  }
  if (character < kFirstBeyondUnits) {
    add(0xE0 | (character >> 12));
    following(6);
    return following(0);
  }
  add(0xF0 | (character >> 18));
  following(12);
  following(6);
  following(0);
}

}  // namespace

Utf8Sequence ReadUtf8(std::string_view bytes, std::size_t at, char32_t* code, std::size_t* length) {
  const unsigned char lead = ByteAt(bytes, at);
  *length = 1;
  *code = lead;
  if (lead < 0x80) return Utf8Sequence::kGood;
  const Shape shape = ShapeOf(lead);
  if (shape.following == 0) return Utf8Sequence::kBad;
  char32_t value = lead & (0x3Fu >> shape.following);
  for (; *length <= shape.following; ++*length) {
    if (at + *length == bytes.size()) return Utf8Sequence::kCutOff;
    const unsigned char next = ByteAt(bytes, at + *length);
    const bool first = *length == 1;
    if (next < (first ? shape.lowest : 0x80) || next > (first ? shape.highest : 0xBF))
      return Utf8Sequence::kBad;
    value = (value << 6) | (next & 0x3Fu);
  }
  *code = value;
  return Utf8Sequence::kGood;
}

std::wstring WideFromUtf8(std::string_view bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t code = 0;
    std::size_t length = 1;
    const bool good = ReadUtf8(bytes, at, &code, &length) == Utf8Sequence::kGood;
    AppendCharacter(text, good ? code : kReplacement);
    at += length;
  }
  return text;
}

std::string Utf8FromWide(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (std::size_t at = 0; at < text.size();) {
    std::size_t units = 1;
    const char32_t character = CharacterAt(text, at, &units);
    const bool valid = !IsSurrogate(character) && character <= 0x10FFFF;
    AppendUtf8(bytes, valid ? character : kReplacement);
    at += units;
  }
  return bytes;
}

void AppendCharacter(std::wstring& text, char32_t character) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (character >= kFirstBeyondUnits) {
      text += static_cast<wchar_t>(0xD7C0 + (character >> 10));
      text += static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
      return;
    }
  }
  text += static_cast<wchar_t>(character);
}

char32_t CharacterAt(std::wstring_view text, std::size_t at, std::size_t* units) {
  const auto unit = static_cast<char32_t>(text[at]);
  *units = 1;
  if (sizeof(wchar_t) != 2 || !IsHighSurrogate(unit) || at + 1 == text.size()) return unit;
  const auto next = static_cast<char32_t>(text[at + 1]);
  if (!IsLowSurrogate(next)) return unit;
  *units = 2;
  return kFirstBeyondUnits + ((unit & 0x3FF) << 10) + (next & 0x3FF);
}

}  // namespace base
