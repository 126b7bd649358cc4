// Only for Wine: the file system by the calls of the machine below, with what it needs of Windows.
#pragma once

#include "base/files/file_system.h"

namespace base::wine {

// Null where Windows is Windows, or where this Wine is not known to let the calls through. Lives as long as
// the process.
FileSystem* FileSystemOfWine();

}  // namespace base::wine
