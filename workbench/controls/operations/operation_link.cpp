#include "workbench/controls/operations/operation_link.h"

#include <iterator>
#include <utility>

namespace controls {
namespace {

base::unique_file MakeEvent(bool manualReset) {
  return base::unique_file(CreateEventW(nullptr, manualReset, FALSE, nullptr));
}

bool IsSet(const base::unique_file& event) {
  return WaitForSingleObject(event.get(), 0) == WAIT_OBJECT_0;
}

}  // namespace

class OperationLink::Guard {
 public:
  explicit Guard(const OperationLink& link) : lock_(link.lock_) { AcquireSRWLockExclusive(&lock_); }
  ~Guard() { ReleaseSRWLockExclusive(&lock_); }
  Guard(const Guard&) = delete;
  Guard& operator=(const Guard&) = delete;

 private:
  SRWLOCK& lock_;
};

OperationLink::OperationLink(HWND window, UINT wake)
    : answered_(MakeEvent(false)),
      cancelled_(MakeEvent(true)),
      closed_(MakeEvent(true)),
      finished_(MakeEvent(true)),
      wake_(window, wake) {}

bool OperationLink::cancelled() const {
  return IsSet(cancelled_);
}

void OperationLink::Tell(const base::TransferProgress& progress) {
  {
    const Guard guard(*this);
    progress_ = progress;
  }
  wake_.Post();
}

bool OperationLink::Ask(std::function<void()> ask) {
  {
    const Guard guard(*this);
    question_ = std::move(ask);
  }
  wake_.Post();
  const HANDLE events[] = {answered_.get(), closed_.get()};
  return WaitForMultipleObjects(static_cast<DWORD>(std::size(events)), events, FALSE, INFINITE) ==
         WAIT_OBJECT_0;
}

void OperationLink::Finish() {
  SetEvent(finished_.get());
  wake_.Post();
}

std::function<void()> OperationLink::TakeQuestion() {
  const Guard guard(*this);
  return std::exchange(question_, nullptr);
}

void OperationLink::Answered() {
  SetEvent(answered_.get());
}

std::optional<base::TransferProgress> OperationLink::Latest() const {
  const Guard guard(*this);
  return progress_;
}

bool OperationLink::finished() const {
  return IsSet(finished_);
}

void OperationLink::Cancel() {
  SetEvent(cancelled_.get());
}

void OperationLink::Close() {
  wake_.Close();
  Cancel();
  {
    const Guard guard(*this);
    question_ = nullptr;
  }
  SetEvent(closed_.get());
}

bool OperationLink::WaitForEnd(DWORD timeoutMs) const {
  const ULONGLONG end = GetTickCount64() + timeoutMs;
  const HANDLE ended = finished_.get();
  while (true) {
    const ULONGLONG now = GetTickCount64();
    const DWORD left = now < end ? static_cast<DWORD>(end - now) : 0;
    const DWORD result = MsgWaitForMultipleObjects(1, &ended, FALSE, left, QS_SENDMESSAGE);
    if (result == WAIT_OBJECT_0) return true;
    if (result != WAIT_OBJECT_0 + 1) return false;
    MSG message;
    PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
  }
}

}  // namespace controls
