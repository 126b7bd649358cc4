// The DLL's entry: gives the application object its two moments.
#include <windows.h>

#include "src/framework/module_context.h"
#include "src/framework/win_app.h"

namespace file_explorer {
namespace {

bool initialised = false;

BOOL Attach(HINSTANCE instance) {
  DisableThreadLibraryCalls(instance);
  internal::AttachModule(instance);
  CWinApp* const app = CWinApp::Current();
  if (app == nullptr) return TRUE;
  const ModuleContext context;
  initialised = app->InitInstance() != FALSE;
  return initialised;
}

void Detach() {
  CWinApp* const app = CWinApp::Current();
  if (app != nullptr && initialised) {
    const ModuleContext context;
    app->ExitInstance();
  }
  initialised = false;
  internal::DetachModule();
}

}  // namespace
}  // namespace file_explorer

extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void* reserved) {
  try {
    if (reason == DLL_PROCESS_ATTACH) {
      if (file_explorer::Attach(instance)) return TRUE;
      file_explorer::Detach();
      return FALSE;
    }
    // At the end of the process everything is torn down by the system; other DLLs may be gone already.
    if (reason == DLL_PROCESS_DETACH && reserved == nullptr) file_explorer::Detach();
    return TRUE;
  } catch (...) {
    return FALSE;  // the loader's frames must not see an exception
  }
}
