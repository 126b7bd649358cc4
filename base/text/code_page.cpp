#include "base/text/code_page.h"

#include <windows.h>

#include <array>
#include <climits>
#include <stdexcept>

namespace base {
namespace {

constexpr UINT kGb18030 = 54936;
// Bytes that one unit takes at most, in whatever code page.
constexpr size_t kLongestUnit = 4;

int LengthOf(size_t size) {
  if (size > INT_MAX / kLongestUnit) throw std::length_error("text too long for a code page");
  return static_cast<int>(size);
}

// These two have every character: they take other flags than the rest and refuse the pointer that reports a
// loss.
bool HasEveryCharacter(UINT codePage) {
  return codePage == CP_UTF8 || codePage == kGb18030;
}

struct Conversion {
  UINT codePage;
  DWORD flags;
  BOOL replaced = FALSE;

  int Run(std::wstring_view text, char* result, int size) {
    return WideCharToMultiByte(codePage, flags, text.data(), static_cast<int>(text.size()), result, size,
                               nullptr, HasEveryCharacter(codePage) ? nullptr : &replaced);
  }
};

// With lost: nothing is converted that does not come back as it was. Without: "?" takes its place.
void Narrow(UINT codePage, std::wstring_view text, std::string& result, bool* lost) {
  if (lost) *lost = false;
  result.clear();
  if (text.empty()) return;
  const size_t length = static_cast<size_t>(LengthOf(text.size()));
  const DWORD completeFlags = lost ? WC_ERR_INVALID_CHARS : 0;
  Conversion conversion = {codePage, HasEveryCharacter(codePage) ? completeFlags : WC_NO_BEST_FIT_CHARS};
  // Paths of a usual length are converted once; only a longer text is measured first.
  std::array<char, 1024> usual;
  int size = 0;
  if (length <= usual.size() / kLongestUnit) {
    size = conversion.Run(text, usual.data(), static_cast<int>(usual.size()));
    result.assign(usual.data(), static_cast<size_t>(size));
  } else if ((size = conversion.Run(text, nullptr, 0)) > 0) {
    result.resize(static_cast<size_t>(size));
    size = conversion.Run(text, result.data(), size);
  }
  if (lost) *lost = size == 0 || conversion.replaced;
}

std::optional<std::wstring> Widen(UINT codePage, std::string_view text, DWORD flags) {
  if (text.empty()) return std::wstring();
  const int length = LengthOf(text.size());
  // A text never has more units than it has bytes.
  std::wstring result(text.size(), L'\0');
  const int size = MultiByteToWideChar(codePage, flags, text.data(), length, result.data(), length);
  if (size == 0) return std::nullopt;
  result.resize(static_cast<size_t>(size));
  return result;
}

}  // namespace

std::wstring WideFromCodePage(unsigned codePage, std::string_view text) {
  return Widen(codePage, text, 0).value_or(std::wstring());
}

std::optional<std::wstring> ExactWideFromCodePage(unsigned codePage, std::string_view text) {
  return Widen(codePage, text, MB_ERR_INVALID_CHARS);
}

std::optional<std::string> ExactInCodePage(unsigned codePage, std::wstring_view text) {
  bool lost = false;
  std::string result;
  Narrow(codePage, text, result, &lost);
  if (lost) return std::nullopt;
  return result;
}

std::string DisplayInCodePage(unsigned codePage, std::wstring_view text) {
  std::string result;
  Narrow(codePage, text, result, nullptr);
  return result;
}

std::wstring WideFromNarrow(std::string_view text) {
  return WideFromCodePage(GetACP(), text);
}
std::optional<std::wstring> ExactWide(std::string_view text) {
  return ExactWideFromCodePage(GetACP(), text);
}
std::optional<std::string> ExactNarrow(std::wstring_view text) {
  return ExactInCodePage(GetACP(), text);
}
std::string DisplayNarrow(std::wstring_view text) {
  return DisplayInCodePage(GetACP(), text);
}
void DisplayNarrow(std::wstring_view text, std::string* result) {
  Narrow(GetACP(), text, *result, nullptr);
}

}  // namespace base
