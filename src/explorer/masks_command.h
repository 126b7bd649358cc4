// The command "Set File Selection Mask".
#pragma once

namespace file_explorer {

class ExplorerWindow;

// Shows the masks dialog, modal to the host's main window. Afterwards the file view asks for every item anew;
// when the folder options have changed, the view options are applied first. Nothing when a dialog of the
// explorer is open already.
void ShowMasksDialog(ExplorerWindow& window);

}  // namespace file_explorer
