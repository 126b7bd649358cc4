// Which commands of the command toolbar make sense now.
#pragma once

namespace file_explorer {

class ExplorerWindow;

// Enables and disables the toolbar's file commands for the file view's selection and the clipboard.
void RefreshToolbarStates(ExplorerWindow& window);

}  // namespace file_explorer
