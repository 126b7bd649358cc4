// The title that a copy or move hands to the shell.
#pragma once

#include <string>

namespace file_explorer {

// count: the number of selected items. The shell doesn't show the title, as it isn't asked for the simple
// progress window; that, and the plural standing for no item instead of several, are kept on purpose.
std::string ProgressTitle(bool move, int count);

}  // namespace file_explorer
