// The commands that the selector area carries out itself.
#pragma once

namespace file_explorer {

struct ExplorerState;

// False when the command is not the panel's.
bool RunPanelCommand(ExplorerState& state, int command);

}  // namespace file_explorer
