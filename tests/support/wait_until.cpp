#include "tests/support/wait_until.h"

namespace test_support {

void PumpMessages() {
  MSG message;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

bool WaitUntil(const std::function<bool()>& condition, DWORD timeoutMs) {
  const ULONGLONG deadline = GetTickCount64() + timeoutMs;
  for (;;) {
    PumpMessages();
    if (condition()) return true;
    if (GetTickCount64() >= deadline) return false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
  }
}

}  // namespace test_support
