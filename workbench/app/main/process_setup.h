// What holds for the whole process of the workbench, before anything is loaded.
#pragma once

namespace workbench {

// Libraries are never looked for in the current folder, which may be the one that the user browses; and a
// drive without a disk or a damaged file is an error to the caller, not a box of the system's.
void PrepareProcess();

}  // namespace workbench
