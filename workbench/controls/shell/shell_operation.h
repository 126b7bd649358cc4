// The system's own operation on files.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>

namespace controls {

struct ShellCode {
  DWORD error = ERROR_SUCCESS;  // the system's code
  bool aborted = false;         // by the user, or by a system that gives up without a word
};

// Deletes one file or folder. owner: of the system's questions. flags: FOF_...
ShellCode DeleteWithShell(HWND owner, const std::wstring& path, FILEOP_FLAGS flags);

}  // namespace controls
