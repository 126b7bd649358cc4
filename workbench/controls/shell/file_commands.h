// The clipboard, new names and new folders. What takes longer: operations/file_operations.h.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

namespace controls {

inline constexpr wchar_t kClipboardInUse[] = L"The clipboard is in use by another program.";

// Opens the clipboard. Other programs hold it open for moments (those that keep its history, for one), so it
// is tried a few times, with a pause in between. False when it stays in use.
bool OpenBusyClipboard(HWND owner, const std::function<void()>& pause);

// Puts files on the clipboard, to be copied or moved by a later paste. False when the clipboard cannot be
// had.
bool PutOnClipboard(HWND owner, const std::vector<std::wstring>& paths, bool cut);

// Whether a paste would find files.
bool ClipboardHasFiles();

// The files on the clipboard, for a paste.
struct ClipboardFiles {
  std::vector<std::wstring> paths;
  bool cut = false;
  DWORD sequence = 0;  // of the clipboard's contents
  std::wstring error;  // why there are none
};
ClipboardFiles FilesToPaste(HWND owner);

// Empties the clipboard after its files were moved, so that nobody moves them again. Not when it holds
// something else by now.
void ForgetCutFiles(HWND owner, const ClipboardFiles& files);

struct OperationResult {
  bool done = false;
  std::wstring error;        // a sentence; empty when it went well or there was nothing to do
  bool nameRefused = false;  // another name would do
};

// Gives a file, folder or link a new name in its folder.
OperationResult RenameFile(const std::wstring& path, const std::wstring& newName);

// Makes a folder under a free name ("New folder", "New folder (2)" ...); its name.
OperationResult MakeNewFolder(const std::wstring& parent, std::wstring& name);

}  // namespace controls
