#include "workbench/controls/shell/file_commands.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include "base/files/file_system.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/display_format.h"
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

bool ClipboardSaysCut() {
  const HGLOBAL block = GetClipboardData(PreferredEffectFormat());
  const auto* const effect = block ? static_cast<const DWORD*>(GlobalLock(block)) : nullptr;
  if (!effect) return false;
  const bool cut = (*effect & DROPEFFECT_MOVE) != 0;
  GlobalUnlock(block);
  return cut;
}

OperationResult Failure(const std::wstring& what, const std::wstring& name, DWORD error) {
  OperationResult result;
  result.error = what + L": " + SystemErrorText(error, name);
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

ClipboardFiles FilesToPaste(HWND owner) {
  ClipboardFiles files;
  const ClipboardOpen clipboard(owner);
  if (!clipboard.ok()) {
    files.error = kClipboardInUse;
    return files;
  }
  files.sequence = GetClipboardSequenceNumber();
  files.paths = PathsOf(GetClipboardData(CF_HDROP));
  files.cut = ClipboardSaysCut();
  if (files.paths.empty()) files.error = L"There are no files on the clipboard.";
  return files;
}

void ForgetCutFiles(HWND owner, const ClipboardFiles& files) {
  const ClipboardOpen clipboard(owner);
  if (clipboard.ok() && GetClipboardSequenceNumber() == files.sequence) EmptyClipboard();
}

namespace {

// Whether the disk spells the name of a path in this way.
bool IsSpelled(const std::wstring& path) {
  WIN32_FIND_DATAW found = {};
  const UniqueFind find(FindFirstFileW(ExtendedPath(path).c_str(), &found));
  return find && NameOfPath(path) == found.cFileName;
}

// Not every system changes a name's case when it is asked to; by way of another name each does.
void SpellAnew(const std::wstring& path, const std::wstring& target, base::FileSystem& files) {
  const std::wstring between = target + L"~" + std::to_wstring(GetCurrentProcessId());
  if (files.Rename(path, between) != base::kNoError) return;
  if (files.Rename(between, target) != base::kNoError) files.Rename(between, path);
}

}  // namespace

OperationResult RenameFile(const std::wstring& path, const std::wstring& newName) {
  OperationResult result;
  const std::wstring target = JoinPath(ParentOfPath(path), newName);
  if (path == target) return result;
  result.error = ReasonAgainstName(newName);
  result.nameRefused = !result.error.empty();
  if (result.nameRefused) return result;
  base::FileSystem& files = base::MachineFileSystem();
  files.BeginOperation();
  const base::SystemError error = files.Rename(path, target);  // replaces nothing
  if (error == base::kAlreadyExists || error == base::kFileExists) {
    result.error = L"There is already an item named \u201C" + newName + L"\u201D in this folder.";
    result.nameRefused = true;
    return result;
  }
  const std::wstring name(NameOfPath(path));
  if (error != base::kNoError) return Failure(L"\u201C" + name + L"\u201D cannot be renamed", name, error);
  if (SamePath(path, target) && !IsSpelled(target)) SpellAnew(path, target, files);
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
      return Failure(L"A new folder cannot be made here", name, error);
    }
  }
  result.error = L"A new folder cannot be made here: there are too many of them.";
  return result;
}

}  // namespace controls
