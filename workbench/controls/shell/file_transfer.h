// Copying and moving files into a folder.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "workbench/controls/shell/shell_operation.h"

namespace controls {

// Copies or moves files and folders (absolute paths) into folder. Before a move replaces a file, and before
// the contents of two folders of one name are put together, the user is asked; before a copy replaces a file
// the system asks. Files that are copied into the folder they lie in get another name. done is true when
// everything that was asked for has arrived.
OperationResult CopyInto(HWND owner, const std::vector<std::wstring>& paths, const std::wstring& folder,
                         bool move);

}  // namespace controls
