#include "src/fileops/file_operation.h"

#include <algorithm>
#include <string>
#include <vector>

namespace file_explorer {
namespace {

struct Move {
  std::string source;
  std::string target;
};

bool ShellIsWine() {
  return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

std::string NameOf(const std::string& path) {
  return path.substr(path.find_last_of("\\/") + 1);
}

std::vector<Move> MovesOf(const SHFILEOPSTRUCTA& request) {
  std::vector<Move> moves;
  std::string folder = request.pTo;
  if (!folder.ends_with('\\')) folder += '\\';
  for (const char* at = request.pFrom; *at != '\0'; at += moves.back().source.size() + 1) {
    moves.push_back({at, folder + NameOf(at)});
  }
  return moves;
}

bool Exists(const std::string& path) {
  return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}
bool IsFolder(const std::string& path) {
  const DWORD attributes = GetFileAttributesA(path.c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}
// In its own folder already.
bool StaysWhereItIs(const Move& move) {
  return lstrcmpiA(move.source.c_str(), move.target.c_str()) == 0;
}

int Fail(SHFILEOPSTRUCTA* request, DWORD error) {
  request->fAnyOperationsAborted = FALSE;
  SetLastError(error);
  return static_cast<int>(error);
}

bool MayReplace(HWND owner, const std::vector<Move>& inTheWay) {
  if (inTheWay.empty()) return true;
  const std::string name = "\"" + NameOf(inTheWay.front().target) + "\"";
  const std::string question =
      inTheWay.size() == 1
          ? "The folder already contains a file named " + name + ".\n\nDo you want to replace it?"
          : "The folder already contains " + std::to_string(inTheWay.size()) + " of these files, " + name +
                " among them.\n\nDo you want to replace them?";
  return MessageBoxA(owner, question.c_str(), "Confirm File Replace",
                     MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
}

int MoveOneByOne(SHFILEOPSTRUCTA* request, const std::vector<Move>& moves) {
  SHFILEOPSTRUCTA single = *request;
  for (const Move& move : moves) {
    const std::string list = move.source + '\0';  // the text's own zero is the second one
    single.pFrom = list.c_str();
    single.fAnyOperationsAborted = FALSE;
    const int result = SHFileOperationA(&single);
    request->fAnyOperationsAborted = single.fAnyOperationsAborted;
    if (result != 0 || single.fAnyOperationsAborted) return result;
  }
  return 0;
}

int MoveWithWine(SHFILEOPSTRUCTA* request) {
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
  int result = SHFileOperationA(request);
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
    if (!MoveFileExA(move.source.c_str(), move.target.c_str(), mayReplace ? MOVEFILE_REPLACE_EXISTING : 0)) {
      return Fail(request, GetLastError());
    }
  }
  return 0;
}

}  // namespace

int WINAPI RunFileOperation(SHFILEOPSTRUCTA* request) {
  if (!ShellIsWine()) return SHFileOperationA(request);
  const int result = request->wFunc == FO_MOVE ? MoveWithWine(request) : SHFileOperationA(request);
  // What the user gave up is no error. Wine leaves the error of some step on the way behind.
  if (request->fAnyOperationsAborted) SetLastError(ERROR_SUCCESS);
  return result;
}

}  // namespace file_explorer
