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

std::wstring PathFromPidl(const ITEMIDLIST* pidl) {
  // Room for every path: given less, the shell refuses a long one, or cuts it off without a word.
  constexpr DWORD kLongest = 32768;
  const auto path = std::make_unique_for_overwrite<wchar_t[]>(kLongest);
  if (!pidl || !SHGetPathFromIDListEx(pidl, path.get(), kLongest, GPFIDL_DEFAULT)) return {};
  return path.get();
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
