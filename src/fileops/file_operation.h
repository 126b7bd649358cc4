// The shell's own file operation, and what takes its place where a shell answers success without doing the
// work.
#pragma once

#include <windows.h>

#include <shellapi.h>

namespace file_explorer {

// SHFileOperationA. Wine's shell moves over files that are in the way without a word, copies half files when
// the disk is full, leaves out locked, odd and deep ones, and says that all went well: there a copy or move
// runs through the transfer engine, here and now. Questions are message boxes; what could not be done is
// listed in one, by name and reason. The result is 0 when everything was done or skipped, else an error code;
// the thread's last error stays 0, as everything has been said.
int WINAPI RunFileOperation(SHFILEOPSTRUCTA* request);

}  // namespace file_explorer
