// What takes an operation back, written down while it is done. Plain values: may be kept, copied and dropped.
#pragma once

#include <string>
#include <vector>

#include "base/files/file_system.h"

namespace base {

enum class UndoKind { kNothing, kCopy, kMove, kRename };

struct UndoRecord {
  // A file, link or folder that the operation made, as it was when it was done.
  struct Made {
    std::wstring path;
    FileStatus status;
  };
  // Something that the operation took from one place to another.
  struct Moved {
    std::wstring from;
    std::wstring to;
    FileIdentity identity;  // at `to`
  };

  UndoKind kind = UndoKind::kNothing;
  std::vector<Made> made;    // in the order of making: what lies in a folder comes after it
  std::vector<Moved> moved;  // in the order of moving
  std::vector<std::wstring>
      emptied;  // folders of the source that were removed as their contents had gone elsewhere
  std::vector<std::wstring> replaced;  // what stood at these paths is gone for good

  bool empty() const { return made.empty() && moved.empty(); }
};

}  // namespace base
