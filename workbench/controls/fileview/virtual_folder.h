// Reading a folder that only the shell knows: the desktop, the computer and its drives.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

#include "workbench/controls/fileview/folder_model.h"

namespace controls {

struct VirtualItem {
  std::wstring name;
  ItemFacts facts;
  VirtualEntry entry;
};

// Reads all items at once: such folders are small, and the shell's objects belong to the window's thread.
HRESULT ReadVirtualFolder(const Location& folder, HWND owner, std::vector<VirtualItem>& items);

}  // namespace controls
