#include "workbench/controls/shell/file_commands.h"

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/display_format.h"
#include "workbench/controls/shell/file_list.h"

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

void SetClipboardBlock(UINT format, HGLOBAL block) {
  if (block && !SetClipboardData(format, block)) GlobalFree(block);
}

class ClipboardOpen {
 public:
  explicit ClipboardOpen(HWND owner) : open_(OpenClipboard(owner) != FALSE) {}
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
  return SystemErrorText(static_cast<DWORD>(code));
}

OperationResult RunShellOperation(HWND owner, UINT operation, const std::wstring& from,
                                  const std::wstring* to, FILEOP_FLAGS flags) {
  SHFILEOPSTRUCTW request = {};
  request.hwnd = owner;
  request.wFunc = operation;
  request.pFrom = from.c_str();
  request.pTo = to ? to->c_str() : nullptr;
  request.fFlags = flags;
  const int code = SHFileOperationW(&request);
  OperationResult result;
  result.done = code == 0 && !request.fAnyOperationsAborted;
  constexpr int kCancelled = 0x75;
  if (code != 0 && !request.fAnyOperationsAborted && code != ERROR_CANCELLED && code != kCancelled) {
    result.error = L"The operation failed: " + OperationErrorText(code);
  }
  return result;
}

OperationResult Failure(const std::wstring& what, DWORD error) {
  OperationResult result;
  result.error = what + L": " + SystemErrorText(error);
  return result;
}

OperationResult CannotExpress(const std::wstring& path) {
  OperationResult result;
  result.error =
      L"\u201C" + std::wstring(NameOfPath(path)) +
      L"\u201D cannot be copied or moved by the system: its path is too long or its name is reserved.";
  return result;
}

OperationResult IntoItself(const std::wstring& path) {
  OperationResult result;
  result.error =
      L"\u201C" + std::wstring(NameOfPath(path)) + L"\u201D cannot be copied or moved into itself.";
  return result;
}

bool Exists(const std::wstring& path) {
  return GetFileAttributesW(ExtendedPath(path).c_str()) != INVALID_FILE_ATTRIBUTES;
}

// A free name for a copy beside its source: "name - Copy.ext", "name - Copy (2).ext".
std::wstring CopyName(const std::wstring& path) {
  const std::wstring folder = ParentOfPath(path);
  const std::wstring name(NameOfPath(path));
  const std::wstring_view extension = ExtensionOf(name);
  const bool hasExtension = !extension.empty();
  const std::wstring stem = hasExtension ? name.substr(0, name.size() - extension.size() - 1) : name;
  const std::wstring suffix = hasExtension ? L"." + std::wstring(extension) : std::wstring();
  for (int number = 1;; ++number) {
    const std::wstring count = number == 1 ? std::wstring() : L" (" + std::to_wstring(number) + L")";
    std::wstring candidate = JoinPath(folder, stem + L" - Copy" + count + suffix);
    if (!Exists(candidate)) return candidate;
  }
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

OperationResult CopyInto(HWND owner, const std::vector<std::wstring>& paths, const std::wstring& folder,
                         bool move) {
  if (!ShellCanExpress(folder)) return CannotExpress(folder);
  std::vector<std::wstring> sources;
  std::vector<std::wstring> targets;
  for (const std::wstring& path : paths) {
    if (!ShellCanExpress(path)) return CannotExpress(path);
    if (IsWithin(folder, path)) return IntoItself(path);
    const bool sameFolder = SamePath(ParentOfPath(path), folder);
    if (sameFolder && move) continue;  // it is there already
    sources.push_back(path);
    targets.push_back(sameFolder ? CopyName(path) : JoinPath(folder, NameOfPath(path)));
  }
  OperationResult result;
  if (sources.empty()) return result;
  const std::wstring from = DoubleZeroList(sources);
  const std::wstring to = DoubleZeroList(targets);
  return RunShellOperation(owner, move ? FO_MOVE : FO_COPY, from, &to,
                           FOF_ALLOWUNDO | FOF_NOCONFIRMMKDIR | FOF_MULTIDESTFILES);
}

OperationResult PasteInto(HWND owner, const std::wstring& folder) {
  std::vector<std::wstring> paths;
  bool cut = false;
  {
    const ClipboardOpen clipboard(owner);
    if (!clipboard.ok()) return Failure(L"The clipboard cannot be opened", GetLastError());
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
  return RunShellOperation(owner, FO_DELETE, DoubleZeroList(ordinary), nullptr, flags);
}

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
