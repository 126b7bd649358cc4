// The commands that the explorer window carries out itself, when its message hook has not taken them.
#pragma once

namespace file_explorer {

class ExplorerWindow;

// command is between kFirstExplorerCommand and kLastExplorerCommand; one without a handler does nothing.
void RunExplorerCommand(ExplorerWindow& window, int command);

}  // namespace file_explorer
