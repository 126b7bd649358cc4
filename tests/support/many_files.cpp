#include "tests/support/many_files.h"

#include <windows.h>

#include <algorithm>
#include <cstring>
#include <fstream>

#include "tests/support/wait_until.h"

namespace test_support {
namespace {

constexpr int kFewFiles = 2000;
constexpr DWORD kShellTime = 90000;
constexpr const char* kKinds[] = {".obj", ".png", ".txt", ".3ds", ".wav", ".xyz", ".csv", ".jpg"};

// The folder's path on the machine below; empty where there is none.
std::string UnixPath(const std::wstring& folder) {
  using UnixName = char*(CDECL*)(LPCWSTR);
  UnixName unixName = nullptr;
  const FARPROC address = GetProcAddress(GetModuleHandleA("kernel32.dll"), "wine_get_unix_file_name");
  std::memcpy(&unixName, &address, sizeof(unixName));
  char* const path = unixName != nullptr ? unixName(folder.c_str()) : nullptr;
  if (path == nullptr) return {};
  std::string result = path;
  HeapFree(GetProcessHeap(), 0, path);
  return result;
}

// Runs a command in the folder and waits until it is through.
bool RunShell(const std::wstring& folder, const std::string& unixPath, const std::string& command) {
  const std::wstring marker = folder + L".done";
  std::string line =
      "Z:\\bin\\sh -c \"cd '" + unixPath + "' && " + command + " ; touch '" + unixPath + ".done'\"";
  STARTUPINFOA start = {};
  start.cb = sizeof(start);
  PROCESS_INFORMATION process = {};
  if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
    return false;
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  const bool done =
      WaitUntil([&] { return GetFileAttributesW(marker.c_str()) != INVALID_FILE_ATTRIBUTES; }, kShellTime);
  DeleteFileW(marker.c_str());
  return done;
}

std::string NameOf(int number, bool severalKinds) {
  char digits[16];
  std::snprintf(digits, sizeof(digits), "%06d", number);
  return std::string("model") + digits + (severalKinds ? kKinds[number % std::size(kKinds)] : ".obj");
}

}  // namespace

int MakeManyFiles(const std::wstring& folder, int count, bool severalKinds) {
  const std::string unixPath = UnixPath(folder);
  const int made = unixPath.empty() ? std::min(count, kFewFiles) : count;
  if (unixPath.empty()) {
    for (int i = 1; i <= made; ++i) {
      const std::string name = NameOf(i, severalKinds);
      const HANDLE file = CreateFileW((folder + L"\\" + std::wstring(name.begin(), name.end())).c_str(),
                                      GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
      if (file == INVALID_HANDLE_VALUE) return 0;
      CloseHandle(file);
    }
    return made;
  }
  // The names come in a file of their own: a command line would be too long.
  const std::wstring listPath = folder + L".names";
  {
    std::string names;
    for (int i = 1; i <= made; ++i) names += NameOf(i, severalKinds) + "\n";
    const HANDLE list = CreateFileW(listPath.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (list == INVALID_HANDLE_VALUE) return 0;
    DWORD written = 0;
    WriteFile(list, names.data(), static_cast<DWORD>(names.size()), &written, nullptr);
    CloseHandle(list);
  }
  const bool done = RunShell(folder, unixPath, "xargs touch < '" + unixPath + ".names'");
  DeleteFileW(listPath.c_str());
  return done ? made : 0;
}

void DeleteManyFiles(const std::wstring& folder) {
  const std::string unixPath = UnixPath(folder);
  if (!unixPath.empty()) RunShell(folder, unixPath, "find . -name 'model*' -delete");
}

}  // namespace test_support
