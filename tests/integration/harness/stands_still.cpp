// A test that never ends, for the test of what ends such tests.
#include <gtest/gtest.h>
#include <windows.h>

namespace {

TEST(StandsStill, InAMessageLoop) {
  CreateWindowExA(0, "STATIC", "a dialog that nobody closes", WS_POPUP | WS_VISIBLE, 0, 0, 99, 99, nullptr,
                  nullptr, nullptr, nullptr);
  MSG message;
  while (GetMessageA(&message, nullptr, 0, 0)) DispatchMessageA(&message);
}

}  // namespace
