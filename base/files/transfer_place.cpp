// Where an object goes in its folder, and what happens when something of its name stands there.
#include "base/files/paths.h"
#include "base/files/transfer_run.h"

namespace base {
namespace {

// How often a name may be taken by somebody else between the look and the deed.
constexpr int kTries = 20;

bool IsFileOrFileLink(FileKind kind) {
  return kind == FileKind::kFile || kind == FileKind::kFileLink;
}

}  // namespace

TransferRun::Outcome TransferRun::Place(PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                                        bool inDestination) {
  if (!Tell(source, PathInFolder(folder.path(), node.name))) return Outcome::kCancelled;
  if (inDestination) folder.Claim(node.name);
  if (inDestination && kind_ == TransferKind::kMove) {
    arrived_ = source;
    return Outcome::kDone;  // it is where it should go
  }
  for (int tries = 0; tries < kTries; ++tries) {
    Arrival arrival;
    Outcome outcome = Settle(node, source, folder, inDestination, &arrival);
    if (outcome != Outcome::kDone) return outcome;
    outcome = Put(node, source, folder, arrival);
    if (outcome != Outcome::kAgain) {
      if (outcome == Outcome::kDone || arrival.merges) arrived_ = PathInFolder(folder.path(), arrival.name);
      if (outcome == Outcome::kDone && arrival.name != node.name && !arrival.replaces && !arrival.merges) {
        report_.renamed.push_back({source, PathInFolder(folder.path(), arrival.name)});
      }
      return outcome;
    }
    folder.Refresh(arrival.name, files_);
  }
  Fail(source, FailureReason::kSystem, kAlreadyExists);
  return Outcome::kNotDone;
}

TransferRun::Outcome TransferRun::Settle(const PlanNode& node, const std::wstring& source,
                                         DestinationFolder& folder, bool inDestination, Arrival* arrival) {
  arrival->name = node.name;
  const DestinationFolder::Entry* standing = folder.Find(node.name);
  if (!standing) return Outcome::kDone;
  // A copy beside its source, the second of two sources whose names are one here, and what would replace
  // another source get names of their own.
  if (inDestination || standing->made || IsOtherSource(node, standing->status)) {
    arrival->name = folder.FreeName(node.name);
    return Outcome::kDone;
  }
  return SettleConflict(node, source, folder, *standing, arrival);
}

bool TransferRun::IsOtherSource(const PlanNode& node, const FileStatus& standing) const {
  return standing.identity != node.status.identity && sources_.contains(standing.identity);
}

TransferRun::Outcome TransferRun::SettleConflict(const PlanNode& node, const std::wstring& source,
                                                 DestinationFolder& folder,
                                                 const DestinationFolder::Entry& standing, Arrival* arrival) {
  Conflict conflict;
  conflict.source = source;
  conflict.target = PathInFolder(folder.path(), standing.name);
  conflict.sourceStatus = node.status;
  conflict.targetStatus = standing.status;
  conflict.folders = node.status.kind == FileKind::kFolder && standing.status.kind == FileKind::kFolder;
  conflict.mayReplace =
      conflict.folders || (IsFileOrFileLink(node.status.kind) && IsFileOrFileLink(standing.status.kind));
  conflict.moves = kind_ == TransferKind::kMove;
  if (conflict.folders && node.status.identity == standing.status.identity) {
    Fail(source, FailureReason::kIntoItself);
    return Outcome::kNotDone;
  }
  switch (Ask(conflict).answer) {
    case ConflictAnswer::kReplace:
      if (!conflict.mayReplace) {
        Fail(source, standing.status.kind == FileKind::kFile ? FailureReason::kFileInTheWay
                                                             : FailureReason::kFolderInTheWay);
        return Outcome::kNotDone;
      }
      arrival->name = standing.name;
      arrival->merges = conflict.folders;
      arrival->replaces = !conflict.folders;
      arrival->standing = standing.status.identity;
      return Outcome::kDone;
    case ConflictAnswer::kKeepBoth:
      arrival->name = folder.FreeName(node.name);
      return Outcome::kDone;
    case ConflictAnswer::kSkip:
      ++report_.skipped;
      return Outcome::kNotDone;
    case ConflictAnswer::kCancel:
      break;
  }
  return Outcome::kCancelled;
}

ConflictReply TransferRun::Ask(const Conflict& conflict) {
  std::optional<ConflictAnswer>& forAll = answersForAll_[conflict.folders ? 0 : conflict.mayReplace ? 1 : 2];
  if (forAll) return {*forAll, true};
  const ConflictReply reply = observer_.OnConflict(conflict);
  if (reply.forAll) forAll = reply.answer;
  return reply;
}

TransferRun::Outcome TransferRun::Put(PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                                      const Arrival& arrival) {
  if (arrival.merges) {
    const std::wstring target = PathInFolder(folder.path(), arrival.name);
    return Merge(node, source, target, arrival.standing);
  }
  return kind_ == TransferKind::kMove && !across_ ? Move(node, source, folder, arrival)
                                                  : Copy(node, source, folder, arrival);
}

TransferRun::Outcome TransferRun::Merge(PlanNode& node, const std::wstring& source,
                                        const std::wstring& target, const FileIdentity& identity) {
  DestinationFolder inside(target, identity);
  SystemError error = inside.Read(files_);
  if (error == kNoError && !ReadTree(node, source, files_, [&] { return Tell(source, target); })) {
    return Outcome::kCancelled;
  }
  if (error == kNoError) error = node.listError;
  if (error != kNoError) {
    Fail(source, FailureReason::kSystem, error);
    return Outcome::kNotDone;
  }
  const bool removesItself = kind_ == TransferKind::kMove && !across_;
  const size_t pendingAt = pending_.size();
  if (across_) pending_.push_back({source, target, node.status, {}, true});
  const Outcome outcome = CopyChildren(node, source, inside);
  ++progress_.itemsDone;
  if (outcome == Outcome::kCancelled) return outcome;
  if (across_) pending_[pendingAt].complete = outcome == Outcome::kDone;
  // What was skipped or could not come keeps its folder.
  if (!removesItself || outcome != Outcome::kDone) return outcome;
  error = files_.RemoveFolder(source);
  if (error == kNoError) {
    undo_.emptied.push_back(source);
  } else if (!IsNotFound(error)) {
    Fail(source, error == kFolderNotEmpty ? FailureReason::kKept : FailureReason::kSystem, error);
    return Outcome::kNotDone;
  }
  return Outcome::kDone;
}

}  // namespace base
