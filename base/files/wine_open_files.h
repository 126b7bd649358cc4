// Only for Wine: which files its programs have open at the moment. Sharing modes exist only among the
// programs of Wine, and asking for them costs far more than a copy of a small file; so only files that
// somebody has open are asked about.
#pragma once

#include <set>
#include <string>
#include <vector>

#include "base/files/file_system.h"

namespace base::wine {

class OpenFiles {
 public:
  // False when it is certain that no program of a Wine on this machine has the file open. Looks again every
  // hundred calls, so a file that was opened only just now may be missed.
  bool MayContain(const FileIdentity& file);
  // The next call looks again.
  void Forget() { callsLeft_ = 0; }

 private:
  void Look();
  void FindServers();

  bool known_ = false;
  int callsLeft_ = 0;
  std::vector<std::string> servers_;  // "/proc/<number>/fd/" of each server of Wine
  std::set<FileIdentity> open_;
};

}  // namespace base::wine
