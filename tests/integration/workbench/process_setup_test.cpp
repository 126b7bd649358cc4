// What the workbench sets for its process. The test gives everything back: it runs in a process with others.
#include <gtest/gtest.h>

#include <windows.h>

#include <string>

#include "tests/support/import_hook.h"
#include "workbench/app/main/process_setup.h"

namespace workbench {
namespace {

std::wstring dllDirectory;

BOOL WINAPI RecordDllDirectory(const wchar_t* path) {
  dllDirectory = path != nullptr ? path : L"<as before>";
  return TRUE;
}

class ProcessSetupTest : public testing::Test {
 protected:
  ~ProcessSetupTest() override {
    SetDllDirectoryW(nullptr);
    SetErrorMode(errorMode_);
  }
  UINT errorMode_ = GetErrorMode();
};

// The empty text takes the current folder out of the search. Only that it is asked for can be seen here: not
// every platform does it.
TEST_F(ProcessSetupTest, NoLibraryIsTakenFromTheCurrentFolder) {
  const test_support::ImportHook hook(GetModuleHandleW(nullptr), "SetDllDirectoryW", &RecordDllDirectory);
  ASSERT_TRUE(hook.installed());
  dllDirectory = L"<not set>";
  PrepareProcess();
  EXPECT_EQ(dllDirectory, L"");
}

TEST_F(ProcessSetupTest, TheSystemShowsNoBoxOfItsOwn) {
  SetErrorMode(SEM_NOGPFAULTERRORBOX);
  PrepareProcess();
  constexpr UINT kWanted = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;
  EXPECT_EQ(GetErrorMode() & kWanted, kWanted);
  EXPECT_NE(GetErrorMode() & SEM_NOGPFAULTERRORBOX, 0U) << "what was set before stays";
}

}  // namespace
}  // namespace workbench
