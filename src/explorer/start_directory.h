// Where the file view begins.
#pragma once

namespace file_explorer {

struct ExplorerState;

// Takes the file view to the start directory: once an instance, as soon as file view and folder tree both exist.
// Before that it does nothing.
void ApplyStartDirectory(ExplorerState& state);

// For a file view that came after the folder tree, because the host dispatched messages while it docked the explorer
// window: gives it the options, and the start directory, that it missed. Does nothing while the selector area is being
// made, which does both itself, and once the start directory is applied.
void JoinSelectorArea(ExplorerState& state);

}  // namespace file_explorer
