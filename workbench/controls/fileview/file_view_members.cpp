// The file view's properties and methods.
#include "workbench/controls/com/class_server.h"
#include "workbench/controls/fileview/file_view.h"
#include "workbench/controls/shell/item_menu.h"

namespace controls {

DispatchTable FileView::Members() {
  using T = FileView;
  using O = ListPane::Options;
  using S = FileViewSwitches;
  constexpr Access kGet = Access::kGet;
  constexpr Access kPut = Access::kPut;
  constexpr Access kMethod = Access::kMethod;
  static constexpr DispatchRow kRows[] = {
      {4, L"GridLines", kGet, 0, CallMember<T, &T::GetOption<&O::gridLines>>},
      {4, L"GridLines", kPut, 1, CallMember<T, &T::PutOption<&O::gridLines>>},
      {6, L"ColumnHeaders", kGet, 0, CallMember<T, &T::GetOption<&O::columnHeaders>>},
      {6, L"ColumnHeaders", kPut, 1, CallMember<T, &T::PutOption<&O::columnHeaders>>},
      {7, L"SingleSelection", kGet, 0, CallMember<T, &T::GetOption<&O::singleSelection>>},
      {7, L"SingleSelection", kPut, 1, CallMember<T, &T::PutOption<&O::singleSelection>>},
      {8, L"InPlaceRename", kGet, 0, CallMember<T, &T::GetOption<&O::inPlaceRename>>},
      {8, L"InPlaceRename", kPut, 1, CallMember<T, &T::PutOption<&O::inPlaceRename>>},
      {9, L"ViewStyle", kGet, 0, CallMember<T, &T::GetView>},
      {9, L"ViewStyle", kPut, 1, CallMember<T, &T::PutView>},
      {11, L"ShellContextMenu", kGet, 0, CallMember<T, &T::GetSwitch<&S::shellContextMenu>>},
      {11, L"ShellContextMenu", kPut, 1, CallMember<T, &T::PutSwitch<&S::shellContextMenu>>},
      {13, L"HeaderSort", kGet, 0, CallMember<T, &T::GetOption<&O::headerSort>>},
      {13, L"HeaderSort", kPut, 1, CallMember<T, &T::PutOption<&O::headerSort>>},
      {14, L"FullRowSelect", kGet, 0, CallMember<T, &T::GetOption<&O::fullRowSelect>>},
      {14, L"FullRowSelect", kPut, 1, CallMember<T, &T::PutOption<&O::fullRowSelect>>},
      {15, L"ShowVirtualFolders", kGet, 0, CallMember<T, &T::GetSwitch<&S::virtualFolders>>},
      {15, L"ShowVirtualFolders", kPut, 1, CallMember<T, &T::PutVirtualFolders>},
      {17, L"ShowFolders", kGet, 0, CallMember<T, &T::GetSwitch<&S::folders>>},
      {17, L"ShowFolders", kPut, 1, CallMember<T, &T::PutFolders>},
      {19, L"ZipFolders", kGet, 0, CallMember<T, &T::GetSwitch<&S::zipFolders>>},
      {19, L"ZipFolders", kPut, 1, CallMember<T, &T::PutZipFolders>},
      {21, L"FolderPidl", kGet, 0, CallMember<T, &T::GetFolder>},
      {21, L"FolderPidl", kPut, 1, CallMember<T, &T::PutFolder>},
      {22, L"InfoTips", kGet, 0, CallMember<T, &T::GetOption<&O::infoTips>>},
      {22, L"InfoTips", kPut, 1, CallMember<T, &T::PutOption<&O::infoTips>>},
      {23, L"KeyboardNavigation", kGet, 0, CallMember<T, &T::GetSwitch<&S::keyboard>>},
      {23, L"KeyboardNavigation", kPut, 1, CallMember<T, &T::PutSwitch<&S::keyboard>>},
      {26, L"ListWindow", kGet, 0, CallMember<T, &T::GetListHandle>},
      {27, L"DragAndDrop", kGet, 0, CallMember<T, &T::GetSwitch<&S::dragAndDrop>>},
      {27, L"DragAndDrop", kPut, 1, CallMember<T, &T::PutSwitch<&S::dragAndDrop>>},
      {35, L"ThumbnailQuality", kGet, 0, CallMember<T, &T::GetThumbnailQuality>},
      {35, L"ThumbnailQuality", kPut, 1, CallMember<T, &T::PutThumbnailQuality>},
      {37, L"Font", kGet, 0, CallMember<T, &T::GetFont>},
      {37, L"Font", kPut, 1, CallMember<T, &T::PutFont>},
      {44, L"GoUp", kMethod, 0, CallMember<T, &T::CallGoUp>},
      {47, L"Item", kGet, 1, CallMember<T, &T::GetItem>},
      {48, L"FirstSelectedItem", kGet, 0, CallMember<T, &T::GetFirstSelected>},
      {49, L"NextSelectedItem", kGet, 0, CallMember<T, &T::GetNextSelected>},
      {50, L"ExecuteOnSelection", kMethod, 1, CallMember<T, &T::CallExecuteOnSelection>},
      {51, L"ExecuteOnFolder", kMethod, 1, CallMember<T, &T::CallExecuteOnFolder>},
      {52, L"ItemCount", kGet, 0, CallMember<T, &T::GetItemCount>},
      {53, L"SelectedCount", kGet, 0, CallMember<T, &T::GetSelectedCount>},
      {56, L"Refresh", kMethod, 0, CallMember<T, &T::CallRefresh>},
      {58, L"NewFolder", kMethod, 1, CallMember<T, &T::CallNewFolder>},
      {69, L"FolderItem", kGet, 0, CallMember<T, &T::GetFolderItem>},
      {70, L"AddMenuItem", kMethod, 2, CallMember<T, &T::CallAddMenuItem>},
      {71, L"ShowHiddenItems", kGet, 0, CallMember<T, &T::GetSwitch<&S::hiddenItems>>},
      {71, L"ShowHiddenItems", kPut, 1, CallMember<T, &T::PutHiddenItems>},
  };
  return {kRows, std::size(kRows)};
}

HRESULT FileView::PutFilterSwitch(Call& call, bool& value) {
  const bool before = value;
  const HRESULT result = call.Bool(0, value);
  if (SUCCEEDED(result) && value != before) model_.Refresh();
  return result;
}

HRESULT FileView::PutZipFolders(Call& call) {
  const HRESULT result = call.Bool(0, switches_.zipFolders);
  if (FAILED(result)) return result;
  model_.SetZipFolders(switches_.zipFolders);
  // Archives are files from now on, and files cannot be looked into.
  if (!switches_.zipFolders && listing().folder.InArchive()) Navigate(listing().folder.Holder());
  return S_OK;
}

HRESULT FileView::GetView(Call& call) {
  return call.ReturnLong(static_cast<long>(view_));
}

HRESULT FileView::PutView(Call& call) {
  long value = 0;
  const HRESULT result = call.Long(0, value);
  if (FAILED(result)) return result;
  if (value < 0 || value > static_cast<long>(ViewStyle::kThumbnails)) return E_INVALIDARG;
  view_ = static_cast<ViewStyle>(value);
  pane_.SetView(view_);
  return S_OK;
}

HRESULT FileView::GetFolder(Call& call) {
  const Location& folder = wanted_.empty() ? listing().folder : wanted_;
  return call.ReturnAddress(folder.pidl());
}

HRESULT FileView::PutFolder(Call& call) {
  const void* pidl = nullptr;
  const HRESULT result = call.PointerBits(0, pidl);
  if (FAILED(result)) return result;
  if (!pidl) return E_INVALIDARG;
  const Location location = Location::FromPidl(static_cast<const ITEMIDLIST*>(pidl));
  if (location.empty()) return E_INVALIDARG;
  Navigate(location);
  return S_OK;
}

HRESULT FileView::GetListHandle(Call& call) {
  // Window handles fit into 32 bits.
  return call.ReturnLong(static_cast<long>(reinterpret_cast<LONG_PTR>(pane_.list())));
}

HRESULT FileView::GetThumbnailQuality(Call& call) {
  return call.ReturnLong(thumbnailQuality_);
}

HRESULT FileView::PutThumbnailQuality(Call& call) {
  long value = 0;
  const HRESULT result = call.Long(0, value);
  if (FAILED(result)) return result;
  if (value < 0 || value > 2) return E_INVALIDARG;
  static constexpr int kPixels[] = {64, 96, 128};
  thumbnailQuality_ = value;
  pane_.SetThumbnailSize(kPixels[value]);
  return S_OK;
}

HRESULT FileView::GetFont(Call& call) {
  return call.ReturnObject(font_.object().get());
}

HRESULT FileView::PutFont(Call& call) {
  IUnknown* object = nullptr;
  HRESULT result = call.Object(0, object);
  if (SUCCEEDED(result)) result = font_.Set(object);
  if (SUCCEEDED(result)) pane_.SetFont(font_.handle());
  return result;
}

HRESULT FileView::CallGoUp(Call&) {
  GoUp();
  return S_OK;
}

HRESULT FileView::GetItem(Call& call) {
  long index = 0;
  const HRESULT result = call.Long(0, index);
  if (FAILED(result)) return result;
  if (index < 1 || index > RowCount()) return DISP_E_BADINDEX;
  return call.ReturnObject(ItemOfRow(static_cast<int>(index - 1)).get());
}

HRESULT FileView::GetFirstSelected(Call& call) {
  nextSelected_ = pane_.NextSelected(-1);
  return call.ReturnObject(ItemOfRow(nextSelected_).get());
}

HRESULT FileView::GetNextSelected(Call& call) {
  if (nextSelected_ >= 0) nextSelected_ = pane_.NextSelected(nextSelected_);
  return call.ReturnObject(ItemOfRow(nextSelected_).get());
}

HRESULT FileView::CallExecuteOnSelection(Call& call) {
  long command = 0;
  const HRESULT result = call.Long(0, command);
  return FAILED(result) ? result : Execute(command, true);
}

HRESULT FileView::CallExecuteOnFolder(Call& call) {
  long command = 0;
  const HRESULT result = call.Long(0, command);
  return FAILED(result) ? result : Execute(command, false);
}

HRESULT FileView::GetItemCount(Call& call) {
  return call.ReturnLong(RowCount());
}
HRESULT FileView::GetSelectedCount(Call& call) {
  return call.ReturnLong(pane_.SelectedCount());
}

HRESULT FileView::CallRefresh(Call&) {
  ClearError();
  model_.Refresh();
  return S_OK;
}

HRESULT FileView::CallNewFolder(Call& call) {
  bool edit = false;
  const HRESULT result = call.Bool(0, edit);
  return FAILED(result) ? result : call.ReturnBool(CreateNewFolder(edit));
}

HRESULT FileView::GetFolderItem(Call& call) {
  const Location& folder = wanted_.empty() ? listing().folder : wanted_;
  if (folder.empty()) return call.ReturnObject(nullptr);
  return call.ReturnObject(ComObject<LocationItem>::Create(folder).get());
}

HRESULT FileView::CallAddMenuItem(Call& call) {
  std::wstring caption;
  std::wstring verb;
  HRESULT result = call.Text(0, caption);
  if (SUCCEEDED(result)) result = call.Text(1, verb);
  if (FAILED(result)) return result;
  if (!menu_)
    throw CallError{E_UNEXPECTED, L"Items can be added only while the context menu is being built."};
  return call.ReturnLong(menu_->Add(caption, verb));
}

}  // namespace controls
