// A thread that reads for a control and may outlive it.
#pragma once

#include <windows.h>

#include <functional>

namespace controls {

// Runs work on a thread of its own that keeps the module loaded until it has ended; the module counts as in
// use meanwhile. work must not throw, and must not touch windows (posting excepted) or COM objects. False
// when the system has no thread to give.
bool StartWorker(std::function<void()> work);

// Where a worker sends its "there is something": one message at a time, none after Close.
class WakeUp {
 public:
  WakeUp(HWND window, UINT message) : window_(window), message_(message) {}

  void Post();      // any thread
  void Received();  // the window's thread, at the start of handling the message
  void Close();     // the window's thread: the window goes

 private:
  SRWLOCK lock_ = SRWLOCK_INIT;
  HWND window_;
  UINT message_;
  bool posted_ = false;
};

}  // namespace controls
