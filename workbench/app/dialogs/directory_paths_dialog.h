// The default folders that the explorer's "Go to.." menu and the host's file dialogs start from.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

// Control ids, for whoever drives the dialog by messages. Row n (0 to 5) has kFirstPathEdit + n and
// kFirstBrowseButton + n; the rows are textures, scenes, import, export, documents, rendered images.
inline constexpr int kWorkingDirectoryEdit = 100;
inline constexpr int kFirstPathEdit = 110;
inline constexpr int kFirstBrowseButton = 120;
inline constexpr int kPathRows = 6;

// OK writes the changed paths to the profile's section "Search-Paths". False when the dialog could not be
// shown.
bool ShowDirectoryPathsDialog(HWND owner, const std::string& profilePath);

}  // namespace workbench
