// Choosing the home directory among the folders of the file system.
#pragma once

#include <windows.h>

#include "src/settings/explorer_settings.h"

namespace file_explorer {

// Lets the user choose a folder, modal to owner, with the present home directory selected at first. On OK the
// folder becomes settings->homeDirectory and its full path (or, without one, the name that the shell shows)
// the display name. False, with nothing changed, when the user cancels.
bool ChooseHomeDirectory(HWND owner, ExplorerSettings* settings);

}  // namespace file_explorer
