// Random operations of the transfer engine over random trees, with faults, cancels and kills at random
// places, and the check after each one: what the operation did not name is byte for byte what it was, and
// what it named is whole at its source or at its destination.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "base/files/file_system.h"

namespace test_support {

struct TortureOptions {
  uint64_t seed = 1;
  size_t operations = 2000;
  bool links = true;     // symbolic links to files and folders, inside and outside, dangling ones and loops
  bool oddNames = true;  // names that Windows programs cannot open, and names that differ in letter case only

  // From TRANSFER_TORTURE_SEED and TRANSFER_TORTURE_OPERATIONS, where they are set.
  void TakeFromEnvironment();
};

struct TortureResult {
  std::vector<std::string> problems;  // the first one ends the run
  size_t operations = 0;
  size_t kills = 0;
  size_t cancels = 0;
  size_t failures = 0;  // reported ones
  size_t undos = 0;
  size_t wholeUndos = 0;  // after which everything was as before the operation
  size_t done = 0;        // objects copied, moved and deleted

  std::string Summary() const;
};

TortureResult RunTorture(const TortureOptions& options, base::FileSystem& files);

}  // namespace test_support
