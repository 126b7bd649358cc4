// main of every Windows test program. A crash prints what it can and ends the process with a code that is not
// 0: left alone, a crashed program may end with 0 under Wine.
#include <gmock/gmock.h>
#include <windows.h>

#include <cstdio>

#include "tests/support/unexpected_boxes.h"
#include "tests/support/watchdog.h"

namespace {

constexpr UINT kCrashExitCode = 86;

LONG WINAPI ReportCrash(EXCEPTION_POINTERS* crash) {
  std::fprintf(stderr, "Unhandled exception 0x%08lx at %p\n",
               static_cast<unsigned long>(crash->ExceptionRecord->ExceptionCode),
               crash->ExceptionRecord->ExceptionAddress);
  HMODULE module = nullptr;
  char path[MAX_PATH] = "";
  if (GetModuleHandleExA(
          GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
          static_cast<LPCSTR>(crash->ExceptionRecord->ExceptionAddress), &module)) {
    GetModuleFileNameA(module, path, MAX_PATH);
    std::fprintf(
        stderr, "in %s + 0x%llx\n", path,
        static_cast<unsigned long long>(static_cast<char*>(crash->ExceptionRecord->ExceptionAddress) -
                                        reinterpret_cast<char*>(module)));
  }
  void* frames[32];
  const USHORT count = RtlCaptureStackBackTrace(0, 32, frames, nullptr);
  for (USHORT i = 0; i < count; ++i) std::fprintf(stderr, "  frame %p\n", frames[i]);
  std::fflush(stderr);
  TerminateProcess(GetCurrentProcess(), kCrashExitCode);
  return EXCEPTION_EXECUTE_HANDLER;
}

}  // namespace

int main(int argc, char** argv) {
  SetUnhandledExceptionFilter(ReportCrash);
  testing::InitGoogleMock(&argc, argv);
  test_support::StartWatchdog();
  test_support::WatchForUnexpectedBoxes();
  const int result = RUN_ALL_TESTS();
  std::fflush(stdout);
  std::fflush(stderr);
  return result;
}
