// The options of ExplorerSettings that go to the shell controls, and the folder tree's event handler.
#pragma once

namespace file_explorer {

struct ExplorerState;

// Puts the view options to the controls that exist, then hands the category colours to the host.
void ApplyViewOptions(ExplorerState& state);

// Sets the folder tree's event handler.
void SetFolderViewCallback(ExplorerState& state);

}  // namespace file_explorer
