#include "src/framework/module_context.h"

namespace file_explorer {
namespace {

// Resource id of a DLL's isolation-aware manifest.
constexpr WORD kManifestId = 2;

constexpr DWORD kQuiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;

HINSTANCE moduleInstance = nullptr;
HANDLE activationContext = INVALID_HANDLE_VALUE;
thread_local int depth = 0;

}  // namespace

HINSTANCE ModuleInstance() { return moduleInstance; }

ModuleContext::ModuleContext() {
  // Once for all contexts of the thread: comparing items enters one a million times.
  if (depth++ == 0) SetThreadErrorMode(GetThreadErrorMode() | kQuiet, &errorMode_);
  activated_ = activationContext != INVALID_HANDLE_VALUE && ActivateActCtx(activationContext, &cookie_) != FALSE;
}

ModuleContext::~ModuleContext() {
  const DWORD lastError = GetLastError();
  if (activated_) DeactivateActCtx(0, cookie_);
  if (--depth == 0) SetThreadErrorMode(errorMode_, nullptr);
  SetLastError(lastError);
}

int ModuleContext::Depth() { return depth; }

namespace internal {

void AttachModule(HINSTANCE instance) {
  moduleInstance = instance;
  ACTCTXA description = {};
  description.cbSize = sizeof(description);
  description.dwFlags = ACTCTX_FLAG_HMODULE_VALID | ACTCTX_FLAG_RESOURCE_NAME_VALID;
  description.hModule = instance;
  description.lpResourceName = MAKEINTRESOURCEA(kManifestId);
  activationContext = CreateActCtxA(&description);  // a module without a manifest uses the process's context
}

void DetachModule() {
  if (activationContext != INVALID_HANDLE_VALUE) ReleaseActCtx(activationContext);
  activationContext = INVALID_HANDLE_VALUE;
}

}  // namespace internal
}  // namespace file_explorer
