#include "src/shellhost/file_view.h"

#include <commctrl.h>
#include <shlobj.h>

#include "src/framework/com/com_error_text.h"
#include "src/framework/com/com_text.h"
#include "src/shellhost/control_access.h"
#include "src/shellhost/control_contract.h"
#include "src/shellhost/control_values.h"

namespace file_explorer {
namespace {

LONG GetCount(ShellControlHost* fileView, DISPID id) {
  IDispatch* const control = ControlOf(fileView);
  return control ? GetNumber(control, id) : 0;
}

ShellItem GetItemProperty(ShellControlHost* fileView, DISPID id) {
  IDispatch* const control = ControlOf(fileView);
  return control ? ShellItem(GetObjectProperty(control, id)) : ShellItem();
}

void Execute(ShellControlHost* fileView, DISPID id, ShellCommand command) {
  if (IDispatch* const control = ControlOf(fileView)) {
    _com_dispatch_method(control, id, DISPATCH_METHOD, VT_EMPTY, nullptr, L"\x0003",
                         static_cast<LONG>(command));
  }
}

}  // namespace

void SetDisplayMode(ShellControlHost* fileView, std::string_view name) {
  IDispatch* const control = ControlOf(fileView);
  const auto value = ViewValueOfDisplayMode(name);
  if (control && value) _com_dispatch_propput(control, file_view_id::kViewStyle, VT_I4, *value);
}

void SetCurrentFolder(ShellControlHost* fileView, PCIDLIST_ABSOLUTE folder) {
  IDispatch* const control = ControlOf(fileView);
  if (!control || !folder) return;
  try {
    _com_dispatch_propput(control, file_view_id::kCurrentFolder, VT_R8,
                          PidlBitsAsDouble(reinterpret_cast<std::uintptr_t>(folder)));
  } catch (const _com_error& error) {
    ReportComError("Error while setting the file view PIDL.", error);
  }
}

PCIDLIST_ABSOLUTE GetCurrentFolder(ShellControlHost* fileView) {
  double number = 0;
  if (IDispatch* const control = ControlOf(fileView)) {
    _com_dispatch_propget(control, file_view_id::kCurrentFolder, VT_R8, &number);
  }
  return reinterpret_cast<PCIDLIST_ABSOLUTE>(AddressFromNumber(number));
}

HWND GetListWindow(ShellControlHost* fileView) {
  return GetWindowProperty(fileView, file_view_id::kListWindow);
}

int GetSelectedIndex(ShellControlHost* fileView) {
  const HWND list = GetListWindow(fileView);
  if (!list) return -1;
  return static_cast<int>(SendMessageA(list, LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

LONG GetItemCount(ShellControlHost* fileView) {
  return GetCount(fileView, file_view_id::kItemCount);
}

LONG GetSelectedCount(ShellControlHost* fileView) {
  return GetCount(fileView, file_view_id::kSelectedCount);
}

ShellItem GetItem(ShellControlHost* fileView, LONG index) {
  IDispatch* item = nullptr;
  if (IDispatch* const control = ControlOf(fileView)) {
    _com_dispatch_method(control, file_view_id::kItem, DISPATCH_PROPERTYGET, VT_DISPATCH, &item, L"\x0003",
                         index);
  }
  ComPtr<IDispatch> owned;
  owned.Attach(item);
  return ShellItem(std::move(owned));
}

ShellItem GetFirstSelectedItem(ShellControlHost* fileView) {
  return GetItemProperty(fileView, file_view_id::kFirstSelectedItem);
}

ShellItem GetNextSelectedItem(ShellControlHost* fileView) {
  return GetItemProperty(fileView, file_view_id::kNextSelectedItem);
}

ShellItem GetCurrentFolderItem(ShellControlHost* fileView) {
  return GetItemProperty(fileView, file_view_id::kCurrentFolderItem);
}

unique_pidl CopyItemPidl(ShellControlHost* fileView) {
  try {
    const ShellItem folder = GetCurrentFolderItem(fileView);
    const PCIDLIST_ABSOLUTE pidl = folder.GetPidl();
    return unique_pidl(pidl ? ILClone(pidl) : nullptr);
  } catch (const _com_error& error) {
    ReportComError("Error while copying a PIDL.", error);
    return {};
  }
}

void GoUpOneLevel(ShellControlHost* fileView) {
  if (IDispatch* const control = ControlOf(fileView)) CallMethod(control, file_view_id::kGoUp);
}

void RefreshView(ShellControlHost* fileView) {
  if (IDispatch* const control = ControlOf(fileView)) CallMethod(control, file_view_id::kRefresh);
}

void CreateNewFolder(ShellControlHost* fileView) {
  VARIANT_BOOL ignored = VARIANT_FALSE;
  if (IDispatch* const control = ControlOf(fileView)) {
    _com_dispatch_method(control, file_view_id::kNewFolder, DISPATCH_METHOD, VT_BOOL, &ignored, L"\x000b",
                         VARIANT_TRUE);
  }
}

void ExecuteOnSelection(ShellControlHost* fileView, ShellCommand command) {
  Execute(fileView, file_view_id::kExecuteOnSelection, command);
}

void ExecuteOnFolder(ShellControlHost* fileView, ShellCommand command) {
  Execute(fileView, file_view_id::kExecuteOnFolder, command);
}

LONG AddMenuItem(const ShellControlHost* host, DISPID id, const char* caption, const char* verb) {
  IDispatch* const control = ControlOf(host);
  if (!control) return 0;
  LONG command = 0;
  const UniqueBstr wideCaption = MakeBstr(caption);
  const UniqueBstr wideVerb = MakeBstr(verb);
  _com_dispatch_method(control, id, DISPATCH_METHOD, VT_I4, &command, L"\x0008\x0008", wideCaption.get(),
                       wideVerb.get());
  return command;
}

LONG AddFileViewMenuItem(ShellControlHost* fileView, const char* caption, const char* verb) {
  return AddMenuItem(fileView, file_view_id::kAddMenuItem, caption, verb);
}

}  // namespace file_explorer
