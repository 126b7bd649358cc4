// A program that lies beside the tests, run in a process of its own.
#pragma once

#include <gtest/gtest.h>
#include <windows.h>

#include <string>

#include "base/handles/unique_handle.h"
#include "tests/support/wait_until.h"

namespace test_support {

// The started program's process; empty, with a failure of the test, when it does not start.
inline base::unique_file StartBeside(const std::string& program, const std::string& arguments) {
  char own[MAX_PATH] = "";
  GetModuleFileNameA(nullptr, own, MAX_PATH);
  std::string command(own);
  command = "\"" + command.substr(0, command.rfind('\\') + 1) + program + "\" " + arguments;
  STARTUPINFOA startup = {};
  startup.cb = sizeof startup;
  PROCESS_INFORMATION process = {};
  // A busy machine may refuse a start for the moment.
  const bool isStarted = WaitUntil([&] {
    return CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup,
                          &process) != FALSE;
  });
  if (!isStarted) {
    ADD_FAILURE() << command << " does not start: error " << GetLastError();
    return base::unique_file();
  }
  CloseHandle(process.hThread);
  return base::unique_file(process.hProcess);
}

// Waits for its end and gives its result.
inline DWORD ResultOf(const base::unique_file& process) {
  DWORD result = ERROR_FILE_NOT_FOUND;
  if (!process) return result;
  WaitForSingleObject(process.get(), INFINITE);
  GetExitCodeProcess(process.get(), &result);
  return result;
}

// Whether both programs said through the semaphore that they are ready; false when one has ended instead.
inline bool WaitForTwo(HANDLE ready, const base::unique_file& one, const base::unique_file& two) {
  const HANDLE handles[] = {ready, one.get(), two.get()};
  for (int i = 0; i < 2; ++i) {
    if (WaitForMultipleObjects(3, handles, FALSE, INFINITE) != WAIT_OBJECT_0) return false;
  }
  return true;
}

}  // namespace test_support
