// What the windows of a file operation say. Pure: what depends on the user's settings is handed in.
#pragma once

#include <functional>
#include <string>

#include "base/files/transfer.h"
#include "workbench/controls/operations/delete_plan.h"

namespace controls {

enum class OperationKind { kCopy, kMove, kDelete, kUndo };

// How the user's system writes dates (steps of 100 ns since 1601, UTC) and error codes.
struct TextFormat {
  std::function<std::wstring(int64_t time)> date;
  std::function<std::wstring(base::SystemError error)> error;
};

// “name” of a path.
std::wstring QuotedName(std::wstring_view path);

// The caption of the windows: "Copy", "Move", "Delete", "Undo".
const wchar_t* CaptionOf(OperationKind kind);

struct ConflictText {
  std::wstring heading;   // what stands in the way, and where
  std::wstring incoming;  // of what comes: size and date for files; empty for folders
  std::wstring present;   // of what is there
  std::wstring replace;   // the label of the button that replaces or merges
};
ConflictText TextOfConflict(const base::Conflict& conflict, const TextFormat& format);

struct ProgressText {
  std::wstring title;
  std::wstring name;    // of the object at hand
  std::wstring counts;  // "12 of 340 items, 1.2 MB of 40 MB"
  int thousandths = 0;  // of the whole that is done: 0 to 1000
};
ProgressText TextOfProgress(OperationKind kind, const base::TransferProgress& progress);

// Whether an operation that began elapsedMs milliseconds ago shows its progress: short ones never do, and one
// that is nearly done does not open a window for its last moment.
bool ShowsProgress(unsigned elapsedMs, int thousandths);

// The one question before anything is deleted.
std::wstring TextOfDelete(const DeletePlan& plan);
// Whether it is a warning: something would be gone for good.
bool DeletesForGood(const DeletePlan& plan);

// What could not be done, with names and reasons, and how much was done; empty when there is nothing to tell.
// At most ten failures are named.
std::wstring TextOfReport(OperationKind kind, const base::TransferReport& report, const TextFormat& format);

}  // namespace controls
