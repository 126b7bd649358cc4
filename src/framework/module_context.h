// The module's own resources and activation context.
//
// The module runs in another program's process. Every entry from outside (exported function, window procedure, control
// event, handler callback) begins with a ModuleContext on the stack: from then until it goes out of scope, dialogs,
// bitmaps and texts come from this module and the module's manifest decides which common controls are used. A drive
// without a disk is an error to the module, never a box of the system's: the thread's error mode says so meanwhile, and
// is given back.
#pragma once

#include <windows.h>

namespace file_explorer {

// The module's handle; resources are loaded from it. Set by DllMain.
HINSTANCE ModuleInstance();

class ModuleContext {
 public:
  ModuleContext();
  ~ModuleContext();
  ModuleContext(const ModuleContext&) = delete;
  ModuleContext& operator=(const ModuleContext&) = delete;

  // How many contexts are on this thread's stack now: for tests and assertions.
  static int Depth();

 private:
  ULONG_PTR cookie_ = 0;
  bool activated_ = false;
  DWORD errorMode_ = 0;  // of the thread before; of the outermost context alone
};

namespace internal {
// Called by DllMain.
void AttachModule(HINSTANCE instance);
void DetachModule();
}  // namespace internal

}  // namespace file_explorer
