// The command that opens the options dialog.
#pragma once

namespace file_explorer {

class ExplorerWindow;

// Shows the dialog, modal to the host's main window, and applies what was chosen: to the shell controls, to
// the host's category colours and to the lists, which are read again. Nothing when a dialog of the
// explorer is open already.
void ShowOptionsDialog(ExplorerWindow& window);

}  // namespace file_explorer
