// A file that the system rewrites in place at each change, such as a profile file: a cut at the wrong moment
// leaves it empty. No Windows in here.
#pragma once

#include <string>

#include "base/files/save_recovery.h"

namespace base {

// Call it when a program starts. Keeps a copy of the file as FILE.last, and gives a file that was found empty
// the copy's content back. A missing file stays missing: somebody took it away. What can't be read or written
// is left alone.
void RestoreEmptiedFile(const std::string& path, RecoveryCalls& calls);

}  // namespace base
