// The go-to menu and the places that it leads to.
#pragma once

#include <windows.h>

#include <string>

namespace file_explorer {

class ExplorerWindow;

// Opens the menu below its button, which shows pressed meanwhile. The choice comes to the window as a
// command.
void ShowGoToMenu(ExplorerWindow& window);

// Carries out a command of the menu; false for a command that is none of its. A target that can't be found is
// no jump.
bool RunGoToCommand(ExplorerWindow& window, int command);

// The directory of the files that the user has downloaded, with a separator at its end: in the host's
// per-user directory, or "c:\" when its path is too long. It is made when it is missing. Empty when the host
// has no per-user directory.
std::string DownloadedFilesDirectory(HWND hostWindow);

}  // namespace file_explorer
