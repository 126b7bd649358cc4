// Taking the last operation back.
#pragma once

#include "base/files/transfer.h"

namespace base {

// After a file, folder or link was renamed or moved by other means than RunTransfer: what takes that back.
// Empty when nothing stands at `to`.
UndoRecord RecordRename(const std::wstring& from, const std::wstring& to, FileSystem& files);

// Takes an operation back as far as it can be without losing anything, and says what it could not do:
// - What a copy made is deleted, but only what is still what was made (identity, size and time of last
// change); a
//   folder only when it is empty then. Everything else is left alone and reported (kChangedSince).
// - What was moved or renamed goes back to its old place, but never over something that stands there by now
//   (kPlaceTaken), and not when something else stands at its new place (kChangedSince). Folders that were
//   emptied are made again first.
// - A file that was replaced is gone; it is reported (kWasReplaced), and what replaced it is still taken back
// when it
//   was moved, but stays when it was copied.
// The observer is asked for progress only. done counts the objects that were taken back.
TransferReport RunUndo(const UndoRecord& record, FileSystem& files, TransferObserver& observer);

}  // namespace base
