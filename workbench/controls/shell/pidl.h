// Item identifier lists: the shell's names of things.
#pragma once

#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include <memory>
#include <string>
#include <string_view>

namespace controls {

struct PidlDeleter {
  void operator()(ITEMIDLIST* pidl) const { CoTaskMemFree(pidl); }
};
using UniquePidl = std::unique_ptr<ITEMIDLIST, PidlDeleter>;
// Lists are never changed once made, so copies share them.
using SharedPidl = std::shared_ptr<ITEMIDLIST>;

inline UniquePidl ClonePidl(const ITEMIDLIST* pidl) {
  return UniquePidl(pidl ? ILClone(pidl) : nullptr);
}

// The list of a file-system path, without looking at the disk where the shell allows it; null when the shell
// has no name for it.
UniquePidl PidlFromPath(const std::wstring& path);

// The file-system path of a list; empty for things that are not on a file system.
std::wstring PathFromPidl(const ITEMIDLIST* pidl);

// The name that a user sees.
std::wstring DisplayNameOf(const ITEMIDLIST* pidl);

// The text of a STRRET; frees what it holds.
std::wstring TextOfStrret(STRRET& text, const ITEMIDLIST* child);

}  // namespace controls
