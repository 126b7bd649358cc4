#include "tests/support/watchdog.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <string>

#include "tests/support/failure_report.h"

namespace test_support {
namespace {

constexpr UINT kExitCode = 87;
constexpr long kLooks = 10 * 60;
constexpr DWORD kLookEvery = 1000;  // milliseconds; a machine without time for us makes fewer looks

class Watchdog : public testing::EmptyTestEventListener {
 public:
  Watchdog() : looks_(Limit()) {
    DuplicateHandle(GetCurrentProcess(), GetCurrentThread(), GetCurrentProcess(), &watched_, 0, FALSE,
                    DUPLICATE_SAME_ACCESS);
    const HANDLE thread = CreateThread(nullptr, 0, Watch, this, 0, nullptr);
    if (thread) CloseHandle(thread);
  }
  // Lives as long as the process: its thread may be looking at it.
  ~Watchdog() override { std::abort(); }

  void OnTestStart(const testing::TestInfo& test) override {
    Begin(std::string(test.test_suite_name()) + "." + test.name());
  }
  // What suites and environments do before and after their tests is watched, too.
  void OnTestEnd(const testing::TestInfo& test) override { Begin(std::string("after ") + test.name()); }
  void OnTestProgramEnd(const testing::UnitTest&) override { Begin("the end of the program"); }

 private:
  static long Limit() {
    char text[16] = "";
    const DWORD length = GetEnvironmentVariableA("EXPLORER_TEST_SECONDS", text, sizeof text);
    const long seconds = length > 0 ? std::atol(text) : 0;
    return seconds > 0 ? seconds : kLooks;
  }

  void Begin(std::string name) {
    const std::lock_guard lock(mutex_);
    name_ = std::move(name);
    left_ = looks_;
  }

  static DWORD WINAPI Watch(void* parameter) {
    auto& self = *static_cast<Watchdog*>(parameter);
    for (;;) {
      Sleep(kLookEvery);
      if (--self.left_ <= 0) self.EndProgram();
    }
  }

  // Says first what needs no help of others: each step may be the one that can't be done any more.
  [[noreturn]] void EndProgram() {
    std::string name;
    if (mutex_.try_lock()) {
      name = name_;
      mutex_.unlock();
    }
    std::fprintf(stderr, "[  FAILED  ] %s stands still: no end after %ld seconds.\n", name.c_str(), looks_);
    std::fflush(stderr);
    // A picture or a name of a function may take for ever: then another thread ends the program.
    const HANDLE killer = CreateThread(nullptr, 0, EndSoon, nullptr, 0, nullptr);
    if (killer) CloseHandle(killer);
    std::fprintf(stderr, "%s%s", DescribeWindows().c_str(), TakePicture(name).c_str());
    std::fflush(stderr);
    std::fprintf(stderr, "%s", DescribeFrames(watched_).c_str());
    std::fflush(stderr);
    TerminateProcess(GetCurrentProcess(), kExitCode);
    std::abort();
  }

  static DWORD WINAPI EndSoon(void*) {
    constexpr DWORD kReportTime = 60000;  // milliseconds
    Sleep(kReportTime);
    TerminateProcess(GetCurrentProcess(), kExitCode);
    return 0;
  }

  const long looks_;
  std::atomic<long> left_ = looks_;
  std::mutex mutex_;
  std::string name_ = "the start of the program";
  HANDLE watched_ = nullptr;
};

}  // namespace

void StartWatchdog() {
  auto* const watchdog =
      new Watchdog;  // GoogleTest would delete it while its thread runs: it is taken back before that
  testing::UnitTest::GetInstance()->listeners().Append(watchdog);
  static struct Release {
    Watchdog* watchdog;
    ~Release() { testing::UnitTest::GetInstance()->listeners().Release(watchdog); }
  } release{watchdog};
}

}  // namespace test_support
