// The last operation, written down so that it can be taken back.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/files/undo_record.h"

namespace controls {

// An item that went to the recycle bin.
struct BinnedItem {
  std::wstring path;  // where it was
  std::string binId;  // the bin's own name of it, as bytes
};

struct UndoEntry {
  std::wstring name;               // what it was: "Copy", "Move", "Rename", "Delete"
  base::UndoRecord record;         // of a copy, move or rename
  std::vector<BinnedItem> binned;  // of a deletion

  bool empty() const { return record.empty() && binned.empty(); }
};

// As bytes and back: the controls live in modules of their own, which share it that way. Nothing when the
// bytes are not what BytesOf wrote.
std::string BytesOf(const UndoEntry& entry);
std::optional<UndoEntry> UndoEntryFrom(std::string_view bytes);
// The entry's name alone; empty when the bytes are no entry.
std::wstring UndoNameFrom(std::string_view bytes);

}  // namespace controls
