// The context menus of the file view and the folder tree: adding the explorer's items, and carrying out a chosen one.
#pragma once

#include <cstdint>

#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

class ExplorerWindow;

// The two events of a menu: it is about to show (kFileMenuOpening, kFolderMenuOpening), or one of the added items was
// chosen (kMenuCommand, with its command). Other codes do nothing. host, object and path are the event's. Non-zero when
// the event was dealt with.
std::int64_t HandleFileViewMenuEvent(ExplorerWindow& window, ControlEvent code, ShellControlHost* host,
                                     IDispatch* object, std::int64_t command, const char* path);
std::int64_t HandleFolderViewMenuEvent(ExplorerWindow& window, ControlEvent code, ShellControlHost* host,
                                       IDispatch* object, std::int64_t command, const char* path);

}  // namespace file_explorer
