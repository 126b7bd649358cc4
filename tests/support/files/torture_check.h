// What must hold after an operation, killed ones included, told from the machine's own listing before and
// after.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/files/transfer.h"
#include "tests/support/files/machine_folder.h"

namespace test_support {

// Paths are those of FolderContents.
struct TortureOperation {
  base::TransferKind kind = base::TransferKind::kCopy;
  std::set<std::string> sources;
  std::string folder;                 // the real destination, whatever link led to it
  std::set<std::string> replaceable;  // where the user said Replace
  std::set<std::string> vanished;     // what somebody else deleted meanwhile
  std::set<std::string> vanishedContents;
  bool killed = false;
  base::TransferReport report;  // when it was not killed
};

// The first thing that is wrong; empty when all is well.
std::string ProblemAfter(const TortureOperation& operation, const FolderContents& before,
                         const FolderContents& after);

// What an undo may take away, and where it may put something.
struct TortureUndo {
  std::set<std::string> mayGo;
  std::set<std::string> mayCome;
  std::set<std::string> mustCome;  // what was moved: what goes from below these has to come back
  bool killed = false;
};
std::string ProblemAfterUndo(const TortureUndo& undo, const FolderContents& before,
                             const FolderContents& after);

// Without temporary files.
FolderContents WithoutTemporaries(FolderContents contents);

// Whether path is one of roots or lies below one.
bool IsBelow(const std::string& path, const std::set<std::string>& roots);

}  // namespace test_support
