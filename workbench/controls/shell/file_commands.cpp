#include "workbench/controls/shell/file_commands.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/file_list.h"
#include "workbench/controls/shell/unique_find.h"

namespace controls {
namespace {

// Together they stay below what a user feels as a pause.
constexpr int kClipboardTries = 5;
constexpr DWORD kClipboardPauseMs = 10;

void SetClipboardBlock(UINT format, HGLOBAL block) {
  if (block && !SetClipboardData(format, block)) GlobalFree(block);
}

class ClipboardOpen {
 public:
  explicit ClipboardOpen(HWND owner) : open_(OpenBusyClipboard(owner, [] { Sleep(kClipboardPauseMs); })) {}
  ~ClipboardOpen() {
    if (open_) CloseClipboard();
  }
  ClipboardOpen(const ClipboardOpen&) = delete;
  ClipboardOpen& operator=(const ClipboardOpen&) = delete;
  bool ok() const { return open_; }

 private:
  bool open_;
};

std::vector<std::wstring> FilesOnClipboard(bool& cut) {
  std::vector<std::wstring> paths = PathsOf(GetClipboardData(CF_HDROP));
  cut = false;
  if (const HGLOBAL block = GetClipboardData(PreferredEffectFormat())) {
    if (const auto* effect = static_cast<const DWORD*>(GlobalLock(block))) {
      cut = (*effect & DROPEFFECT_MOVE) != 0;
      GlobalUnlock(block);
    }
  }
  return paths;
}

// Deletes what the shell cannot name, after a question of our own. A folder must be empty.
OperationResult DeleteLiterally(HWND owner, const std::wstring& path) {
  const std::wstring question = L"Permanently delete \u201C" + std::wstring(NameOfPath(path)) +
                                L"\u201D? It cannot be moved to the recycle bin.";
  OperationResult result;
  if (MessageBoxW(owner, question.c_str(), L"Delete", MB_YESNO | MB_ICONQUESTION) != IDYES) return result;
  const std::wstring literal = ExtendedPath(path);
  const DWORD attributes = GetFileAttributesW(literal.c_str());
  const bool folder = attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
  if (!(folder ? RemoveDirectoryW(literal.c_str()) : DeleteFileW(literal.c_str()))) {
    return Failure(L"\u201C" + std::wstring(NameOfPath(path)) + L"\u201D cannot be deleted", GetLastError());
  }
  result.done = true;
  return result;
}

}  // namespace

bool OpenBusyClipboard(HWND owner, const std::function<void()>& pause) {
  for (int tries = 1; !OpenClipboard(owner); ++tries) {
    if (tries == kClipboardTries) return false;
    pause();
  }
  return true;
}

bool PutOnClipboard(HWND owner, const std::vector<std::wstring>& paths, bool cut) {
  const ClipboardOpen clipboard(owner);
  if (paths.empty() || !clipboard.ok() || !EmptyClipboard()) return false;
  SetClipboardBlock(CF_HDROP, MakeFileListBlock(paths));
  SetClipboardBlock(PreferredEffectFormat(),
                    MakeEffectBlock(cut ? DROPEFFECT_MOVE : DROPEFFECT_COPY | DROPEFFECT_LINK));
  return true;
}

bool ClipboardHasFiles() {
  return IsClipboardFormatAvailable(CF_HDROP) != FALSE;
}

OperationResult PasteInto(HWND owner, const std::wstring& folder) {
  std::vector<std::wstring> paths;
  bool cut = false;
  {
    const ClipboardOpen clipboard(owner);
    if (!clipboard.ok()) return {false, kClipboardInUse};
    paths = FilesOnClipboard(cut);
  }
  if (paths.empty()) {
    OperationResult result;
    result.error = L"There are no files on the clipboard.";
    return result;
  }
  OperationResult result = CopyInto(owner, paths, folder, cut);
  // What was moved cannot be moved again.
  if (cut && result.done) {
    const ClipboardOpen clipboard(owner);
    if (clipboard.ok()) EmptyClipboard();
  }
  return result;
}

OperationResult DeleteFiles(HWND owner, const std::vector<std::wstring>& paths, bool permanently) {
  OperationResult result;
  std::vector<std::wstring> ordinary;
  for (const std::wstring& path : paths) {
    if (ShellCanExpress(path)) {
      ordinary.push_back(path);
      continue;
    }
    const OperationResult one = DeleteLiterally(owner, path);
    if (!one.error.empty()) return one;
    result.done |= one.done;
  }
  if (ordinary.empty()) return result;
  const auto flags = static_cast<FILEOP_FLAGS>(permanently ? 0 : FOF_ALLOWUNDO);
  return RunShellOperation(owner, FO_DELETE, ordinary, {}, flags).result;
}

namespace {

// Whether the disk spells the name of a path in this way.
bool IsSpelled(const std::wstring& path) {
  WIN32_FIND_DATAW found = {};
  const UniqueFind find(FindFirstFileW(ExtendedPath(path).c_str(), &found));
  return find && NameOfPath(path) == found.cFileName;
}

// Not every system changes a name's case when it is asked to; by way of another name each does.
void SpellAnew(const std::wstring& path, const std::wstring& target) {
  const std::wstring between = ExtendedPath(target + L"~" + std::to_wstring(GetCurrentProcessId()));
  if (!MoveFileExW(ExtendedPath(path).c_str(), between.c_str(), 0)) return;
  if (!MoveFileExW(between.c_str(), ExtendedPath(target).c_str(), 0)) {
    MoveFileExW(between.c_str(), ExtendedPath(path).c_str(), 0);
  }
}

}  // namespace

OperationResult RenameFile(const std::wstring& path, const std::wstring& newName) {
  OperationResult result;
  const std::wstring target = JoinPath(ParentOfPath(path), newName);
  if (path == target) return result;
  result.error = ReasonAgainstName(newName);
  if (!result.error.empty()) return result;
  // Without MOVEFILE_REPLACE_EXISTING nothing is overwritten.
  if (!MoveFileExW(ExtendedPath(path).c_str(), ExtendedPath(target).c_str(), 0)) {
    const DWORD error = GetLastError();
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS) {
      result.error = L"There is already an item named \u201C" + newName + L"\u201D in this folder.";
      return result;
    }
    return Failure(L"\u201C" + std::wstring(NameOfPath(path)) + L"\u201D cannot be renamed", error);
  }
  if (SamePath(path, target) && !IsSpelled(target)) SpellAnew(path, target);
  result.done = true;
  return result;
}

OperationResult MakeNewFolder(const std::wstring& parent, std::wstring& name) {
  OperationResult result;
  for (int number = 1; number < 1000; ++number) {
    name = number == 1 ? L"New folder" : L"New folder (" + std::to_wstring(number) + L")";
    if (CreateDirectoryW(ExtendedPath(JoinPath(parent, name)).c_str(), nullptr)) {
      result.done = true;
      return result;
    }
    const DWORD error = GetLastError();
    if (error != ERROR_ALREADY_EXISTS && error != ERROR_FILE_EXISTS) {
      return Failure(L"A new folder cannot be made here", error);
    }
  }
  result.error = L"A new folder cannot be made here: there are too many of them.";
  return result;
}

}  // namespace controls
