#include "workbench/controls/shell/shell_operation.h"

#include "workbench/controls/shell/display_format.h"

namespace controls {
namespace {

// Texts one after the other, each with its closing zero, and one zero more at the end.
std::wstring DoubleZeroList(const std::vector<std::wstring>& paths) {
  std::wstring list;
  for (const std::wstring& path : paths) {
    list += path;
    list += L'\0';
  }
  list += L'\0';
  return list;
}

// The shell's operation has some codes of its own besides the system's.
std::wstring OperationErrorText(int code) {
  struct Text {
    int code;
    const wchar_t* text;
  };
  static constexpr Text kTexts[] = {
      {0x71, L"the source and the destination are the same."},
      {0x74, L"a drive's root folder cannot be moved or renamed."},
      {0x78, L"access to the source is denied."},
      {0x79, L"a path is too long."},
      {0x7C, L"the source cannot be found, or its name is not valid."},
      {0x7D, L"the destination lies inside the source."},
      {0x7E, L"the destination is a file of the same name."},
      {0x80, L"the destination is a folder of the same name."},
      {0x81, L"the name is too long for the destination."},
      {0x82, L"the destination is read-only."},
      {0x85, L"the file is too large for the destination."},
      {0x10000, L"the destination cannot be written to."},
  };
  for (const Text& row : kTexts) {
    if (row.code == code) return row.text;
  }
  return SystemErrorText(static_cast<DWORD>(code), {});
}

}  // namespace

ShellOutcome RunShellOperation(HWND owner, UINT operation, const std::vector<std::wstring>& from,
                               const std::vector<std::wstring>& to, FILEOP_FLAGS flags) {
  const std::wstring sources = DoubleZeroList(from);
  const std::wstring targets = DoubleZeroList(to);
  SHFILEOPSTRUCTW request = {};
  request.hwnd = owner;
  request.wFunc = operation;
  request.pFrom = sources.c_str();
  request.pTo = to.empty() ? nullptr : targets.c_str();
  request.fFlags = flags;
  const int code = SHFileOperationW(&request);
  constexpr int kCancelled = 0x75;
  ShellOutcome outcome;
  outcome.aborted = request.fAnyOperationsAborted || code == ERROR_CANCELLED || code == kCancelled;
  outcome.result.done = code == 0 && !outcome.aborted;
  if (code != 0 && !outcome.aborted) {
    outcome.result.error = L"The operation failed: " + OperationErrorText(code);
  }
  return outcome;
}

OperationResult Failure(const std::wstring& what, DWORD error) {
  OperationResult result;
  result.error = what + L": " + SystemErrorText(error, {});
  return result;
}

}  // namespace controls
