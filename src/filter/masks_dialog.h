// The dialog "File Selection Masks".
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

#include "src/framework/unique_handle.h"
#include "src/host/host_services.h"

namespace file_explorer {

// What the dialog edits, in place, and what it needs for it. All of it outlives the dialog.
struct MasksDialog {
  HINSTANCE instance = nullptr;  // the module
  host::HostServices* services = nullptr;
  std::string helpLocation;
  unique_host_text* inclusionList = nullptr;  // stored forms, changed by Ok
  unique_host_text* exclusionList = nullptr;
  std::uint16_t* filteringMethod = nullptr;  // these three are changed at once
  std::int32_t* showFolders = nullptr;
  std::int32_t* showVirtualFolders = nullptr;
  std::function<void()> save;  // called by Ok, once both lists are stored
};

// Modal to parent; only Ok ends it. True when "Show folders" or "Show virtual folders" differs from its value
// before.
bool RunFileSelectionMasksDialog(HWND parent, const MasksDialog& dialog);

}  // namespace file_explorer
