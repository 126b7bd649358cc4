#include "src/fileops/file_operation.h"

#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include "base/text/code_page.h"
#include "base/text/display_name.h"
#include "base/text/narrow_path.h"

namespace file_explorer {
namespace {

struct Move {
  std::wstring source;
  std::wstring target;
};

// Wide, and each source by its long name: what the list calls by its short name, for want of letters in the
// code page, would arrive under that name.
struct WideRequest {
  std::wstring sources;
  std::wstring folder;
  SHFILEOPSTRUCTW request = {};

  explicit WideRequest(const SHFILEOPSTRUCTA& narrow) {
    for (const char* at = narrow.pFrom; *at != '\0'; at += std::strlen(at) + 1) {
      sources += base::WithLongName(base::WideFromNarrow(at)) + L'\0';
    }
    folder = base::WideFromNarrow(narrow.pTo) + L'\0';
    request.hwnd = narrow.hwnd;
    request.wFunc = narrow.wFunc;
    request.pFrom = sources.c_str();
    request.pTo = folder.c_str();
    request.fFlags = narrow.fFlags;
  }
};

bool ShellIsWine() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

std::wstring NameOf(const std::wstring& path) {
  return path.substr(path.find_last_of(L"\\/") + 1);
}

std::vector<Move> MovesOf(const SHFILEOPSTRUCTW& request) {
  std::vector<Move> moves;
  std::wstring folder = request.pTo;
  if (!folder.ends_with(L'\\')) folder += L'\\';
  for (const wchar_t* at = request.pFrom; *at != L'\0'; at += moves.back().source.size() + 1) {
    moves.push_back({at, folder + NameOf(at)});
  }
  return moves;
}

bool Exists(const std::wstring& path) {
  return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}
bool IsFolder(const std::wstring& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}
// In its own folder already.
bool StaysWhereItIs(const Move& move) {
  return lstrcmpiW(move.source.c_str(), move.target.c_str()) == 0;
}

int Fail(SHFILEOPSTRUCTW* request, DWORD error) {
  request->fAnyOperationsAborted = FALSE;
  SetLastError(error);
  return static_cast<int>(error);
}

bool MayReplace(HWND owner, const std::vector<Move>& inTheWay) {
  if (inTheWay.empty()) return true;
  const std::wstring name = L"\"" + base::HarmlessText(NameOf(inTheWay.front().target)) + L"\"";
  const std::wstring question =
      inTheWay.size() == 1
          ? L"The folder already contains a file named " + name + L".\n\nDo you want to replace it?"
          : L"The folder already contains " + std::to_wstring(inTheWay.size()) + L" of these files, " + name +
                L" among them.\n\nDo you want to replace them?";
  return MessageBoxW(owner, question.c_str(), L"Confirm File Replace",
                     MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

int MoveOneByOne(SHFILEOPSTRUCTW* request, const std::vector<Move>& moves) {
  SHFILEOPSTRUCTW single = *request;
  for (const Move& move : moves) {
    const std::wstring list = move.source + L'\0';  // the text's own zero is the second one
    single.pFrom = list.c_str();
    single.fAnyOperationsAborted = FALSE;
    const int result = SHFileOperationW(&single);
    request->fAnyOperationsAborted = single.fAnyOperationsAborted;
    if (result != 0 || single.fAnyOperationsAborted) return result;
  }
  return 0;
}

int MoveWithWine(SHFILEOPSTRUCTW* request) {
  const std::vector<Move> moves = MovesOf(*request);
  std::vector<Move> inTheWay;
  for (const Move& move : moves) {
    if (StaysWhereItIs(move) || !Exists(move.source) || !Exists(move.target)) continue;
    // It would go into the folder of its name.
    if (IsFolder(move.source) || IsFolder(move.target)) return Fail(request, ERROR_ALREADY_EXISTS);
    inTheWay.push_back(move);
  }
  if (!MayReplace(request->hwnd, inTheWay)) {
    request->fAnyOperationsAborted = TRUE;
    return ERROR_CANCELLED;
  }
  SetLastError(ERROR_SUCCESS);
  int result = SHFileOperationW(request);
  const bool onlyFiles = std::all_of(moves.begin(), moves.end(), [](const Move& move) {
    return Exists(move.source) && !IsFolder(move.source);
  });
  if (result == ERROR_CANCELLED && moves.size() > 1 && onlyFiles) result = MoveOneByOne(request, moves);
  if (result != 0) return result;
  for (const Move& move : moves) {
    if (StaysWhereItIs(move) || !Exists(move.source)) continue;
    // Tried again for the reason.
    const bool mayReplace = std::any_of(inTheWay.begin(), inTheWay.end(),
                                        [&](const Move& asked) { return asked.target == move.target; });
    if (!MoveFileExW(move.source.c_str(), move.target.c_str(), mayReplace ? MOVEFILE_REPLACE_EXISTING : 0)) {
      return Fail(request, GetLastError());
    }
  }
  return 0;
}

}  // namespace

int WINAPI RunFileOperation(SHFILEOPSTRUCTA* request) {
  if (!ShellIsWine()) return SHFileOperationA(request);
  WideRequest wide(*request);
  const int result =
      request->wFunc == FO_MOVE ? MoveWithWine(&wide.request) : SHFileOperationW(&wide.request);
  const DWORD error = GetLastError();
  request->fAnyOperationsAborted = wide.request.fAnyOperationsAborted;
  SetLastError(error);
  return result;
}

}  // namespace file_explorer
