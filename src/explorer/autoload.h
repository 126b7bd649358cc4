// Handing a file to the host for loading.
#pragma once

#include <windows.h>

namespace file_explorer {

struct ExplorerState;

// Writes the path to the hand-over file in the temporary directory (made when it is missing; "c:\" when there is none)
// and sends the host's main window the message to load it. Without a path, or when the file can't be written, nothing
// is sent, so that the host never loads an older path.
void AutoloadFile(HWND hostWindow, const char* path);

// Remembers the file in the history and hands it to the host.
void LoadFile(ExplorerState& state, const char* path);

}  // namespace file_explorer
