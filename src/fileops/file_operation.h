// The shell's own file operation, made whole where a shell leaves something out.
#pragma once

#include <windows.h>

#include <shellapi.h>

namespace file_explorer {

// SHFileOperationA. Where the shell is Wine's, which moves without a word over files that are in the way,
// gives up several files at once as if the user had stopped it, and says that all went well when a file is in
// use, the question is asked here, the files go one by one, and a failure is a result with a last error.
int WINAPI RunFileOperation(SHFILEOPSTRUCTA* request);

}  // namespace file_explorer
