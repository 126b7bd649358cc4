#include "workbench/app/main/paths.h"

#include <windows.h>

namespace workbench {
namespace {

constexpr DWORD kLongestPath = 32768;

}  // namespace

std::wstring ProgramFolder() {
  std::wstring path(kLongestPath, L'\0');
  path.resize(GetModuleFileNameW(nullptr, path.data(), kLongestPath));
  const size_t separator = path.find_last_of(L"\\/");
  return separator == std::wstring::npos ? path : path.substr(0, separator);
}

std::wstring FullPathOf(const std::wstring& path) {
  std::wstring full(kLongestPath, L'\0');
  const DWORD length = GetFullPathNameW(path.c_str(), kLongestPath, full.data(), nullptr);
  if (length == 0 || length >= kLongestPath) return path;
  full.resize(length);
  return full;
}

}  // namespace workbench
