#include "base/text/code_page.h"

#include <windows.h>

namespace base {
namespace {

// With lost: nothing is converted that does not come back as it was. Without: "?" takes its place.
std::string Narrow(std::wstring_view text, bool* lost) {
  if (lost) *lost = false;
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  // UTF-8 has every letter, takes other flags and refuses the pointer.
  const bool utf8 = GetACP() == CP_UTF8;
  const DWORD flags = utf8 ? (lost ? WC_ERR_INVALID_CHARS : 0) : WC_NO_BEST_FIT_CHARS;
  BOOL replaced = FALSE;
  BOOL* const report = utf8 ? nullptr : &replaced;
  const int size = WideCharToMultiByte(CP_ACP, flags, text.data(), length, nullptr, 0, nullptr, report);
  std::string result(static_cast<size_t>(size), '\0');
  if (size > 0) {
    WideCharToMultiByte(CP_ACP, flags, text.data(), length, result.data(), size, nullptr, report);
  }
  if (lost) *lost = size == 0 || replaced;
  return result;
}

}  // namespace

std::wstring WideFromNarrow(std::string_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
  std::wstring result(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, result.data(), size);
  return result;
}

std::optional<std::string> ExactNarrow(std::wstring_view text) {
  bool lost = false;
  std::string result = Narrow(text, &lost);
  if (lost) return std::nullopt;
  return result;
}

std::string DisplayNarrow(std::wstring_view text) { return Narrow(text, nullptr); }

}  // namespace base
