// What Windows says of files, in the terms of FileSystem.
#pragma once

#include <windows.h>

#include <string>

#include "base/files/file_system.h"
#include "base/handles/unique_handle.h"

namespace base {

// Opens a file or folder to ask about it; a link itself, unless it is followed. Empty with a last error.
unique_file OpenToLook(const std::wstring& path, bool follow);

SystemError StatusOfHandle(HANDLE file, FileStatus* status);

// The kind of a link, and whether it is a mount point of a volume, stands in its reparse data.
SystemError ReadReparseData(HANDLE link, std::vector<char>* data);
FileKind KindOfReparsePoint(DWORD attributes, DWORD tag, const std::vector<char>& data);

}  // namespace base
