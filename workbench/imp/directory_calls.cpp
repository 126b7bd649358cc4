#include <windows.h>
// shlobj.h needs windows.h before it.
#include <shlobj.h>

#include <string>

#include "src/host/vc64_imp.h"
#include "workbench/imp/host_text.h"

using namespace workbench::imp;

namespace {

constexpr char kOverrideVariable[] = "HALVO_APPLICATION_DIRECTORY";
constexpr wchar_t kBelowApplicationData[] = L"\\Halvo\\UserData";
constexpr DWORD kLongPathSize = 32768;

std::wstring WideText(const char* text) {
  const int size = MultiByteToWideChar(CP_ACP, 0, text, -1, nullptr, 0);
  if (size <= 1) return {};
  std::wstring wide(static_cast<size_t>(size), L'\0');
  MultiByteToWideChar(CP_ACP, 0, text, -1, wide.data(), size);
  wide.resize(static_cast<size_t>(size) - 1);
  return wide;
}

// The text in the ANSI code page; empty when it can't be written in it.
std::string NarrowText(const std::wstring& text) {
  const UINT codePage = GetACP();
  // UTF-8 can write everything and takes neither of the two arguments that report a loss.
  BOOL lost = FALSE;
  BOOL* const report = codePage == CP_UTF8 ? nullptr : &lost;
  const DWORD flags = codePage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
  const int size = WideCharToMultiByte(codePage, flags, text.c_str(), -1, nullptr, 0, nullptr, report);
  if (size <= 1 || lost) return {};
  std::string narrow(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(codePage, flags, text.c_str(), -1, narrow.data(), size, nullptr, nullptr);
  narrow.resize(static_cast<size_t>(size) - 1);
  return narrow;
}

// The path in 8-bit text, through its short form when the long one can't be written in the code page.
std::string NarrowPath(const std::wstring& path) {
  std::string narrow = NarrowText(path);
  if (!narrow.empty()) return narrow;
  std::wstring shortPath(kLongPathSize, L'\0');
  const DWORD length = GetShortPathNameW(path.c_str(), shortPath.data(), kLongPathSize);
  if (length == 0 || length >= kLongPathSize) return {};
  shortPath.resize(length);
  return NarrowText(shortPath);
}

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(kLongPathSize, L'\0');
  const DWORD length = GetFullPathNameW(path.c_str(), kLongPathSize, full.data(), nullptr);
  if (length == 0 || length >= kLongPathSize) return {};
  full.resize(length);
  return full;
}

// Below %APPDATA%, or where the environment says; absolute, without a separator at its end.
std::wstring DirectoryPath() {
  std::wstring path;
  if (const char* place = Tx_Inquire_Environment(kOverrideVariable)) {
    path = FullPath(WideText(place));
  } else {
    wchar_t applicationData[MAX_PATH];
    if (FAILED(SHGetFolderPathW(nullptr, CSIDL_APPDATA | CSIDL_FLAG_CREATE, nullptr, 0, applicationData)))
      return {};
    path = std::wstring(applicationData) + kBelowApplicationData;
  }
  while (!path.empty() && (path.back() == L'\\' || path.back() == L'/')) path.pop_back();
  return path;
}

std::wstring LongForm(const std::wstring& path) {
  if (path.size() < MAX_PATH - 12 || path.starts_with(L"\\\\?\\"))
    return path;  // 12: folders need a name's room more
  return path.starts_with(L"\\\\") ? L"\\\\?\\UNC" + path.substr(1) : L"\\\\?\\" + path;
}

bool IsDirectory(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW((LongForm(path) + L"\\").c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

// Makes the directory and those above it that are missing.
bool MakeDirectories(const std::wstring& path) {
  if (IsDirectory(path)) return true;
  const size_t above = path.find_last_of(L'\\');
  if (above == std::wstring::npos || above == 0 || !MakeDirectories(path.substr(0, above))) return false;
  // Another program may make it at the same moment: what counts is that it is there.
  return CreateDirectoryW(LongForm(path).c_str(), nullptr) || IsDirectory(path);
}

}  // namespace

char* Import_IO_GetHalvoApplicationDirectoryForCurrentUser(HWND) {
  return Guarded(static_cast<char*>(nullptr), []() -> char* {
    const std::wstring path = DirectoryPath();
    if (path.empty() || !MakeDirectories(path)) return nullptr;
    const std::string narrow = NarrowPath(path);
    return narrow.empty() || narrow.size() >= kTxPathSize ? nullptr : CopyToHostMemory(narrow);
  });
}
