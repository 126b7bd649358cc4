// The dialog "Explore Options". It edits the settings in place, each control the moment it changes; its Ok,
// the only way out, saves them.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

#include "src/framework/unique_handle.h"
#include "src/host/host_services.h"
#include "src/settings/explorer_settings.h"

namespace file_explorer {

// What the dialog edits and whom it asks. Everything outlives the dialog.
struct OptionsDialogContext {
  ExplorerSettings* settings = nullptr;
  host::HostServices* services = nullptr;  // colours and the host's own dialogs
  std::string helpLocation;                // passed to the request for help
  std::function<void()> save;              // writes the settings; called by Ok
  std::function<unique_pidl()>
      currentFolder;  // the folder that the file view shows, a copy; empty when there is none
};

// Modal to owner; returns when the user has pressed Ok. False when the dialog could not be made: nothing has
// changed.
bool RunOptionsDialog(HWND owner, HINSTANCE instance, const OptionsDialogContext& context);

}  // namespace file_explorer
