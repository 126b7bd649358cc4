// Dragging files out of a view.
#pragma once

#include <windows.h>

#include <objidl.h>

#include <string>
#include <vector>

#include "workbench/controls/com/com_object.h"

namespace controls {

// The files as other programs take them: CF_HDROP. Nothing says whether they should be copied or moved: that is for
// what is cut or copied to the clipboard, and in a drag would overrule the target's own rule.
ComRef<IDataObject> MakeFileData(std::vector<std::wstring> paths);

// Runs a drag of files until the button is released or Escape is pressed. effects: those that are allowed
// (DROPEFFECT_...). Who receives the files copies or moves them; nothing is deleted here.
void DragFiles(const std::vector<std::wstring>& paths, DWORD effects, bool rightButton);

}  // namespace controls
