// The selector area: the explorer's page of the host's utility panel with its three views (folder tree,
// history, favourites) and their toolbars.
#pragma once

#include <windows.h>

#include "src/framework/command_ids.h"

namespace file_explorer {

struct ExplorerState;

// Makes folder tree and selector toolbars when they don't exist yet, and takes the file view to the start
// directory the first time. When the folder tree can't be made the shell is marked unusable and the user is
// told; the next call tries again. False in that case, and to a call that comes while the area is being made. An
// option that a control refuses raises _com_error once everything else is in place.
bool EnsureSelectorArea(ExplorerState& state);

// Destroys toolbars and folder tree, when they were made.
void DestroySelectorArea(ExplorerState& state);

// Places toolbars and views in a panel of this size; nothing before the folder tree exists.
void LayOutSelectorArea(ExplorerState& state, int width, int height);

// Shows the current selector view and hides the others; nothing before the Folders toolbar and the folder
// tree exist.
void ShowCurrentSelectorView(ExplorerState& state);

// Makes view the current one and lays the area out again.
void ShowSelectorView(ExplorerState& state, SelectorView view);

// Gives the keyboard to the view in front; does nothing before it exists.
void FocusCurrentView(const ExplorerState& state);
// Gives it to the next of view, label toolbar and, below the folder tree, command toolbar; or to the one before.
void FocusNextInSelector(const ExplorerState& state, bool backwards);

// The panel window's messages. Sets *handled when the result is the answer; else the host's own procedure
// follows.
LRESULT HandlePanelMessage(ExplorerState& state, HWND panel, UINT message, WPARAM wParam, LPARAM lParam,
                           bool* handled);

}  // namespace file_explorer
