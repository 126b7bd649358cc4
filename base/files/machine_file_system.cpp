#include <windows.h>

#include "base/files/windows_file_system.h"
#include "base/files/wine_surroundings.h"

namespace base {

FileSystem& MachineFileSystem() {
  static WindowsFileSystem windows;
  static FileSystem* const files = wine::FileSystemOfWine();
  return files ? *files : windows;
}

}  // namespace base
