#include "workbench/controls/shell/shell_operation.h"

namespace controls {
namespace {

// The shell's operation has some codes of its own, from times before the system's.
DWORD SystemCode(int code) {
  struct Row {
    int own;
    DWORD system;
  };
  static constexpr Row kRows[] = {
      {0x74, ERROR_ACCESS_DENIED},         // a drive's root folder
      {0x78, ERROR_ACCESS_DENIED},         // to the source
      {0x79, ERROR_FILENAME_EXCED_RANGE},  // a path
      {0x7C, ERROR_FILE_NOT_FOUND},        // or no valid name
      {0x402, ERROR_PATH_NOT_FOUND},      {0x10000, ERROR_WRITE_FAULT},
  };
  for (const Row& row : kRows) {
    if (row.own == code) return row.system;
  }
  return static_cast<DWORD>(code);
}

}  // namespace

ShellCode DeleteWithShell(HWND owner, const std::wstring& path, FILEOP_FLAGS flags) {
  std::wstring list = path;
  list += L'\0';  // and the one that every text has: two end the list
  SHFILEOPSTRUCTW request = {};
  request.hwnd = owner;
  request.wFunc = FO_DELETE;
  request.pFrom = list.c_str();
  request.fFlags = flags;
  const int code = SHFileOperationW(&request);
  constexpr int kCancelled = 0x75;
  ShellCode result;
  result.aborted = request.fAnyOperationsAborted || code == ERROR_CANCELLED || code == kCancelled;
  if (!result.aborted) result.error = SystemCode(code);
  return result;
}

}  // namespace controls
