#include "tests/support/wait_until.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "tests/support/failure_report.h"
#include "tests/support/unexpected_boxes.h"

namespace test_support {
namespace {

constexpr DWORD kPatience = 3 * 60 * 1000;
constexpr DWORD kLookEvery = 10;  // milliseconds
// A timer whose messages take longer to handle than it takes to elapse would be due for ever.
constexpr int kMostMessages = 5000;

DWORD patience = kPatience;

void Report(const char* reason) {
  const testing::TestInfo* const test = testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = test ? std::string(test->test_suite_name()) + "." + test->name() : "wait";
  std::fprintf(stderr, "A wait ended: %s.\n%s%s", reason, DescribeWindows().c_str(),
               TakePicture(name).c_str());
  std::fflush(stderr);
}

}  // namespace

DWORD Patience() {
  return patience;
}

ShorterPatience::ShorterPatience(DWORD milliseconds) : before_(patience) {
  patience = milliseconds;
}
ShorterPatience::~ShorterPatience() {
  patience = before_;
}

void PumpMessages() {
  MSG message;
  for (int i = 0; i < kMostMessages && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE); ++i) {
    TranslateMessage(&message);
    DispatchMessageA(&message);
  }
}

bool WaitUntil(const std::function<bool()>& condition, const std::function<bool()>& hopeless) {
  const ULONGLONG deadline = GetTickCount64() + patience;
  const int boxes = UnexpectedBoxes();
  for (;;) {
    PumpMessages();
    if (condition()) return true;
    const char* reason = nullptr;
    if (hopeless && hopeless()) reason = "what it waited for can't come any more";
    if (UnexpectedBoxes() != boxes) reason = "an unexpected message box came up";
    if (GetTickCount64() >= deadline) reason = "what it waited for did not come";
    if (reason) return Report(reason), false;
    MsgWaitForMultipleObjects(0, nullptr, FALSE, kLookEvery, QS_ALLINPUT);
  }
}

bool WaitQuietly(const std::function<bool()>& condition) {
  const ULONGLONG deadline = GetTickCount64() + patience;
  while (!condition()) {
    if (GetTickCount64() >= deadline) return false;
    Sleep(kLookEvery);
  }
  return true;
}

bool WaitForHandle(HANDLE handle) {
  return WaitUntil([&] { return WaitForSingleObject(handle, 0) == WAIT_OBJECT_0; });
}

}  // namespace test_support
