#include <windows.h>

#include <algorithm>
#include <cstring>
#include <string>

#include "base/text/code_page.h"
#include "workbench/tx/extension_list.h"
#include "workbench/tx/library.h"
#include "workbench/tx/path_text.h"
#include "workbench/tx/text.h"

using namespace workbench::tx;

namespace {

std::string_view TextOf(const char* text) {
  return text ? text : "";
}

bool CopyPath(std::string_view path, char* result, size_t resultSize) {
  return CopyToBuffer(path, result, std::min<size_t>(resultSize, kTxPathSize));
}

// Puts newPath over the old one; the old one stays when the new one does not fit.
bool ReplacePath(char* path, size_t pathSize, const std::string& newPath) {
  if (newPath.size() >= std::min<size_t>(pathSize, kTxPathSize)) return false;
  std::memcpy(path, newPath.c_str(), newPath.size() + 1);
  return true;
}

bool IsTerminated(const char* text, size_t size) {
  return text && strnlen(text, size) < size;
}

// The path in the form that has no length limit; relative ones are made absolute.
std::wstring LongPath(const char* path) {
  std::wstring wide = base::WideFromNarrow(path);
  if (wide.size() < MAX_PATH) return wide;
  std::wstring full(32768, L'\0');
  const DWORD length = GetFullPathNameW(wide.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr);
  if (length == 0 || length >= full.size()) return wide;
  full.resize(length);
  return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

// An empty drive must not ask the user for a disk. The mode is the thread's own, not the process's.
class QuietDrives {
 public:
  QuietDrives() { SetThreadErrorMode(SEM_FAILCRITICALERRORS, &previous_); }
  ~QuietDrives() { SetThreadErrorMode(previous_, nullptr); }
  QuietDrives(const QuietDrives&) = delete;
  QuietDrives& operator=(const QuietDrives&) = delete;

 private:
  DWORD previous_ = 0;
};

}  // namespace

int Tx_ConcatenatePathAndFilename(const char* folder, const char* name, char* result, size_t resultSize) {
  return Guarded(0, [&]() -> int {
    // Joined first: result may be one of the two texts.
    const std::string joined = JoinPath(TextOf(folder), TextOf(name), IsLeadByte);
    return CopyPath(joined, result, resultSize);
  });
}

int Tx_Check_File_Extension(char* path, size_t pathSize, const char* extension) {
  return Guarded(0, [&]() -> int {
    if (!extension || !IsTerminated(path, pathSize)) return 0;
    return ReplacePath(path, pathSize, WithExtension(path, extension, IsLeadByte));
  });
}

int Tx_Check_For_File_Extension(const char* path, const char* extension) {
  const std::string_view ending = TextOf(extension);
  return path && !ending.empty() && EndsIgnoringCase(path, ending);
}

int Tx_Compare_Multiple_File_Extensions(const char* fileName, const char* extensionList) {
  return HasExtensionOfList(TextOf(fileName), TextOf(extensionList));
}

int Tx_ExtractBaseFileName(const char* path, char* result, size_t resultSize) {
  return Guarded(0, [&]() -> int {
    const std::string name(BaseName(TextOf(path), IsLeadByte));
    return CopyPath(name, result, resultSize) && path;
  });
}

int Tx_ExtractBaseFilePath(const char* path, char* result, size_t resultSize) {
  return Guarded(0, [&]() -> int {
    const std::string folder(BasePath(TextOf(path), IsLeadByte));
    return CopyPath(folder, result, resultSize) && path;
  });
}

int Tx_File_Exists(const char* path) {
  return Guarded(0, [&]() -> int {
    const std::wstring wide = path ? LongPath(path) : std::wstring();
    const QuietDrives quiet;
    return !wide.empty() && GetFileAttributesW(wide.c_str()) != INVALID_FILE_ATTRIBUTES;
  });
}

int Tx_AppendPathSeparator(char* path, size_t pathSize) {
  return Guarded(0, [&]() -> int {
    if (!IsTerminated(path, pathSize)) return 0;
    const std::string_view text = path;
    if (text.empty() || EndsInPathSeparator(text, IsLeadByte)) return 1;
    return ReplacePath(path, pathSize, std::string(text) + "\\");
  });
}
