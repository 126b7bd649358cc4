#include "workbench/controls/shell/worker.h"

#include <memory>

#include "workbench/controls/com/com_object.h"

namespace controls {
namespace {

struct Start {
  std::function<void()> work;
  HMODULE module;
};

DWORD WINAPI Run(void* argument) {
  HMODULE module = nullptr;
  // A thread has an error mode of its own: a drive without a disk must not put a box of the system's on the screen.
  SetThreadErrorMode(SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX, nullptr);
  {
    const std::unique_ptr<Start> start(static_cast<Start*>(argument));
    module = start->module;
    start->work();
  }
  ModuleLock::Remove();
  FreeLibraryAndExitThread(module, 0);
}

}  // namespace

bool StartWorker(std::function<void()> work) {
  auto start = std::make_unique<Start>();
  start->work = std::move(work);
  if (!GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS, reinterpret_cast<LPCWSTR>(&Run),
                          &start->module)) {
    return false;
  }
  ModuleLock::Add();
  const HANDLE thread = CreateThread(nullptr, 0, Run, start.get(), 0, nullptr);
  if (!thread) {
    ModuleLock::Remove();
    FreeLibrary(start->module);
    return false;
  }
  start.release();
  CloseHandle(thread);
  return true;
}

void WakeUp::Post() {
  AcquireSRWLockExclusive(&lock_);
  if (window_ && !posted_) posted_ = PostMessageW(window_, message_, 0, 0) != FALSE;
  ReleaseSRWLockExclusive(&lock_);
}

void WakeUp::Received() {
  AcquireSRWLockExclusive(&lock_);
  posted_ = false;
  ReleaseSRWLockExclusive(&lock_);
}

void WakeUp::Close() {
  AcquireSRWLockExclusive(&lock_);
  window_ = nullptr;
  ReleaseSRWLockExclusive(&lock_);
}

}  // namespace controls
