// The host's dialogs, by keyword: what plug-ins ask for through the dialog service.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

namespace workbench {

// Shows a dialog, modal to owner, and returns when it is closed:
//   "EnvVariablesDialog-DirectoryPaths-Tab"                the default folders (profile section
//   "Search-Paths") "ImportConverterOptionsDialogBox"                      an import handler; argument is its
//   GUID in registry form "StartupPreferencesOptionsDialogBox-DragDropTab"       what is asked when files are
//   dragged
// profilePath is the profile file, in the process's 8-bit code page. False, with nothing shown, for other
// keywords and when no dialog could be created.
bool ShowHostDialog(std::string_view keyword, HWND owner, const char* argument,
                    const std::string& profilePath);

}  // namespace workbench
