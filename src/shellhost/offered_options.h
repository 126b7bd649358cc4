// Options that a shell control may have or lack: each is offered under its name, and a control that does not
// know the name is left alone.
#pragma once

#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

// Puts the BOOL property of that name. False when there is no control, when it has no such property, or when
// it refuses the value; nothing is said about it and nothing is thrown.
bool OfferControlOption(const ShellControlHost* host, const wchar_t* name, bool on) noexcept;

// Values of the user's options that are offered; 0 is off, anything else on.
struct OfferedOptions {
  int treeShowHiddenItems = 0;          // "TreeView_ShowHiddenFiles"
  int fileViewShowHiddenItems = 0;      // "FileView_ShowHiddenItems"
  int comboViewShowFullPath = 0;        // "ComboView_ShowFullPath"
  int comboViewShowVirtualFolders = 0;  // "ComboView_ShowVirtualFolders"
  int comboViewCompletion = 0;          // "ComboView_EnaFilenameCompletion"
};
// Offers the options to the controls that exist: folder view, file view, combo view. Each host may be null.
void OfferControlOptions(const ShellControlHost* folderView, const ShellControlHost* fileView,
                         const ShellControlHost* comboView, const OfferedOptions& options) noexcept;

}  // namespace file_explorer
