// Random operations over real files, through the file systems that the programs use.
#include "tests/support/files/torture.h"

#include <gtest/gtest.h>

#include <cstdio>

#include "base/files/windows_file_system.h"

namespace {

void Torment(test_support::TortureOptions options, base::FileSystem& files) {
  options.TakeFromEnvironment();
  const test_support::TortureResult result = RunTorture(options, files);
  std::printf("seed %llu: %s\n", static_cast<unsigned long long>(options.seed), result.Summary().c_str());
  for (const std::string& problem : result.problems) ADD_FAILURE() << problem;
  EXPECT_EQ(result.operations, options.operations);
  EXPECT_GT(result.kills, 0U);
}

TEST(TransferTorture, ThroughTheFilesOfThisMachine) {
  test_support::TortureOptions options;
  options.seed = 611;
  options.operations = 400;
  Torment(options, base::MachineFileSystem());
}

// Links and names that Wine's own calls cannot tell are left out: that is what its file system is for.
TEST(TransferTorture, ThroughTheCallsOfWindows) {
  test_support::TortureOptions options;
  options.seed = 612;
  options.operations = 200;
  options.links = false;
  options.oddNames = false;
  base::WindowsFileSystem files;
  Torment(options, files);
}

}  // namespace
