// What the explorer does on the events of the file view and the folder tree.
#pragma once

#include <cstdint>

#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

class ExplorerWindow;

// The file view's ControlEventCallback: the owner's hook first, then the defaults.
std::int64_t DispatchFileViewEvent(std::int16_t code, ShellControlHost* host, IDispatch* object, std::int64_t a,
                                   std::int64_t b, std::int64_t c, std::int64_t d, const char* path);

// The folder tree's ControlEventCallback.
std::int64_t DispatchFolderViewEvent(std::int16_t code, ShellControlHost* host, IDispatch* object, std::int64_t a,
                                     std::int64_t b, std::int64_t c, std::int64_t d, const char* path);

// The explorer's own reactions (ExplorerWindow::FileViewEventHook).
std::int64_t FileViewEventHook(ExplorerWindow& window, ControlEvent code, ShellControlHost* host, IDispatch* object,
                               std::int64_t a, std::int64_t b, std::int64_t c, std::int64_t d, const char* path,
                               bool* handled);

}  // namespace file_explorer
