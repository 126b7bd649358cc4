#include "workbench/controls/shell/pidl.h"

#include <windows.h>

#include <shlwapi.h>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {

UniquePidl PidlFromPath(const std::wstring& path) {
  if (!ShellCanExpress(path)) return nullptr;
  LPITEMIDLIST pidl = nullptr;
  if (FAILED(SHParseDisplayName(path.c_str(), nullptr, &pidl, 0, nullptr))) return nullptr;
  return UniquePidl(pidl);
}

namespace {

// What an item is called in its folder, in the text that is parsed; empty when it has no such name.
std::wstring NameInFolder(const ITEMIDLIST* pidl) {
  ComRef<IShellFolder> parent;
  LPCITEMIDLIST child = nullptr;
  STRRET text = {};
  if (FAILED(SHBindToParent(pidl, IID_IShellFolder, parent.put_void(), &child)) ||
      FAILED(parent->GetDisplayNameOf(child, SHGDN_INFOLDER | SHGDN_FORPARSING, &text))) {
    return {};
  }
  return TextOfStrret(text, child);
}

// The folder's path and the item's name in it: how a long path is put together.
std::wstring PathThroughParent(const ITEMIDLIST* pidl) {
  const UniquePidl parent = ClonePidl(pidl);
  if (!parent || !ILRemoveLastID(parent.get())) return {};
  const std::wstring folder = PathFromPidl(parent.get());
  const std::wstring name = NameInFolder(pidl);
  return folder.empty() || name.empty() ? std::wstring() : JoinPath(folder, name);
}

}  // namespace

std::wstring PathFromPidl(const ITEMIDLIST* pidl) {
  // Room for every path: given less, the shell refuses a long one. Some shells cut it off all the same, without a word:
  // that would be another folder's.
  constexpr DWORD kLongest = 32768;
  const auto buffer = std::make_unique_for_overwrite<wchar_t[]>(kLongest);
  if (!pidl || !SHGetPathFromIDListEx(pidl, buffer.get(), kLongest, GPFIDL_DEFAULT)) return {};
  std::wstring path = buffer.get();
  return path.size() < MAX_PATH - 1 ? path : PathThroughParent(pidl);
}

std::wstring TextOfStrret(STRRET& text, const ITEMIDLIST* child) {
  LPWSTR allocated = nullptr;
  if (FAILED(StrRetToStrW(&text, child, &allocated)) || !allocated) return {};
  std::wstring result = allocated;
  CoTaskMemFree(allocated);
  return result;
}

std::wstring DisplayNameOf(const ITEMIDLIST* pidl) {
  if (!pidl) return {};
  ComRef<IShellFolder> parent;
  LPCITEMIDLIST child = nullptr;
  if (ILIsEmpty(pidl)) {
    if (FAILED(SHGetDesktopFolder(parent.put()))) return {};
    child = pidl;
  } else if (FAILED(SHBindToParent(pidl, IID_IShellFolder, parent.put_void(), &child))) {
    return {};
  }
  STRRET text = {};
  if (FAILED(parent->GetDisplayNameOf(child, SHGDN_NORMAL, &text))) return {};
  return TextOfStrret(text, child);
}

}  // namespace controls
