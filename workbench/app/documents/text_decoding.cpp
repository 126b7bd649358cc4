#include "workbench/app/documents/text_decoding.h"

#include <algorithm>
#include <cstdint>

namespace workbench {
namespace {

constexpr char16_t kReplacement = 0xFFFD;
constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

// Windows-1252 from 0x80 to 0x9F; the five free places keep their number.
constexpr char16_t kWindows1252[] = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                     0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                     0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                     0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

unsigned char ByteAt(std::string_view bytes, std::size_t at) {
  return static_cast<unsigned char>(bytes[at]);
}

enum class Sequence { kGood, kBad, kCutOff };

// Reads one UTF-8 sequence. *length is what to go on by: the whole sequence, or 1 for a bad byte.
Sequence ReadUtf8(std::string_view bytes, std::size_t at, char32_t* code, std::size_t* length) {
  const unsigned char lead = ByteAt(bytes, at);
  *length = 1;
  *code = lead;
  if (lead < 0x80) return Sequence::kGood;
  if (lead < 0xC2 || lead > 0xF4) return Sequence::kBad;
  const std::size_t wanted = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  char32_t value = lead & (0x7Fu >> wanted);
  for (std::size_t i = 1; i < wanted; ++i) {
    if (at + i == bytes.size()) return Sequence::kCutOff;
    const unsigned char next = ByteAt(bytes, at + i);
    if ((next & 0xC0) != 0x80) return Sequence::kBad;
    value = (value << 6) | (next & 0x3Fu);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (value < kSmallest[wanted] || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF))
    return Sequence::kBad;
  *code = value;
  *length = wanted;
  return Sequence::kGood;
}

void Append(std::u16string* text, char32_t code) {
  if (code < 0x10000) {
    text->push_back(static_cast<char16_t>(code));
  } else {
    text->push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
    text->push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
  }
}

std::u16string DecodeUtf8(std::string_view bytes, bool cutOff) {
  std::u16string text;
  text.reserve(bytes.size());
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t code = 0;
    std::size_t length = 1;
    const Sequence sequence = ReadUtf8(bytes, at, &code, &length);
    if (sequence == Sequence::kCutOff) {
      if (!cutOff) text.push_back(kReplacement);
      break;
    }
    Append(&text, sequence == Sequence::kGood ? code : char32_t{kReplacement});
    at += length;
  }
  return text;
}

bool IsHighSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xD800;
}
bool IsLowSurrogate(char16_t unit) {
  return (unit & 0xFC00) == 0xDC00;
}

std::u16string DecodeUtf16(std::string_view bytes, bool bigEndian, bool cutOff) {
  std::u16string text;
  text.reserve(bytes.size() / 2 + 1);
  for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
    const unsigned low = ByteAt(bytes, at + (bigEndian ? 1 : 0));
    const unsigned high = ByteAt(bytes, at + (bigEndian ? 0 : 1));
    text.push_back(static_cast<char16_t>(high * 256 + low));
  }
  if (bytes.size() % 2 != 0 && !cutOff) text.push_back(kReplacement);
  if (cutOff && !text.empty() && IsHighSurrogate(text.back())) text.pop_back();
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (IsHighSurrogate(text[i]) && i + 1 < text.size() && IsLowSurrogate(text[i + 1])) {
      ++i;
    } else if (IsHighSurrogate(text[i]) || IsLowSurrogate(text[i])) {
      text[i] = kReplacement;
    }
  }
  return text;
}

std::u16string DecodeWindows1252(std::string_view bytes) {
  std::u16string text(bytes.size(), u'\0');
  std::transform(bytes.begin(), bytes.end(), text.begin(), [](char c) -> char16_t {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 0x80 && byte <= 0x9F ? kWindows1252[byte - 0x80] : byte;
  });
  return text;
}

bool IsWellFormedUtf8(std::string_view bytes) {
  for (std::size_t at = 0; at < bytes.size();) {
    char32_t code = 0;
    std::size_t length = 1;
    const Sequence sequence = ReadUtf8(bytes, at, &code, &length);
    if (sequence == Sequence::kBad) return false;
    if (sequence == Sequence::kCutOff) return true;
    at += length;
  }
  return true;
}

