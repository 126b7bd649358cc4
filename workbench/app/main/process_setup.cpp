#include "workbench/app/main/process_setup.h"

#include <windows.h>

namespace workbench {

void PrepareProcess() {
  SetDllDirectoryW(L"");
  SetErrorMode(GetErrorMode() | SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX);
}

}  // namespace workbench
