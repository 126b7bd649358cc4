#include "src/shellhost/shell_controls.h"

#include <commctrl.h>

#include <span>
#include <utility>

#include "base/flow/steps.h"
#include "base/text/code_page.h"
#include "src/framework/com/com_guard.h"
#include "src/framework/com/com_text.h"
#include "src/shellhost/control_access.h"
#include "src/shellhost/control_container.h"
#include "src/shellhost/control_contract.h"
#include "src/shellhost/event_sinks.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/folder_view.h"
#include "src/shellhost/shell_control_state.h"

namespace file_explorer {
namespace {

template <class Sink, class Events>
ComPtr<IDispatch> MakeSink(ControlEventSink** side) {
  const auto sink = CComObject<Sink>::New();
  *side = sink.Get();
  return ComPtr<IDispatch>(static_cast<Events*>(sink.Get()));
}

// A property that a control gets right after its creation.
struct CreationValue {
  DISPID id;
  VARTYPE type;  // VT_DISPATCH: the shared font
  LONG value;
};

constexpr LONG kTrue = VARIANT_TRUE;

// The orders are those in which the controls expect their properties.
constexpr CreationValue kFileViewValues[] = {
    {file_view_id::kFont, VT_DISPATCH, 0},
    {file_view_id::kGridLines, VT_BOOL, kTrue},
    {file_view_id::kColumnHeaders, VT_BOOL, kTrue},
    {file_view_id::kInPlaceRename, VT_BOOL, kTrue},
    {file_view_id::kSingleSelection, VT_BOOL, VARIANT_FALSE},
    {file_view_id::kContextMenu, VT_BOOL, kTrue},
    {file_view_id::kHeaderSort, VT_BOOL, kTrue},
    {file_view_id::kFullRowSelect, VT_BOOL, kTrue},
    {file_view_id::kArchivesAsFolders, VT_BOOL, kTrue},
    {file_view_id::kInfoTips, VT_BOOL, kTrue},
    {file_view_id::kKeyboard, VT_BOOL, kTrue},
    {file_view_id::kDragAndDrop, VT_BOOL, kTrue},
    {file_view_id::kThumbnailQuality, VT_I4, 2},
};

constexpr CreationValue kFolderViewValues[] = {
    {folder_view_id::kFont, VT_DISPATCH, 0},
    {folder_view_id::kLines, VT_BOOL, kTrue},
    {folder_view_id::kButtons, VT_BOOL, kTrue},
    {folder_view_id::kShowSelectionAlways, VT_BOOL, kTrue},
    {folder_view_id::kInPlaceRename, VT_BOOL, kTrue},
    {folder_view_id::kContextMenu, VT_BOOL, kTrue},
    {folder_view_id::kDragAndDrop, VT_BOOL, VARIANT_FALSE},
};

constexpr CreationValue kComboViewValues[] = {
    {combo_view_id::kFont, VT_DISPATCH, 0},     {combo_view_id::kVirtualFolders, VT_BOOL, kTrue},
    {combo_view_id::kHistory, VT_BOOL, kTrue},  {combo_view_id::kDropDownRows, VT_I2, 20},
    {combo_view_id::kIcons, VT_BOOL, kTrue},    {combo_view_id::kCompletion, VT_BOOL, kTrue},
    {combo_view_id::kFullPath, VT_BOOL, kTrue}, {combo_view_id::kEnterNavigates, VT_BOOL, kTrue},
    {combo_view_id::kBorderStyle, VT_I4, 3},
};

void PutCreationValues(IDispatch* control, std::span<const CreationValue> values) {
  for (const CreationValue& value : values) {
    if (value.type != VT_DISPATCH) {
      _com_dispatch_propput(control, value.id, value.type, value.value);
    } else if (IFontDisp* const font = SharedControlFont()) {
      _com_dispatch_propput(control, value.id, VT_DISPATCH, static_cast<IDispatch*>(font));
    }
  }
}

ShellControlPtr NewHost(const ShellControlClass& controlClass, HWND parentWindow,
                                          PropertyList properties) {
  auto host = base::make_held<ShellControlHost>();
  CreateShellControl(*host, controlClass, parentWindow, std::move(properties));
  if (!host->site) return nullptr;
  return host;
}

// Style bits of the inner list on top of what the control chose.
void StyleListWindow(HWND list) {
  if (!list) return;
  constexpr LONG_PTR kStyle = WS_CHILD | LVS_AUTOARRANGE | LVS_SINGLESEL | 0x3;
  static_assert(kStyle == 0x40000107);
  SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_GRIDLINES | LVS_EX_FULLROWSELECT);
  SetWindowLongPtrA(list, GWL_STYLE, GetWindowLongPtrA(list, GWL_STYLE) | kStyle);
}

// Takes down what a host has: the sink, the control's dispatch interface, the site.
void ForgetControl(ShellControlHost& host) {
  host.connection.Disconnect();
  if (host.eventSink) host.eventSink->SetHost(nullptr);
  host.eventSink = nullptr;
  host.sink.Reset();
  host.control.Reset();
  if (CControlSite* const site = ControlSiteOf(host.site.Get())) site->Detach();
  host.site.Reset();
}

// The control in a host's site as an object that other controls take.
ComPtr<IDispatch> LinkableControl(ShellControlHost* host) {
  CControlSite* const site = host ? ControlSiteOf(host->site.Get()) : nullptr;
  return site ? QueryFor<IDispatch>(site->ControlUnknown()) : nullptr;
}

void LinkTo(ShellControlHost* from, DISPID property, ShellControlHost* to) {
  IDispatch* const control = ControlOf(from);
  const ComPtr<IDispatch> target = LinkableControl(to);
  if (control && target) _com_dispatch_propput(control, property, VT_DISPATCH, target.Get());
}

}  // namespace

