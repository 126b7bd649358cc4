// Files that a plug-in shows itself: the viewers of the file-format registry.
#pragma once

#include <string>

namespace workbench {

// Hands a file to the first enabled viewer that is registered for its extension and can be called. False when
// there is none: the workbench then shows the file itself.
bool OpenWithViewer(const std::wstring& path);

}  // namespace workbench
