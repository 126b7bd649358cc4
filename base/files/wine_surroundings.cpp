// Only for Wine: see the header.
#include "base/files/wine_surroundings.h"

#include <windows.h>

#include <memory>

#include "base/files/paths.h"
#include "base/files/wine_calls.h"
#include "base/files/wine_file_system.h"
#include "base/handles/unique_handle.h"

namespace base::wine {
namespace {

// Gives a text of the process heap.
using GetUnixFileName = char*(CDECL*)(LPCWSTR path);

GetUnixFileName UnixFileNameCall() {
  return reinterpret_cast<GetUnixFileName>(
      reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32.dll"), "wine_get_unix_file_name")));
}

std::string PathOfRoot(const std::wstring& root) {
  const GetUnixFileName call = UnixFileNameCall();
  char* const text = call ? call((root + L"\\").c_str()) : nullptr;
  if (!text) return {};
  std::string path = text;
  HeapFree(GetProcessHeap(), 0, text);
  while (!path.empty() && path.back() == '/') path.pop_back();
  return path.empty() ? "/." : path;
}

SystemError TryToOpen(const std::wstring& path, bool toDelete) {
  const unique_file file =
      OwnFile(CreateFileW(ExtendedPath(path).c_str(), toDelete ? DELETE : GENERIC_READ,
                          FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr, OPEN_EXISTING,
                          FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  return file ? kNoError : GetLastError();
}

}  // namespace

FileSystem* FileSystemOfWine() {
  if (!CanCallKernel()) return nullptr;
  static WineFileSystem files({&PathOfRoot, &TryToOpen});
  return &files;
}

}  // namespace base::wine