// Western text in UTF-16 has a zero in every other byte and none in between.
bool LooksLikeUtf16(std::string_view bytes, bool bigEndian) {
  const std::size_t pairs = std::min(bytes.size(), kSniffSize) / 2;
  if (pairs < 2 || bytes.size() % 2 != 0) return false;
  std::size_t zeroHigh = 0;
  for (std::size_t i = 0; i < pairs; ++i) {
    if (bytes[2 * i + (bigEndian ? 1 : 0)] == '\0') return false;
    zeroHigh += bytes[2 * i + (bigEndian ? 0 : 1)] == '\0';
  }
  return zeroHigh * 10 >= pairs * 7;
}

std::string_view MarkOf(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::kUtf8WithMark:
      return kUtf8Mark;
    case TextEncoding::kUtf16LittleEndian:
      return kUtf16LittleMark;
    case TextEncoding::kUtf16BigEndian:
      return kUtf16BigMark;
    default:
      return {};
  }
}

}  // namespace

const char* EncodingName(TextEncoding encoding) {
  switch (encoding) {
    case TextEncoding::kAscii:
      return "ASCII";
    case TextEncoding::kUtf8:
      return "UTF-8";
    case TextEncoding::kUtf8WithMark:
      return "UTF-8 with byte-order mark";
    case TextEncoding::kUtf16LittleEndian:
      return "UTF-16";
    case TextEncoding::kUtf16BigEndian:
      return "UTF-16 big-endian";
    case TextEncoding::kWindows1252:
      break;
  }
  return "Windows-1252";
}

TextEncoding DetectEncoding(std::string_view bytes) {
  if (bytes.starts_with(kUtf8Mark)) return TextEncoding::kUtf8WithMark;
  if (bytes.starts_with(kUtf16LittleMark)) return TextEncoding::kUtf16LittleEndian;
  if (bytes.starts_with(kUtf16BigMark)) return TextEncoding::kUtf16BigEndian;
  if (LooksLikeUtf16(bytes, false)) return TextEncoding::kUtf16LittleEndian;
  if (LooksLikeUtf16(bytes, true)) return TextEncoding::kUtf16BigEndian;
  if (std::all_of(bytes.begin(), bytes.end(), [](char c) { return static_cast<unsigned char>(c) < 0x80; })) {
    return TextEncoding::kAscii;
  }
  return IsWellFormedUtf8(bytes) ? TextEncoding::kUtf8 : TextEncoding::kWindows1252;
}

std::u16string DecodeText(std::string_view bytes, TextEncoding encoding, bool cutOff) {
  const std::string_view mark = MarkOf(encoding);
  if (!mark.empty() && bytes.starts_with(mark)) bytes.remove_prefix(mark.size());
  switch (encoding) {
    case TextEncoding::kUtf16LittleEndian:
    case TextEncoding::kUtf16BigEndian:
      return DecodeUtf16(bytes, encoding == TextEncoding::kUtf16BigEndian, cutOff);
    case TextEncoding::kWindows1252:
      return DecodeWindows1252(bytes);
    default:
      return DecodeUtf8(bytes, cutOff);
  }
}

bool LooksLikeText(std::string_view beginning) {
  beginning = beginning.substr(0, kSniffSize);
  if (beginning.empty()) return true;
  const TextEncoding encoding = DetectEncoding(beginning);
  const std::u16string text = DecodeText(beginning, encoding, true);
  std::size_t odd = 0;
  for (const char16_t unit : text) {
    if (unit == 0) return false;
    const bool layout = unit == u'\t' || unit == u'\n' || unit == u'\r' || unit == u'\f' || unit == 0x1B;
    const bool control = (unit < 0x20 && !layout) || (unit >= 0x7F && unit < 0xA0);
    odd += control || unit == kReplacement;
  }
  return odd * 100 <= text.size();  // one in a hundred may be odd
}

}  // namespace workbench
