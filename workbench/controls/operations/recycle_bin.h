// The shell's recycle bin, for items that it takes exactly as they are. COM must be initialised on the
// calling thread.
#pragma once

#include <windows.h>

#include <functional>
#include <string>
#include <vector>

#include "base/files/transfer.h"
#include "workbench/controls/operations/undo_entry.h"

namespace controls {

// Whether what stands at a path can go to a bin: its drive has one, which under Wine lies on its own file
// system.
bool HasBin(const std::wstring& path);

struct BinOutcome {
  size_t done = 0;                 // items that went
  std::vector<BinnedItem> binned;  // those of them that the bin can give back
  std::vector<base::TransferFailure> failures;
  bool cancelled = false;
};

// Moves items to the bin without a question; the shell asks before it deletes one that does not fit into the
// bin. next: called before each item; false ends it there.
BinOutcome MoveToBin(HWND owner, const std::vector<std::wstring>& paths,
                     const std::function<bool(const std::wstring& path)>& next);

// Gives an item back to its old place. Nothing is replaced there. kNoError, or why it did not come.
base::SystemError RestoreFromBin(const BinnedItem& item);

}  // namespace controls
