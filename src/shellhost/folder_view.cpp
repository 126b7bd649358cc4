#include "src/shellhost/folder_view.h"

#include "src/shellhost/control_access.h"
#include "src/shellhost/control_contract.h"

namespace file_explorer {

void SetFolderViewOption(ShellControlHost* folderView, FolderViewOption option, bool on) {
  if (IDispatch* const control = ControlOf(folderView)) PutFlag(control, static_cast<DISPID>(option), on);
}

HWND GetTreeWindow(ShellControlHost* folderView) {
  return GetWindowProperty(folderView, folder_view_id::kTreeWindow);
}

ShellItem GetSelectedFolder(ShellControlHost* folderView) {
  IDispatch* const control = ControlOf(folderView);
  return control ? ShellItem(GetObjectProperty(control, folder_view_id::kSelectedFolder)) : ShellItem();
}

bool SelectedFolderHasParent(ShellControlHost* folderView) {
  return static_cast<bool>(GetSelectedFolder(folderView).GetParent());
}

void CreateNewFolderInTree(ShellControlHost* folderView) {
  if (IDispatch* const control = ControlOf(folderView)) CallMethod(control, folder_view_id::kNewFolder);
}

LONG AddFolderViewMenuItem(ShellControlHost* folderView, const char* caption, const char* verb) {
  return AddMenuItem(folderView, folder_view_id::kAddMenuItem, caption, verb);
}

HWND GetComboWindow(ShellControlHost* comboView) {
  return GetWindowProperty(comboView, combo_view_id::kComboWindow);
}

}  // namespace file_explorer
