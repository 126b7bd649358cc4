#include <windows.h>
// shlobj.h needs windows.h before it.
#include <shlobj.h>

#include <string>

#include "base/text/code_page.h"
#include "base/text/narrow_path.h"
#include "src/host/vc64_imp.h"
#include "workbench/imp/host_text.h"

using namespace workbench::imp;

namespace {

constexpr char kOverrideVariable[] = "HALVO_APPLICATION_DIRECTORY";
constexpr wchar_t kBelowApplicationData[] = L"\\Halvo\\UserData";
constexpr DWORD kLongPathSize = 32768;

std::wstring FullPath(const std::wstring& path) {
  std::wstring full(kLongPathSize, L'\0');
  const DWORD length = GetFullPathNameW(path.c_str(), kLongPathSize, full.data(), nullptr);
  if (length == 0 || length >= kLongPathSize) return {};
  full.resize(length);
  return full;
}

// Where the environment of the host or of the process says; read wide from the latter, since the directory need not
// exist yet and so has no short name that 8-bit text could carry.
std::wstring OverridePath() {
  if (const char* const place = Tx_Inquire_Environment(kOverrideVariable)) return base::WideFromNarrow(place);
  std::wstring value(kLongPathSize, L'\0');
  const std::wstring name = base::WideFromNarrow(kOverrideVariable);
  const DWORD length = GetEnvironmentVariableW(name.c_str(), value.data(), kLongPathSize);
  value.resize(length < kLongPathSize ? length : 0);
  return value;
}

// Below %APPDATA%, or where the environment says; absolute, without a separator at its end.
std::wstring DirectoryPath() {
  std::wstring path;
  if (const std::wstring place = OverridePath(); !place.empty()) {
    path = FullPath(place);
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
    const auto narrow = base::NarrowPath(path);
    return !narrow || narrow->empty() || narrow->size() >= kTxPathSize ? nullptr : CopyToHostMemory(*narrow);
  });
}
