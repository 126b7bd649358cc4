// Where the explorer starts and where home is: link files in the host's per-user directory, with the host's working
// directory and the desktop to fall back on.
#pragma once

#include <windows.h>

#include <string>

#include "src/framework/unique_handle.h"

namespace file_explorer {

inline constexpr char kCurrentDirectoryLink[] = "ExploreCurrentDirectory.lnk";
inline constexpr char kHomeDirectoryLink[] = "ExploreHomeDirectory.lnk";
inline constexpr char kWorkingDirectoryVariable[] = "TS_WORKING_DIR";

// Path of a file in the host's per-user directory, joined by "/"; the bare name when the host has no such directory.
std::string UserFilePath(HWND hostWindow, const char* name);

// The folder of an 8-bit path, parsed by the desktop folder; empty when it can't be parsed.
unique_pidl ParsePath(const std::string& path);

// The folder that a link file keeps; without one the host's working directory (TS_WORKING_DIR); without that, or when
// it can't be parsed, the desktop. A folder that is gone, or is a file by now, counts as none. Shares and network drives
// are not looked at, since that can hang: they count as there. Empty only when even the desktop can't be had.
unique_pidl ResolveDirectoryLink(const std::string& linkPath);

// A copy of a list; empty for null.
unique_pidl ClonePidl(LPCITEMIDLIST list);

// The parsing form of a folder's name: its full path for a folder of the file system. Empty when it has none.
std::string ParsingName(LPCITEMIDLIST list);

}  // namespace file_explorer
