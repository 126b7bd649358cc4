// The hand-over of a file to the host: the plug-in writes the path to a file in the temporary directory and
// sends the autoload message.
#pragma once

#include <optional>
#include <string>

namespace workbench {

// The path that the hand-over file names; nothing, with a message in *error (may be null), when there is no
// such file or it names no path. The file is left where it is.
std::optional<std::wstring> ReadAutoloadFile(std::wstring* error);

}  // namespace workbench
