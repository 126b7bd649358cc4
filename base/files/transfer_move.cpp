// Moves: within a file system a new name, to another one a copy whose source goes once the copy is whole.
#include <algorithm>
#include <set>

#include "base/files/paths.h"
#include "base/files/transfer_run.h"

namespace base {
TransferRun::Outcome TransferRun::Move(PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                                       const Arrival& arrival) {
  const std::wstring target = PathInFolder(folder.path(), arrival.name);
  const SystemError error =
      arrival.replaces ? MoveOver(node, source, folder, arrival) : files_.Rename(source, target);
  if (error == kNotSameDevice) return MoveAcross(node, source, folder, arrival);
  if (error == kAlreadyExists || error == kFileExists) return Outcome::kAgain;
  const TreeSize size = SizeOfTree(node);
  progress_.itemsDone += size.items;
  bytesBefore_ += size.bytes;
  progress_.bytesDone = bytesBefore_;
  if (error != kNoError) {
    Fail(source, FailureReason::kSystem, error);
    return Outcome::kNotDone;
  }
  if (arrival.replaces) undo_.replaced.push_back(target);
  folder.Add(arrival.name, node.status);
  NoteMove(source, target, node.status.identity);
  return Outcome::kDone;
}

SystemError TransferRun::MoveOver(const PlanNode& node, const std::wstring& source,
                                  const DestinationFolder& folder, const Arrival& arrival) {
  const std::wstring target = PathInFolder(folder.path(), arrival.name);
  FileStatus standing;
  const SystemError error = files_.Status(target, &standing);
  // The user agreed to replace this file and no other one.
  if (error != kNoError || standing.identity != arrival.standing) return kAlreadyExists;
  if (standing.identity == node.status.identity) return MoveOntoItself(node, source, folder);
  return files_.Replace(source, target);
}

// The file stands at the destination already. Under a second name in another folder it goes from there; but
// two paths may also be one name.
SystemError TransferRun::MoveOntoItself(const PlanNode& node, const std::wstring& source,
                                        const DestinationFolder& folder) {
  FileStatus parent;
  const SystemError error = files_.TargetStatus(ParentOfPath(source), &parent);
  if (error != kNoError || parent.identity == folder.identity()) return error;
  return RemoveObject(node.status.kind, source);
}

void TransferRun::NoteMove(const std::wstring& from, const std::wstring& to, const FileIdentity& identity) {
  undo_.moved.push_back({from, to, identity});
  ++done_;
}

TransferRun::Outcome TransferRun::MoveAcross(PlanNode& node, const std::wstring& source,
                                             DestinationFolder& folder, const Arrival& arrival) {
  const size_t first = pending_.size();
  const size_t failures = report_.failures.size();
  across_ = true;
  const Outcome outcome = Copy(node, source, folder, arrival);
  across_ = false;
  if (outcome == Outcome::kCancelled || outcome == Outcome::kAgain) return outcome;
  RemoveCopiedSources(first, folder.path());
  pending_.resize(first);
  return outcome == Outcome::kDone && report_.failures.size() == failures ? Outcome::kDone
                                                                          : Outcome::kNotDone;
}

void TransferRun::RemoveCopiedSources(size_t first, const std::wstring& destination) {
  std::vector<std::wstring> copies;
  for (size_t i = first; i < pending_.size(); ++i) {
    if (pending_[i].sourceStatus.kind == FileKind::kFile) copies.push_back(pending_[i].target);
  }
  const SystemError error = copies.empty() ? kNoError : files_.Flush(destination, copies);
  if (error != kNoError) {
    Fail(pending_[first].source, FailureReason::kSystem, error);
    return;
  }
  std::set<std::wstring> kept;  // folders in which something stays
  std::set<std::wstring> moved;
  for (size_t i = pending_.size(); i-- > first;) {
    const PendingRemoval& pending = pending_[i];
    const bool complete = pending.complete && !kept.contains(pending.source);
    if (!complete || !RemoveCopiedSource(pending)) {
      kept.insert(ParentOfPath(pending.source));
    } else if (pending.sourceStatus.kind != FileKind::kFolder) {
      moved.insert(pending.target);
    }
  }
  std::erase_if(undo_.made, [&](const UndoRecord::Made& made) { return moved.contains(made.path); });
}

bool TransferRun::RemoveCopiedSource(const PendingRemoval& pending) {
  const bool folder = pending.sourceStatus.kind == FileKind::kFolder;
  if (!folder) {
    FileStatus now;
    SystemError error = files_.Status(pending.target, &now);
    if (error != kNoError || now.identity != pending.targetStatus.identity ||
        now.size != pending.targetStatus.size) {
      Fail(pending.source, FailureReason::kSizeDiffers, error);
      return false;
    }
    error = files_.Status(pending.source, &now);
    if (error != kNoError || !SameContent(now, pending.sourceStatus)) {
      Fail(pending.source, error == kNoError ? FailureReason::kSourceChanged : FailureReason::kSystem, error);
      return false;
    }
  }
  const SystemError error = RemoveObject(pending.sourceStatus.kind, pending.source);
  if (error != kNoError && !IsNotFound(error)) {
    Fail(pending.source, error == kFolderNotEmpty ? FailureReason::kKept : FailureReason::kSystem, error);
    return false;
  }
  if (folder) {
    undo_.emptied.push_back(pending.source);
    arrivedFolders_.insert(pending.target);
    ++done_;
  } else {
    NoteMove(pending.source, pending.target, pending.targetStatus.identity);
  }
  return true;
}

SystemError TransferRun::MoveTo(const std::wstring& source, const FileStatus& status,
                                const std::wstring& target) {
  const SystemError error = files_.Rename(source, target);
  if (error != kNotSameDevice) {
    if (error == kNoError) ++report_.done;
    return error;
  }
  FileStatus parent;
  const std::wstring folderPath = ParentOfPath(target);
  const SystemError missing = files_.TargetStatus(folderPath, &parent);
  if (missing != kNoError) return missing;
  DestinationFolder folder(folderPath, parent.identity);
  PlanNode node;
  node.name = NameOfPath(target);
  node.status = status;
  undo_ = {};
  done_ = 0;
  kind_ = TransferKind::kMove;
  const Outcome outcome = MoveAcross(node, source, folder, {node.name, false, false, {}});
  if (outcome == Outcome::kAgain) return kAlreadyExists;
  FinishSource(outcome == Outcome::kCancelled);
  return kNoError;
}

}  // namespace base