const ShellControlClass kFileViewClass = {
    "Shell FileView Control", "ssware_shellfileview64.ocx", &CLSID_FileViewControl,
    &DIID_FileViewControl,    &DIID_FileViewEvents,         &MakeSink<CFileViewSinkEvents, _DFileViewEvents>};
const ShellControlClass kFolderViewClass = {
    "Shell FolderView Control", "ssware_shellfolderview64.ocx",
    &CLSID_FolderViewControl,   &DIID_FolderViewControl,
    &DIID_FolderViewEvents,     &MakeSink<CFolderViewSinkEvents, _DFolderViewEvents>};
const ShellControlClass kComboViewClass = {
    "Shell ComboView Control", "ssware_shellcombo64.ocx",
    &CLSID_ComboViewControl,   &DIID_ComboViewControl,
    &DIID_ComboViewEvents,     &MakeSink<CComboViewSinkEvents, _DShComboBoxEvents>};

void CreateShellControl(ShellControlHost& host, const ShellControlClass& controlClass, HWND parentWindow,
                        PropertyList properties) {
  ForgetControl(host);
  host.callback = nullptr;
  host.owner = nullptr;
  host.controlClass = &controlClass;
  wchar_t* text = nullptr;
  if (FAILED(StringFromCLSID(*controlClass.classId, &text))) return;
  const UniqueTaskMemory<wchar_t> classIdText(text);
  host.site = CreateHostedControl(controlClass.displayName, controlClass.fileName, base::DisplayNarrow(text).c_str(),
                                  properties);
  if (!host.site) return;
  host.parentWindow = parentWindow;
  if (!ConnectShellControl(host)) {
    ForgetControl(host);
    return;
  }
  RECT rect = {};
  GetClientRect(parentWindow, &rect);
  AttachOrResize(ControlSiteOf(host.site.Get()), parentWindow, rect);
}

bool ConnectShellControl(ShellControlHost& host) {
  CControlSite* const site = ControlSiteOf(host.site.Get());
  IUnknown* const control = site ? site->ControlUnknown() : nullptr;
  RunForeignCode([&] { host.control = QueryFor<IDispatch>(control, *host.controlClass->dispatchId); });
  if (!host.control) return false;
  if (!host.sink) {
    host.sink = host.controlClass->createSink(&host.eventSink);
    host.eventSink->SetHost(&host);
  }
  return SUCCEEDED(host.connection.Connect(control, *host.controlClass->eventId, host.sink.Get()));
}

ShellControlPtr CreateFileViewHost(HWND parentWindow, PropertyList properties,
                                                     ExplorerWindow* owner, ControlEventCallback callback) {
  auto host = NewHost(kFileViewClass, parentWindow, std::move(properties));
  if (!host) return nullptr;
  host->owner = owner;
  host->callback = callback;
  PutCreationValues(host->control.Get(), kFileViewValues);
  StyleListWindow(GetListWindow(host.get()));
  return host;
}

ShellControlPtr CreateFolderViewHost(HWND parentWindow) {
  auto host = NewHost(kFolderViewClass, parentWindow, {});
  if (host) PutCreationValues(host->control.Get(), kFolderViewValues);
  return host;
}

ShellControlPtr CreateComboViewHost(HWND parentWindow) {
  auto host = NewHost(kComboViewClass, parentWindow, {});
  if (host) PutCreationValues(host->control.Get(), kComboViewValues);
  return host;
}

void ResizeShellControl(ShellControlHost* host, const RECT& rect) {
  if (!host || !host->site) return;
  const base::Hold hold(host);
  AttachOrResize(ControlSiteOf(host->site.Get()), host->parentWindow, rect);
}

void ShowShellControl(ShellControlHost* host, bool visible) {
  if (!host || !host->control) return;
  const ComPtr<IOleWindow> control = QueryFor<IOleWindow>(host->control.Get());
  HWND window = nullptr;
  if (control && SUCCEEDED(control->GetWindow(&window)) && window)
    ShowWindow(window, visible ? SW_SHOW : SW_HIDE);
}

void LinkShellControls(ShellControlHost* comboView, ShellControlHost* folderView,
                       ShellControlHost* fileView) {
  const base::Hold holdCombo(comboView);
  const base::Hold holdFolder(folderView);
  const base::Hold holdFile(fileView);
  LinkTo(comboView, combo_view_id::kLinkedFolderView, folderView);
  LinkTo(folderView, folder_view_id::kLinkedFileView, fileView);
}

void ApplyControlOptions(ShellControlHost* folderView, ShellControlHost* fileView,
                         const ControlOptions& options) {
  const base::Hold holdFolderView(folderView);
  const base::Hold holdFileView(fileView);
  base::IndependentSteps steps;
  for (const auto& [option, on] : {std::pair{FolderViewOption::kShowFiles, options.treeShowFiles},
                                   {FolderViewOption::kShowVirtualFolders, options.treeShowVirtualFolders},
                                   {FolderViewOption::kDragAndDrop, options.treeAllowDragAndDrop}}) {
    steps.Run([&] { SetFolderViewOption(folderView, option, on != 0); });
  }
  for (const auto& [property, on] : {std::pair{file_view_id::kVirtualFolders, options.fileViewShowVirtualFolders},
                                     {file_view_id::kFolders, options.fileViewShowFolders},
                                     {file_view_id::kDragAndDrop, options.fileViewAllowDragAndDrop},
                                     {file_view_id::kGridLines, options.fileViewShowGridLines}}) {
    steps.Run([&] {
      if (IDispatch* const control = ControlOf(fileView)) PutFlag(control, property, on != 0);
    });
  }
  steps.Finish();
}

}  // namespace file_explorer
