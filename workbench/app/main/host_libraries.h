// What the workbench itself needs of the two host libraries, in wide text.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

// The directory of the current user's data, without a separator at its end; empty when there is none.
std::wstring ApplicationDirectory(HWND mainWindow);
// Sets the host environment variable that names the user's working folder.
bool SetWorkingDirectoryVariable(const std::wstring& folder);
// "major.minor.build.revision" of a file; empty when it has none.
std::wstring FileVersion(const std::wstring& path);
// Opens a topic of the plug-in's help; false when there is no page or nothing to show it.
bool ShowHelpTopic(const std::wstring& helpLocation, const char* helpFile, const char* topic);

}  // namespace workbench
