// The explorer window's message hook: navigation between folders and between the views of the selector area.
#pragma once

#include <windows.h>

namespace file_explorer {

class ExplorerWindow;
struct ExplorerState;

// The hook (ExplorerWindow::MessageHook).
LRESULT GoToDirectoryHandler(ExplorerWindow& window, UINT message, WPARAM wParam, LPARAM lParam, bool* handled);

// Makes the path absolute, parses it and navigates the file view there. A path that can't be parsed is no jump.
void GoToPath(ExplorerState& state, const char* path);

// Joins a relative path, in place, to the host's working directory (or "c:" without one). size is the buffer's.
// False, with the path unchanged, when the result does not fit.
bool MakeAbsolutePath(char* path, size_t size);

// Enables the "up" buttons of the Folders toolbar and the command toolbar while the folder tree's selected folder has a
// parent.
void RefreshUpButtons(ExplorerState& state);

}  // namespace file_explorer
