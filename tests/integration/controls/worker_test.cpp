// The threads of the controls.
#include "workbench/controls/shell/worker.h"

#include <gtest/gtest.h>

#include <atomic>

#include "tests/support/wait_until.h"
#include "workbench/controls/com/com_object.h"

namespace controls_test {
namespace {

TEST(Worker, ADriveWithoutADiskShowsNoBoxOfTheSystems) {
  std::atomic<DWORD> mode{0};
  ASSERT_TRUE(controls::StartWorker([&] { mode = GetThreadErrorMode() | 0x80000000; }));
  ASSERT_TRUE(test_support::WaitUntil([&] { return mode != 0; }));
  constexpr DWORD kQuiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;
  EXPECT_EQ(mode & kQuiet, kQuiet);
  EXPECT_TRUE(test_support::WaitUntil([] { return controls::ModuleLock::count() == 0; }));
}

}  // namespace
}  // namespace controls_test
