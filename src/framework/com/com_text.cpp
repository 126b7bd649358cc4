#include "src/framework/com/com_text.h"

#include <cstring>
#include <new>

namespace file_explorer {
namespace {

// Bytes that one UTF-16 unit takes at most, in whatever code page.
constexpr size_t kLongestLetter = 4;

}  // namespace

std::string NarrowText(std::wstring_view text) {
  if (text.empty()) return {};
  const int length = static_cast<int>(text.size());
  // Paths of a usual length are converted once; only a longer text is measured first.
  char usual[1024];
  if (text.size() <= sizeof(usual) / kLongestLetter) {
    const int written = WideCharToMultiByte(CP_ACP, 0, text.data(), length, usual, sizeof(usual), nullptr, nullptr);
    return std::string(usual, static_cast<size_t>(written));
  }
  const int needed = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<size_t>(needed), '\0');
  WideCharToMultiByte(CP_ACP, 0, text.data(), length, result.data(), needed, nullptr, nullptr);
  return result;
}

std::optional<std::string> NarrowBstr(BSTR text) {
  if (!text) return std::nullopt;
  const UINT length = SysStringLen(text);
  if (length > kLongestNarrowedText) return std::nullopt;
  return NarrowText({text, length});
}

std::wstring WideText(const char* text) {
  if (!text || !*text) return {};
  const int length = static_cast<int>(std::strlen(text));
  const int needed = MultiByteToWideChar(CP_ACP, 0, text, length, nullptr, 0);
  std::wstring result(static_cast<size_t>(needed), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text, length, result.data(), needed);
  return result;
}

UniqueBstr MakeBstr(std::wstring_view text) {
  UniqueBstr result(SysAllocStringLen(text.data(), static_cast<UINT>(text.size())));
  if (!result) throw std::bad_alloc();
  return result;
}

UniqueBstr MakeBstr(const char* text) {
  return MakeBstr(std::wstring_view(WideText(text)));
}

}  // namespace file_explorer
