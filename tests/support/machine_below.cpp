#include "tests/support/machine_below.h"

#include <windows.h>

#include <cstring>

#include "tests/support/wait_until.h"

namespace test_support {
namespace {

std::string ReadSmallFile(const std::wstring& path) {
  const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                  OPEN_EXISTING, 0, nullptr);
  if (file == INVALID_HANDLE_VALUE) return {};
  char content[16] = "";
  DWORD size = 0;
  ReadFile(file, content, sizeof content - 1, &size, nullptr);
  CloseHandle(file);
  return std::string(content, size);
}

// Not yet there, and nobody else's.
std::wstring NewResultFile() {
  wchar_t folder[MAX_PATH + 1] = L"";
  GetTempPathW(MAX_PATH + 1, folder);
  static LONG counter = 0;
  return std::wstring(folder) + L"explorer_below_" + std::to_wstring(GetCurrentProcessId()) + L"_" +
         std::to_wstring(InterlockedIncrement(&counter));
}

bool Start(std::string line) {
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
    return false;
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return true;
}

}  // namespace

std::string PathBelow(const std::wstring& path) {
  using UnixName = char*(CDECL*)(LPCWSTR);
  UnixName unixName = nullptr;
  const FARPROC address = GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name");
  std::memcpy(&unixName, &address, sizeof(unixName));
  char* const name = unixName != nullptr ? unixName(path.c_str()) : nullptr;
  if (name == nullptr) return {};
  std::string result = name;
  HeapFree(GetProcessHeap(), 0, name);
  return result;
}

// Such a process has no handle that could be waited for: the shell leaves its result in a file, which appears
// whole.
bool RunBelow(const std::string& command) {
  const std::wstring result = NewResultFile();
  const std::string below = PathBelow(result);
  if (below.empty()) return false;
  if (!Start("Z:\\bin\\sh -c \"" + command + " ; echo done $? > '" + below + ".part' ; mv '" + below +
             ".part' '" + below + "'\"")) {
    return false;
  }
  const bool ended =
      WaitQuietly([&] { return GetFileAttributesW(result.c_str()) != INVALID_FILE_ATTRIBUTES; });
  const bool worked = ended && ReadSmallFile(result).starts_with("done 0");
  DeleteFileW(result.c_str());
  return worked;
}

}  // namespace test_support
