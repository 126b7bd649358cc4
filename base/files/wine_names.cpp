#include "base/files/wine_names.h"

#include <cstdint>

#include "base/files/paths.h"

namespace base::wine {
namespace {

constexpr uint32_t kEscape = 0xDC00;

// The character that begins at a place and how many bytes it has; 0 bytes when there is no valid one.
struct Decoded {
  uint32_t character = 0;
  size_t bytes = 0;
};

Decoded DecodeAt(std::string_view text, size_t at) {
  const auto byte = [&](size_t index) { return static_cast<uint8_t>(text[index]); };
  const uint8_t first = byte(at);
  if (first < 0x80) return {first, 1};
  const size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
  if (first < 0xC2 || first > 0xF4 || at + length > text.size()) return {};
  uint32_t character = first & (0xFFu >> (length + 1));
  for (size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xC0) != 0x80) return {};
    character = (character << 6) | (byte(at + i) & 0x3Fu);
  }
  constexpr uint32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  if (character < kSmallest[length] || character > 0x10FFFF) return {};
  if (character >= 0xD800 && character < 0xE000) return {};
  return {character, length};
}

void AppendWide(std::wstring& text, uint32_t character) {
  if (sizeof(wchar_t) > 2 || character < 0x10000) {
    text += static_cast<wchar_t>(character);
    return;
  }
  text += static_cast<wchar_t>(0xD800 + ((character - 0x10000) >> 10));
  text += static_cast<wchar_t>(0xDC00 + ((character - 0x10000) & 0x3FF));
}

void AppendBytes(std::string& bytes, uint32_t character) {
  if (character < 0x80) {
    bytes += static_cast<char>(character);
    return;
  }
  if (character < 0x800) {
    bytes += static_cast<char>(0xC0 | (character >> 6));
  } else {
    if (character < 0x10000) {
      bytes += static_cast<char>(0xE0 | (character >> 12));
    } else {
      bytes += static_cast<char>(0xF0 | (character >> 18));
      bytes += static_cast<char>(0x80 | ((character >> 12) & 0x3F));
    }
    bytes += static_cast<char>(0x80 | ((character >> 6) & 0x3F));
  }
  bytes += static_cast<char>(0x80 | (character & 0x3F));
}

}  // namespace

std::wstring WideFromName(std::string_view name) {
  std::wstring text;
  text.reserve(name.size());
  for (size_t at = 0; at < name.size();) {
    const Decoded decoded = DecodeAt(name, at);
    if (decoded.bytes == 0 || decoded.character == kBackslashInName) {
      const size_t bytes = decoded.bytes == 0 ? 1 : decoded.bytes;
      for (size_t i = 0; i < bytes; ++i) AppendWide(text, kEscape + static_cast<uint8_t>(name[at + i]));
      at += bytes;
      continue;
    }
    AppendWide(text, decoded.character == '\\' ? kBackslashInName : decoded.character);
    at += decoded.bytes;
  }
  return text;
}

std::optional<std::string> NameFromWide(std::wstring_view text) {
  std::string bytes;
  bytes.reserve(text.size());
  for (size_t at = 0; at < text.size(); ++at) {
    uint32_t character = static_cast<uint32_t>(text[at]);
    if (character >= 0xD800 && character < 0xDC00) {
      const uint32_t next = at + 1 < text.size() ? static_cast<uint32_t>(text[at + 1]) : 0;
      if (next < 0xDC00 || next >= 0xE000) return std::nullopt;
      character = 0x10000 + ((character - 0xD800) << 10) + (next - 0xDC00);
      ++at;
    } else if (character >= kEscape + 0x80 && character <= kEscape + 0xFF) {
      bytes += static_cast<char>(character - kEscape);
      continue;
    } else if (character >= 0xDC00 && character < 0xE000) {
      return std::nullopt;
    }
    if (character == 0 || character == '/' || character > 0x10FFFF) return std::nullopt;
    AppendBytes(bytes, character == static_cast<uint32_t>(kBackslashInName) ? '\\' : character);
  }
  return bytes;
}

}  // namespace base::wine
