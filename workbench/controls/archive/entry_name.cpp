#include "workbench/controls/archive/entry_name.h"

#include <algorithm>
#include <array>

#include "workbench/controls/model/natural_compare.h"

namespace controls {
namespace {

constexpr std::wstring_view kUnsafeMark = L" (unsafe name)";
constexpr std::wstring_view kNoName = L"(no name)";
constexpr char32_t kReplacement = 0xFFFD;
constexpr size_t kLongestExtension = 16;
// A name that is too long keeps this many characters, so that mark and number find room.
constexpr size_t kShortenedName = 200;

constexpr std::array<uint16_t, 128> kCodePage437 = {
    0x00C7, 0x00FC, 0x00E9, 0x00E2, 0x00E4, 0x00E0, 0x00E5, 0x00E7, 0x00EA, 0x00EB, 0x00E8, 0x00EF, 0x00EE,
    0x00EC, 0x00C4, 0x00C5, 0x00C9, 0x00E6, 0x00C6, 0x00F4, 0x00F6, 0x00F2, 0x00FB, 0x00F9, 0x00FF, 0x00D6,
    0x00DC, 0x00A2, 0x00A3, 0x00A5, 0x20A7, 0x0192, 0x00E1, 0x00ED, 0x00F3, 0x00FA, 0x00F1, 0x00D1, 0x00AA,
    0x00BA, 0x00BF, 0x2310, 0x00AC, 0x00BD, 0x00BC, 0x00A1, 0x00AB, 0x00BB, 0x2591, 0x2592, 0x2593, 0x2502,
    0x2524, 0x2561, 0x2562, 0x2556, 0x2555, 0x2563, 0x2551, 0x2557, 0x255D, 0x255C, 0x255B, 0x2510, 0x2514,
    0x2534, 0x252C, 0x251C, 0x2500, 0x253C, 0x255E, 0x255F, 0x255A, 0x2554, 0x2569, 0x2566, 0x2560, 0x2550,
    0x256C, 0x2567, 0x2568, 0x2564, 0x2565, 0x2559, 0x2558, 0x2552, 0x2553, 0x256B, 0x256A, 0x2518, 0x250C,
    0x2588, 0x2584, 0x258C, 0x2590, 0x2580, 0x03B1, 0x00DF, 0x0393, 0x03C0, 0x03A3, 0x03C3, 0x00B5, 0x03C4,
    0x03A6, 0x0398, 0x03A9, 0x03B4, 0x221E, 0x03C6, 0x03B5, 0x2229, 0x2261, 0x00B1, 0x2265, 0x2264, 0x2320,
    0x2321, 0x00F7, 0x2248, 0x00B0, 0x2219, 0x00B7, 0x221A, 0x207F, 0x00B2, 0x25A0, 0x00A0};

void Append(std::wstring& text, char32_t character) {
  if constexpr (sizeof(wchar_t) == 2) {
    if (character >= 0x10000) {
      text += static_cast<wchar_t>(0xD7C0 + (character >> 10));
      text += static_cast<wchar_t>(0xDC00 + (character & 0x3FF));
      return;
    }
  }
  text += static_cast<wchar_t>(character);
}

struct Utf8Lead {
  int following;      // -1: no lead byte
  char32_t bits;      // of the lead byte itself
  char32_t smallest;  // anything below is an overlong form
};

Utf8Lead LeadOf(uint8_t byte) {
  if (byte < 0x80) return {0, byte, 0};
  if (byte >= 0xC2 && byte < 0xE0) return {1, byte & 0x1Fu, 0x80};
  if (byte >= 0xE0 && byte < 0xF0) return {2, byte & 0x0Fu, 0x800};
  if (byte >= 0xF0 && byte < 0xF5) return {3, byte & 0x07u, 0x10000};
  return {-1, 0, 0};
}

bool IsSurrogate(char32_t character) {
  return character >= 0xD800 && character < 0xE000;
}

// Characters that a name cannot have here, or that make it look like another one.
bool IsForbidden(char32_t c) {
  if (c < 0x20 || (c >= 0x7F && c < 0xA0) || c == kReplacement) return true;
  if (c < 0x80)
    return std::wstring_view(L"\\/:*?\"<>|").find(static_cast<wchar_t>(c)) != std::wstring_view::npos;
  return c == 0xAD || c == 0x61C || (c >= 0x200B && c <= 0x200F) || (c >= 0x2028 && c <= 0x202E) ||
         (c >= 0x2060 && c <= 0x206F) || c == 0xFEFF || (c >= 0xFFF0 && c <= 0xFFFF);
}

// Whether the character at a place must not be shown. Of surrogates only a whole pair may.
bool IsForbiddenAt(std::wstring_view name, size_t at) {
  const auto c = static_cast<char32_t>(name[at]);
  if (!IsSurrogate(c)) return IsForbidden(c);
  if (sizeof(wchar_t) != 2) return true;
  const bool lead = c < 0xDC00;
  if (lead) return at + 1 == name.size() || name[at + 1] < 0xDC00 || name[at + 1] >= 0xE000;
  return at == 0 || name[at - 1] < 0xD800 || name[at - 1] >= 0xDC00;
}

bool IsDeviceName(std::wstring_view name) {
  std::wstring_view stem = name.substr(0, std::min(name.find(L'.'), name.size()));
  while (!stem.empty() && stem.back() == L' ') stem.remove_suffix(1);
  if (stem.size() < 3 || stem.size() > 7) return false;
  static constexpr std::wstring_view kDevices[] = {L"CON",    L"PRN",     L"AUX",   L"NUL",
                                                   L"CONIN$", L"CONOUT$", L"CLOCK$"};
  const auto isStem = [&](std::wstring_view device) { return EqualsIgnoringCase(stem, device); };
  if (std::any_of(std::begin(kDevices), std::end(kDevices), isStem)) return true;
  if (stem.size() != 4) return false;
  const wchar_t digit = stem[3];
  const bool numbered = (digit >= L'0' && digit <= L'9') || digit == 0xB9 || digit == 0xB2 || digit == 0xB3;
  const std::wstring_view port = stem.substr(0, 3);
  return numbered && (EqualsIgnoringCase(port, L"COM") || EqualsIgnoringCase(port, L"LPT"));
}

bool EndsInDotOrBlank(std::wstring_view name) {
  return !name.empty() && (name.back() == L'.' || name.back() == L' ');
}

// Where the extension begins, its dot included; the end when there is none.
size_t ExtensionStart(std::wstring_view name) {
  const size_t dot = name.rfind(L'.');
  return dot == std::wstring_view::npos || dot == 0 || name.size() - dot > kLongestExtension ? name.size()
                                                                                             : dot;
}

std::wstring WithBeforeExtension(std::wstring_view name, std::wstring_view inserted) {
  const size_t at = ExtensionStart(name);
  std::wstring result(name.substr(0, at));
  result += inserted;
  result += name.substr(at);
  return result;
}

std::wstring Shortened(std::wstring_view name) {
  const size_t dot = ExtensionStart(name);
  std::wstring result(name.substr(0, std::min(dot, kShortenedName)));
  if (!result.empty() && IsForbiddenAt(result, result.size() - 1)) result.pop_back();  // half a character
  result += L'\u2026';
  result += name.substr(dot);
  return result;
}

}  // namespace

std::wstring TextOfUtf8(std::span<const uint8_t> bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  for (size_t at = 0; at < bytes.size();) {
    const Utf8Lead lead = LeadOf(bytes[at++]);
    char32_t character = lead.bits;
    int missing = lead.following;
    while (missing > 0 && at < bytes.size() && (bytes[at] & 0xC0) == 0x80) {
      character = (character << 6) | (bytes[at++] & 0x3Fu);
      --missing;
    }
    const bool valid =
        missing == 0 && character >= lead.smallest && character <= 0x10FFFF && !IsSurrogate(character);
    Append(text, valid ? character : kReplacement);
  }
  return text;
}

std::wstring TextOfCodePage437(std::span<const uint8_t> bytes) {
  std::wstring text;
  text.reserve(bytes.size());
  for (const uint8_t byte : bytes) {
    text += byte < 0x80 ? static_cast<wchar_t>(byte) : static_cast<wchar_t>(kCodePage437[byte - 0x80u]);
  }
  return text;
}

bool IsHarmlessName(std::wstring_view name) {
  if (name.empty() || name.size() > kLongestShownName || EndsInDotOrBlank(name)) return false;
  for (size_t at = 0; at < name.size(); ++at) {
    if (IsForbiddenAt(name, at)) return false;
  }
  return !IsDeviceName(name);
}

std::wstring HarmlessName(std::wstring_view name) {
  if (name.empty()) return std::wstring(kNoName);
  std::wstring shown(name);
  for (size_t at = 0; at < shown.size(); ++at) {
    if (IsForbiddenAt(name, at)) shown[at] = L'_';
  }
  for (size_t at = shown.size(); at > 0 && (shown[at - 1] == L'.' || shown[at - 1] == L' '); --at)
    shown[at - 1] = L'_';
  if (IsDeviceName(shown)) shown.insert(0, L"_");
  if (shown.size() + kUnsafeMark.size() > kLongestShownName) shown = Shortened(shown);
  return WithBeforeExtension(shown, kUnsafeMark);
}

std::wstring NumberedName(std::wstring_view name, uint32_t number, bool folder) {
  const std::wstring mark = L" (" + std::to_wstring(number) + L")";
  const std::wstring whole =
      name.size() + mark.size() > kLongestShownName ? Shortened(name) : std::wstring(name);
  return folder ? whole + mark : WithBeforeExtension(whole, mark);
}

}  // namespace controls
