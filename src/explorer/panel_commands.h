// The commands that the selector area carries out itself.
#pragma once

#include <windows.h>

namespace file_explorer {

struct ExplorerState;

// panel: the window that received the command. False when the command is not the panel's.
bool RunPanelCommand(ExplorerState& state, HWND panel, int command);

}  // namespace file_explorer
