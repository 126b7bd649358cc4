// Files that a plug-in shows itself: the viewers of the file-format registry.
#pragma once

#include <windows.h>

#include <string>

namespace workbench {

// Hands a file to the first enabled viewer that is registered for its extension and can be called. False when
// there is none: the workbench then shows the file itself.
bool OpenWithViewer(const std::wstring& path);

// Drops every handler whose callbacks lie in a library: they can't be called once it is gone. Null drops none.
void RemoveHandlersOf(HMODULE module);

}  // namespace workbench
