// Which commands are available in which situation.
#pragma once

#include <span>

namespace file_explorer {

struct CommandSituation {
  int selectedItems = 0;             // in the file view
  bool clipboardHasContent = false;  // any format
};

// The commands whose state depends on the situation, in the order in which their buttons are refreshed.
std::span<const int> SelectionDependentCommands();

// True for every command that does not depend on the situation.
bool IsCommandEnabled(int command, const CommandSituation& situation);

}  // namespace file_explorer
