// Operations on the file view. Each does nothing (and gives null, 0 or an empty item) for a null host or one
// without a control; a failing call raises _com_error unless said otherwise.
#pragma once

#include <windows.h>

#include <shtypes.h>

#include <string_view>

#include "src/framework/unique_handle.h"
#include "src/shellhost/shell_control_host.h"
#include "src/shellhost/shell_item.h"

namespace file_explorer {

// Commands of ExecuteOnSelection and ExecuteOnFolder.
enum class ShellCommand : LONG { kCut = 3, kCopy = 4, kPaste = 5, kDelete = 6, kRename = 10 };

// Sets the view by its name: "LargeIcon", "Report", "SmallIcon", "List" or "Thumbnails", exactly; any other
// name changes nothing.
void SetDisplayMode(ShellControlHost* fileView, std::string_view name);

// Navigates. A null list is not sent. A failing call is reported to the user ("Fatal COM Error").
void SetCurrentFolder(ShellControlHost* fileView, PCIDLIST_ABSOLUTE folder);
// The control's own list, valid until it navigates; whoever keeps it clones it.
PCIDLIST_ABSOLUTE GetCurrentFolder(ShellControlHost* fileView);

// The inner list-view window.
HWND GetListWindow(ShellControlHost* fileView);
// First selected row, from 0; -1 when there is none.
int GetSelectedIndex(ShellControlHost* fileView);
LONG GetItemCount(ShellControlHost* fileView);
LONG GetSelectedCount(ShellControlHost* fileView);

// The item in a row; index counts from 1.
ShellItem GetItem(ShellControlHost* fileView, LONG index);
// The selected items one after the other; an empty item at the end.
ShellItem GetFirstSelectedItem(ShellControlHost* fileView);
ShellItem GetNextSelectedItem(ShellControlHost* fileView);
// The folder that is shown, as an item.
ShellItem GetCurrentFolderItem(ShellControlHost* fileView);
// A copy of the current folder's list; null when there is none. A failing call is reported to the user.
unique_pidl CopyItemPidl(ShellControlHost* fileView);

void GoUpOneLevel(ShellControlHost* fileView);
void RefreshView(ShellControlHost* fileView);
void CreateNewFolder(ShellControlHost* fileView);
void ExecuteOnSelection(ShellControlHost* fileView, ShellCommand command);
void ExecuteOnFolder(ShellControlHost* fileView, ShellCommand command);

// Adds an item to the context menu that is being built (ControlEvent::kFileMenuOpening only) and gives its
// command identifier, 0 without a control. The verb "Separator" adds a separator.
LONG AddFileViewMenuItem(ShellControlHost* fileView, const char* caption, const char* verb);

}  // namespace file_explorer
