// Operations on the folder view and the combo view. Each does nothing (and gives null, 0 or an empty item)
// for a null host or one without a control; a failing call raises _com_error.
#pragma once

#include <windows.h>

#include "src/shellhost/shell_control_host.h"
#include "src/shellhost/shell_item.h"

namespace file_explorer {

// The options of the folder view that a user can change.
enum class FolderViewOption : DISPID { kShowFiles = 4, kShowVirtualFolders = 5, kDragAndDrop = 22 };
void SetFolderViewOption(ShellControlHost* folderView, FolderViewOption option, bool on);

// The inner tree window.
HWND GetTreeWindow(ShellControlHost* folderView);
ShellItem GetSelectedFolder(ShellControlHost* folderView);
// Whether the selected folder has a parent; false without a selection.
bool SelectedFolderHasParent(ShellControlHost* folderView);
// Makes a folder under the selected one and lets the user name it.
void CreateNewFolderInTree(ShellControlHost* folderView);

// Adds an item to the context menu that is being built (ControlEvent::kFolderMenuOpening only) and gives its
// command identifier, 0 without a control. The verb "Separator" adds a separator.
LONG AddFolderViewMenuItem(ShellControlHost* folderView, const char* caption, const char* verb);

// The combo box window of the combo view.
HWND GetComboWindow(ShellControlHost* comboView);

}  // namespace file_explorer
