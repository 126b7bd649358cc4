#include "workbench/app/ui/text_conversion.h"

#include <windows.h>

namespace workbench {

std::wstring Widen(std::string_view text) {
  const int size = static_cast<int>(text.size());
  const int length = size == 0 ? 0 : MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
  std::wstring result(static_cast<size_t>(length), L'\0');
  if (length > 0) MultiByteToWideChar(CP_ACP, 0, text.data(), size, result.data(), length);
  return result;
}

std::string Narrow(std::wstring_view text) {
  const int size = static_cast<int>(text.size());
  const int length =
      size == 0 ? 0 : WideCharToMultiByte(CP_ACP, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
  std::string result(static_cast<size_t>(length), '\0');
  if (length > 0) WideCharToMultiByte(CP_ACP, 0, text.data(), size, result.data(), length, nullptr, nullptr);
  return result;
}

}  // namespace workbench
