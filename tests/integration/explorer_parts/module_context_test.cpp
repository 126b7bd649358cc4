// The module's context on a thread of the host's: entered, nested and left.
#include "src/framework/module_context.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

constexpr DWORD kQuiet = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;

class ModuleContextTest : public testing::TestWithParam<DWORD> {
 protected:
  ModuleContextTest() { SetThreadErrorMode(GetParam(), &before_); }
  ~ModuleContextTest() override { SetThreadErrorMode(before_, nullptr); }
  DWORD before_ = 0;
};

TEST_P(ModuleContextTest, ADriveWithoutADiskShowsNoBoxWhileTheModuleRuns) {
  {
    const ModuleContext outer;
    EXPECT_EQ(GetThreadErrorMode() & kQuiet, kQuiet);
    EXPECT_EQ(GetThreadErrorMode() & GetParam(), GetParam()) << "what the host has set stays";
    {
      const ModuleContext inner;
      EXPECT_EQ(GetThreadErrorMode() & kQuiet, kQuiet);
    }
    EXPECT_EQ(GetThreadErrorMode() & kQuiet, kQuiet) << "the inner one gives nothing back";
    EXPECT_EQ(ModuleContext::Depth(), 1);
  }
  EXPECT_EQ(GetThreadErrorMode(), GetParam()) << "the host has its own again";
}

INSTANTIATE_TEST_SUITE_P(Hosts, ModuleContextTest,
                         testing::Values(0, SEM_NOGPFAULTERRORBOX, SEM_FAILCRITICALERRORS));

TEST(ModuleContextOnItsOwn, LeavingKeepsTheLastError) {
  {
    const ModuleContext context;
    SetLastError(1234);
  }
  EXPECT_EQ(GetLastError(), 1234U);
}

}  // namespace
}  // namespace file_explorer
