// Waiting for a condition while messages are dispatched, as a program's message loop would.
#pragma once

#include <windows.h>

#include <functional>

namespace test_support {

// Dispatches messages until condition() holds; false when it did not within timeoutMs milliseconds.
bool WaitUntil(const std::function<bool()>& condition, DWORD timeoutMs = 20000);

// Dispatches every message that is waiting now.
void PumpMessages();

}  // namespace test_support
