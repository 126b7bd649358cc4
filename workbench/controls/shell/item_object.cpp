#include "workbench/controls/shell/item_object.h"

#include "workbench/controls/com/class_server.h"
#include "workbench/controls/model/item_store.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/item_ids.h"

namespace controls {

void* ItemObject::Interface(REFIID iid) {
  static const InterfaceRow<ItemObject> kRows[] = {
      Row<ItemObject, IDispatch>(IID_IDispatch),
      Row<ItemObject, IDispatch>(IID_IUnknown),
      Row<ItemObject, IDispatch>(kIidShellItemDispatch),
  };
  return FindInterface(kRows, this, iid);
}

DispatchTable ItemObject::Members() {
  using T = ItemObject;
  static constexpr DispatchRow kRows[] = {
      {1, L"Path", Access::kGet, 0, CallMember<T, &T::GetPath>},
      {4, L"FullPath", Access::kGet, 0, CallMember<T, &T::GetPath>},
      {9, L"SortKey", Access::kGet, 0, CallMember<T, &T::GetSortKey>},
      {9, L"SortKey", Access::kPut, 1, CallMember<T, &T::PutSortKey>},
      {12, L"Selected", Access::kGet, 0, CallMember<T, &T::GetSelected>},
      {12, L"Selected", Access::kPut, 1, CallMember<T, &T::PutSelected>},
      {16, L"Parent", Access::kMethod, 0, CallMember<T, &T::CallParent>},
      {18, L"HasAttributes", Access::kGet, 1, CallMember<T, &T::GetAttributes>},
      {19, L"InvokeDefault", Access::kMethod, 0, CallMember<T, &T::CallDefault>},
      {21, L"Pidl", Access::kGet, 0, CallMember<T, &T::GetPidl>},
      {23, L"DisplayName", Access::kGet, 0, CallMember<T, &T::GetDisplayName>},
  };
  return {kRows, std::size(kRows)};
}

STDMETHODIMP ItemObject::GetTypeInfoCount(UINT* count) {
  if (!count) return E_POINTER;
  *count = 1;
  return S_OK;
}

STDMETHODIMP ItemObject::GetTypeInfo(UINT index, LCID, ITypeInfo** info) {
  if (!info) return E_POINTER;
  *info = nullptr;
  if (index != 0) return DISP_E_BADINDEX;
  *info = TypeInfoOf(kIidShellItemDispatch).detach();
  return *info ? S_OK : static_cast<HRESULT>(TYPE_E_ELEMENTNOTFOUND);
}

STDMETHODIMP ItemObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
  return IdsFromTable(Members(), names, count, ids);
}

STDMETHODIMP ItemObject::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* params, VARIANT* result,
                                EXCEPINFO* exception, UINT* badArgument) {
  return InvokeFromTable(Members(), this, L"Shell item", id, flags, params, result, exception, badArgument);
}

HRESULT ItemObject::GetPath(Call& call) {
  return call.ReturnText(Path());
}
HRESULT ItemObject::GetDisplayName(Call& call) {
  return call.ReturnText(DisplayName());
}

HRESULT ItemObject::GetSortKey(Call& call) {
  long key = 0;
  return SortKey(key) ? call.ReturnLong(key) : S_OK;
}

HRESULT ItemObject::PutSortKey(Call& call) {
  long key = 0;
  const HRESULT converted = call.Long(0, key);
  return FAILED(converted) ? converted : SetSortKey(key);
}

HRESULT ItemObject::GetSelected(Call& call) {
  return call.ReturnBool(Selected());
}

HRESULT ItemObject::PutSelected(Call& call) {
  bool selected = false;
  const HRESULT converted = call.Bool(0, selected);
  return FAILED(converted) ? converted : SetSelected(selected);
}

HRESULT ItemObject::CallParent(Call& call) {
  return call.ReturnObject(Parent().get());
}

HRESULT ItemObject::GetAttributes(Call& call) {
  long mask = 0;
  const HRESULT converted = call.Long(0, mask);
  return FAILED(converted) ? converted
                           : call.ReturnLong(static_cast<long>(Attributes(static_cast<ULONG>(mask))));
}

HRESULT ItemObject::CallDefault(Call&) {
  return InvokeDefault();
}
HRESULT ItemObject::GetPidl(Call& call) {
  return call.ReturnAddress(Pidl());
}

ULONG ShellAttributes(uint32_t fileAttributes, std::wstring_view name, bool zipFolders) {
  ULONG attributes =
      SFGAO_FILESYSTEM | SFGAO_CANCOPY | SFGAO_CANMOVE | SFGAO_CANRENAME | SFGAO_CANDELETE | SFGAO_CANLINK;
  if (fileAttributes & kAttributeDirectory) {
    attributes |= SFGAO_FOLDER | SFGAO_FILESYSANCESTOR;
  } else {
    const std::wstring_view extension = ExtensionOf(name);
    if (EqualsIgnoringCase(extension, L"lnk")) attributes |= SFGAO_LINK;
    if (zipFolders && EqualsIgnoringCase(extension, L"zip")) attributes |= SFGAO_FOLDER | SFGAO_STREAM;
  }
  if (fileAttributes & kAttributeHidden) attributes |= SFGAO_GHOSTED | SFGAO_HIDDEN;
  if (fileAttributes & FILE_ATTRIBUTE_READONLY) attributes |= SFGAO_READONLY;
  return attributes;
}

ULONG ArchiveItemAttributes(uint32_t fileAttributes) {
  ULONG attributes = SFGAO_READONLY;
  if (fileAttributes & kAttributeDirectory) attributes |= SFGAO_FOLDER;
  if (fileAttributes & kAttributeHidden) attributes |= SFGAO_GHOSTED | SFGAO_HIDDEN;
  return attributes;
}

ULONG LocationItem::Attributes(ULONG mask) const {
  if (location_.empty()) return 0;
  if (location_.IsInsideArchive())
    return (ArchiveItemAttributes(kAttributeDirectory) | SFGAO_HASSUBFOLDER) & mask;
  if (location_.InArchive()) return (ShellAttributes(0, location_.Name(), true) | SFGAO_HASSUBFOLDER) & mask;
  if (location_.IsFileSystem()) {
    const ULONG attributes =
        ShellAttributes(kAttributeDirectory, location_.Name(), false) | SFGAO_HASSUBFOLDER;
    return attributes & mask;
  }
  return (SFGAO_FOLDER | SFGAO_HASSUBFOLDER | SFGAO_FILESYSANCESTOR) & mask;
}

ComRef<IDispatch> LocationItem::Parent() {
  Location parent = location_.Parent();
  if (parent.empty()) return nullptr;
  return ComRef<IDispatch>::Attach(ComObject<LocationItem>::Create(std::move(parent), open_).detach());
}

}  // namespace controls
