// Between the 8-bit text of the host contract (the process's ANSI code page, UTF-8 in workbench.exe) and wide
// text.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

std::wstring Widen(std::string_view text);
std::string Narrow(std::wstring_view text);
// A pointer from outside; null counts as empty.
inline std::wstring WidenOrEmpty(const char* text) {
  return text == nullptr ? std::wstring() : Widen(text);
}
inline std::string TextOrEmpty(const char* text) {
  return text == nullptr ? std::string() : std::string(text);
}

}  // namespace workbench
