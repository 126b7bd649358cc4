#include "workbench/controls/fileview/virtual_folder.h"

#include "workbench/controls/com/com_object.h"

namespace controls {
namespace {

HRESULT BindFolder(const Location& folder, ComRef<IShellFolder>& bound) {
  ComRef<IShellFolder> desktop;
  const HRESULT result = SHGetDesktopFolder(desktop.put());
  if (FAILED(result)) return result;
  if (folder.IsDesktop()) {
    bound = desktop;
    return S_OK;
  }
  return desktop->BindToObject(folder.pidl(), nullptr, IID_IShellFolder, bound.put_void());
}

std::wstring NameIn(IShellFolder& folder, const ITEMIDLIST* child, SHGDNF form) {
  STRRET text = {};
  return SUCCEEDED(folder.GetDisplayNameOf(child, form, &text)) ? TextOfStrret(text, child) : std::wstring();
}

VirtualItem Describe(const Location& folder, IShellFolder& bound, const ITEMIDLIST* child) {
  constexpr ULONG kWanted = SFGAO_FOLDER | SFGAO_FILESYSTEM | SFGAO_LINK | SFGAO_FILESYSANCESTOR |
                            SFGAO_HIDDEN | SFGAO_GHOSTED | SFGAO_CANCOPY | SFGAO_CANMOVE | SFGAO_CANRENAME |
                            SFGAO_CANDELETE;
  VirtualItem item;
  item.name = NameIn(bound, child, SHGDN_INFOLDER);
  ULONG attributes = kWanted;
  LPCITEMIDLIST children[] = {child};
  if (SUCCEEDED(bound.GetAttributesOf(1, children, &attributes)))
    item.entry.attributes = attributes & kWanted;
  item.entry.pidl = SharedPidl(UniquePidl(ILCombine(folder.pidl(), child)));
  if (item.entry.attributes & SFGAO_FILESYSTEM) item.entry.path = PathFromPidl(item.entry.pidl.get());
  WIN32_FIND_DATAW data = {};
  if (!item.entry.path.empty() &&
      SUCCEEDED(SHGetDataFromIDListW(&bound, child, SHGDFIL_FINDDATA, &data, sizeof(data)))) {
    item.facts = FactsOf(data);
  }
  if (item.entry.attributes & SFGAO_FOLDER) item.facts.attributes |= kAttributeDirectory;
  return item;
}

}  // namespace

HRESULT ReadVirtualFolder(const Location& folder, HWND owner, std::vector<VirtualItem>& items) {
  ComRef<IShellFolder> bound;
  const HRESULT opened = BindFolder(folder, bound);
  if (FAILED(opened)) return opened;
  ComRef<IEnumIDList> list;
  const HRESULT listed =
      bound->EnumObjects(owner, SHCONTF_FOLDERS | SHCONTF_NONFOLDERS | SHCONTF_INCLUDEHIDDEN, list.put());
  if (FAILED(listed)) return listed;
  if (!list) return S_OK;  // S_FALSE: the folder has nothing of the wanted kinds
  LPITEMIDLIST next = nullptr;
  while (list->Next(1, &next, nullptr) == S_OK) {
    const UniquePidl child(next);
    items.push_back(Describe(folder, *bound.get(), child.get()));
  }
  return S_OK;
}

}  // namespace controls
