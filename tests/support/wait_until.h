// Waiting for something that a window, a thread or another process does. A wait ends as soon as its condition
// holds, or as soon as it can't hold any more; its end by time is far beyond what a busy machine takes.
#pragma once

#include <windows.h>

#include <functional>

namespace test_support {

// How long a wait goes on at most, in milliseconds.
DWORD Patience();

// Another patience while it lives, for tests of what happens at its end.
class ShorterPatience {
 public:
  explicit ShorterPatience(DWORD milliseconds);
  ~ShorterPatience();
  ShorterPatience(const ShorterPatience&) = delete;
  ShorterPatience& operator=(const ShorterPatience&) = delete;

 private:
  DWORD before_;
};

// Dispatches all messages that are waiting. A window that never keeps still can't hold it up for ever: after
// some thousand messages it returns all the same.
void PumpMessages();

// Dispatches messages until condition() holds. False when it did not within the time of Patience(), when
// `hopeless` (may be empty) says that it can't hold any more, or when meanwhile a message box came up that no
// test expects; then it prints what windows are up.
bool WaitUntil(const std::function<bool()>& condition, const std::function<bool()>& hopeless = {});

// The same without dispatching messages, and without a word.
bool WaitQuietly(const std::function<bool()>& condition);

// Waits for a handle (process, thread, event) and dispatches messages meanwhile.
bool WaitForHandle(HANDLE handle);

}  // namespace test_support
