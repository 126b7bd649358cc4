// The system's own operation on files, and what it says when it fails.
#pragma once

#include <windows.h>

#include <shellapi.h>

#include <string>
#include <vector>

namespace controls {

// The outcome of an operation: an empty text when it went well or the user stopped it, else a sentence.
struct OperationResult {
  bool done = false;
  std::wstring error;
};

struct ShellOutcome {
  OperationResult result;
  bool aborted = false;  // by the user, or by a system that gives up without a word
};

// Runs the operation (FO_COPY, FO_MOVE, FO_DELETE) with the system's own questions and progress. to: empty
// for FO_DELETE, else as many paths as from, or one folder.
ShellOutcome RunShellOperation(HWND owner, UINT operation, const std::vector<std::wstring>& from,
                               const std::vector<std::wstring>& to, FILEOP_FLAGS flags);

// "what: the system's text for the error".
OperationResult Failure(const std::wstring& what, DWORD error);

}  // namespace controls
