// Copying, moving, deleting and renaming files for the user.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "workbench/controls/shell/file_transfer.h"

namespace controls {

inline constexpr wchar_t kClipboardInUse[] = L"The clipboard is in use by another program.";

// Opens the clipboard. Other programs hold it open for moments (those that keep its history, for one), so it is tried a
// few times, with a pause in between. False when it stays in use.
bool OpenBusyClipboard(HWND owner, const std::function<void()>& pause);

// Puts files on the clipboard, to be copied or moved by a later paste. False when the clipboard cannot be
// had.
bool PutOnClipboard(HWND owner, const std::vector<std::wstring>& paths, bool cut);

// Whether a paste would find files.
bool ClipboardHasFiles();

// Copies or moves what is on the clipboard into folder; the system shows its own questions and progress.
// Files that are copied into the folder they lie in get another name.
OperationResult PasteInto(HWND owner, const std::wstring& folder);

// Deletes after the system's question; permanently or to the bin.
OperationResult DeleteFiles(HWND owner, const std::vector<std::wstring>& paths, bool permanently);

// Gives a file or folder a new name in its folder.
OperationResult RenameFile(const std::wstring& path, const std::wstring& newName);

// Makes a folder under a free name ("New folder", "New folder (2)" ...); its name.
OperationResult MakeNewFolder(const std::wstring& parent, std::wstring& name);

}  // namespace controls
