// Files that only the machine below Wine can make: links, and names with characters that Windows forbids.
#pragma once

#include <windows.h>

#include <string>

#include "base/files/wine_calls.h"
#include "tests/support/temp_directory.h"

namespace fileops_test {

// The machine's own path of a folder.
inline std::string MachinePath(const std::wstring& folder) {
  using Convert = char*(CDECL*)(const wchar_t*);
  const auto convert = reinterpret_cast<Convert>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name")));
  char* const path = convert ? convert(folder.c_str()) : nullptr;
  if (!path) return {};
  std::string result = path;
  HeapFree(GetProcessHeap(), 0, path);
  return result;
}

// Makes a symbolic link in folder; target: absolute machine path, or relative to the folder.
inline bool MakeLink(const std::wstring& folder, const std::string& name, const std::string& target) {
  return base::wine::MakeLink(target, MachinePath(folder) + "/" + name) == 0;
}

inline bool MakeOddFile(const std::wstring& folder, const std::string& name, const std::string& content) {
  base::wine::File file;
  return file.Create(MachinePath(folder) + "/" + name, 0644) == 0 &&
         file.Write(content.data(), content.size()) == static_cast<long>(content.size());
}

// Whether anything, a link that leads nowhere included, stands there under exactly this name.
inline bool Stands(const std::wstring& folder, const std::string& name) {
  base::wine::Status status;
  return base::wine::GetStatus(MachinePath(folder) + "/" + name, false, &status) == 0;
}
inline bool IsLink(const std::wstring& folder, const std::string& name) {
  base::wine::Status status;
  return base::wine::GetStatus(MachinePath(folder) + "/" + name, false, &status) == 0 && status.IsLink();
}

}  // namespace fileops_test
