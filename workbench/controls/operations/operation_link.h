// What the thread of a file operation and the window's thread say to each other.
#pragma once

#include <windows.h>

#include <functional>
#include <optional>

#include "base/files/transfer.h"
#include "base/handles/unique_handle.h"
#include "workbench/controls/shell/worker.h"

namespace controls {

class OperationLink {
 public:
  // wake: the message that tells the window to look.
  OperationLink(HWND window, UINT wake);
  OperationLink(const OperationLink&) = delete;
  OperationLink& operator=(const OperationLink&) = delete;

  // The operation's thread.
  bool cancelled() const;
  void Tell(const base::TransferProgress& progress);
  // Runs ask on the window's thread and waits until it has. False when the window went meanwhile; ask may
  // then still run or have run, so it must own everything that it touches.
  bool Ask(std::function<void()> ask);
  void Finish();

  // The window's thread.
  void Received() { wake_.Received(); }
  std::function<void()> TakeQuestion();
  void Answered();
  std::optional<base::TransferProgress> Latest() const;
  bool finished() const;
  // Ends the operation at its next safe point.
  void Cancel();
  // The window goes: cancels, and nobody is asked any more.
  void Close();
  // Waits until the operation has ended. Messages that other threads send meanwhile are handled, others are
  // not. False when it did not end within the time (a drive that does not answer).
  bool WaitForEnd(DWORD timeoutMs) const;

 private:
  class Guard;
  mutable SRWLOCK lock_ = SRWLOCK_INIT;
  std::optional<base::TransferProgress> progress_;
  std::function<void()> question_;
  base::unique_file answered_;  // events
  base::unique_file cancelled_;
  base::unique_file closed_;
  base::unique_file finished_;
  WakeUp wake_;
};

}  // namespace controls
