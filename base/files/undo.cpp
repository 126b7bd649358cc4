#include "base/files/undo.h"

#include "base/files/paths.h"
#include "base/files/transfer_run.h"

namespace base {
namespace {

class Undoing {
 public:
  Undoing(const UndoRecord& record, FileSystem& files, TransferObserver& observer)
      : record_(record), files_(files), run_(files, observer) {}

  TransferReport Run() {
    files_.BeginOperation();
    run_.SetTotals(record_.made.size() + record_.moved.size(), 0);
    MakeEmptiedFolders();
    for (auto at = record_.moved.rbegin(); at != record_.moved.rend() && !run_.report().cancelled; ++at)
      MoveBack(*at);
    if (!run_.report().cancelled && GoOn()) run_.report().done += run_.TakeAway(record_.made, true);
    for (const std::wstring& path : record_.replaced) run_.Fail(path, FailureReason::kWasReplaced);
    return std::move(run_.report());
  }

 private:
  bool GoOn() {
    if (!record_.made.empty() && !run_.Tell(record_.made.back().path, {})) run_.report().cancelled = true;
    return !run_.report().cancelled;
  }

  // The outer folders were emptied last.
  void MakeEmptiedFolders() {
    for (auto at = record_.emptied.rbegin(); at != record_.emptied.rend(); ++at) {
      const SystemError error = files_.MakeFolder(*at);
      FileStatus status;
      if (error == kNoError) continue;
      if (files_.Status(*at, &status) == kNoError && status.kind == FileKind::kFolder) continue;
      run_.Fail(*at, FailureReason::kSystem, error);
    }
  }

  void MoveBack(const UndoRecord::Moved& moved) {
    if (!run_.Tell(moved.to, moved.from)) {
      run_.report().cancelled = true;
      return;
    }
    FileStatus status;
    SystemError error = files_.Status(moved.to, &status);
    if (error == kNoError && status.identity != moved.identity) {
      run_.Fail(moved.to, FailureReason::kChangedSince);
      return;
    }
    if (error == kNoError) error = run_.MoveTo(moved.to, status, moved.from);
    if (error != kNoError) {
      const bool taken = error == kAlreadyExists || error == kFileExists;
      run_.Fail(moved.to, taken ? FailureReason::kPlaceTaken : FailureReason::kSystem, error);
    }
    run_.StepDone();
  }

  const UndoRecord& record_;
  FileSystem& files_;
  TransferRun run_;
};

}  // namespace

UndoRecord RecordRename(const std::wstring& from, const std::wstring& to, FileSystem& files) {
  UndoRecord record;
  FileStatus status;
  std::wstring exact;
  if (files.Spell(to, &exact) != kNoError || files.Status(exact, &status) != kNoError) return record;
  record.kind = UndoKind::kRename;
  record.moved.push_back({from, exact, status.identity});
  return record;
}

TransferReport RunUndo(const UndoRecord& record, FileSystem& files, TransferObserver& observer) {
  return Undoing(record, files, observer).Run();
}

}  // namespace base
