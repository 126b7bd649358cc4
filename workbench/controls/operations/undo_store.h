// The operations that can be taken back, the same for all controls of the process: each control is a module
// of its own, so they meet in a piece of memory that they find by its name.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

#include "base/handles/unique_handle.h"
#include "workbench/controls/operations/undo_entry.h"

namespace controls {

// A control's way to the entries while it lives; the last one that goes takes them along. Any thread.
class UndoStore {
 public:
  UndoStore();
  ~UndoStore();
  UndoStore(const UndoStore&) = delete;
  UndoStore& operator=(const UndoStore&) = delete;

  // Becomes the last operation. An empty entry is dropped: an operation that cannot be taken back does not
  // hide the one before.
  void Push(const UndoEntry& entry);
  // The last operation's name; empty when there is none.
  std::wstring LastName() const;
  // Takes the last operation out.
  std::optional<UndoEntry> Pop();

 private:
  struct Shared;
  class Lock;

  base::unique_file mutex_;
  base::unique_file mapping_;
  Shared* shared_ = nullptr;
};

}  // namespace controls
