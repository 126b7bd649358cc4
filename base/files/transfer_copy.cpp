// Copies, and the first half of moves to other file systems.
#include <algorithm>

#include "base/files/paths.h"
#include "base/files/temporary_name.h"
#include "base/files/transfer_run.h"

namespace base {
namespace {

// How often a file is copied again because it changed meanwhile.
constexpr int kCopyTries = 3;

}  // namespace

TransferRun::Outcome TransferRun::Copy(PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                                       const Arrival& arrival) {
  Outcome outcome = Outcome::kNotDone;
  switch (node.status.kind) {
    case FileKind::kFolder:
      return CopyFolder(node, source, folder, arrival);
    case FileKind::kFile:
      outcome = CopyFile(node, source, folder, arrival);
      break;
    case FileKind::kFileLink:
    case FileKind::kFolderLink:
      outcome = CopyLink(node, source, folder, arrival);
      break;
    case FileKind::kMountPoint:
      Fail(source, FailureReason::kMountPoint);
      break;
    case FileKind::kNothing:
    case FileKind::kOther:
      Fail(source, FailureReason::kSpecialFile);
      break;
  }
  if (outcome == Outcome::kAgain || outcome == Outcome::kCancelled) return outcome;
  ++progress_.itemsDone;
  bytesBefore_ += node.status.size;
  progress_.bytesDone = bytesBefore_;
  return outcome;
}

TransferRun::Outcome TransferRun::CopyFolder(PlanNode& node, const std::wstring& source,
                                             DestinationFolder& folder, const Arrival& arrival) {
  const std::wstring target = PathInFolder(folder.path(), arrival.name);
  if (!ReadTree(node, source, files_, [&] { return Tell(source, target); })) return Outcome::kCancelled;
  SystemError error = files_.MakeFolder(target);
  if (error == kAlreadyExists || error == kFileExists) return Outcome::kAgain;
  FileStatus made;
  if (error == kNoError) {
    error = files_.Status(target, &made);
    if (error != kNoError) files_.RemoveFolder(target);
  }
  if (error != kNoError) {
    Fail(source, FailureReason::kSystem, error);
    return Outcome::kNotDone;
  }
  folder.Add(arrival.name, made);
  undo_.made.push_back({target, made});
  const size_t pendingAt = pending_.size();
  if (across_) pending_.push_back({source, target, node.status, made, true});
  DestinationFolder inside(target, made.identity);
  const Outcome outcome = CopyChildren(node, source, inside);
  if (outcome == Outcome::kCancelled) return outcome;
  if (across_) pending_[pendingAt].complete = outcome == Outcome::kDone;
  ++progress_.itemsDone;
  if (!across_) ++done_;
  if (node.listError != kNoError) Fail(source, FailureReason::kSystem, node.listError);
  error = files_.CopyFolderAttributes(source, target);
  if (error != kNoError) Fail(source, FailureReason::kAttributesLost, error);
  return outcome;
}

TransferRun::Outcome TransferRun::CopyChildren(PlanNode& node, const std::wstring& source,
                                               DestinationFolder& folder) {
  Outcome all = node.listError == kNoError ? Outcome::kDone : Outcome::kNotDone;
  for (PlanNode& child : node.children) {
    const Outcome outcome = Place(child, PathInFolder(source, child.name), folder, false);
    if (outcome == Outcome::kCancelled) return outcome;
    if (outcome != Outcome::kDone) all = Outcome::kNotDone;
  }
  return all;
}

SystemError TransferRun::CopyToTemporary(const std::wstring& source, const DestinationFolder& folder,
                                         std::wstring* temporary) {
  SystemError error = kFileExists;
  while (error == kFileExists || error == kAlreadyExists) {
    *temporary = PathInFolder(folder.path(), TemporaryName(files_.ProcessToken(), ++temporaryNumber_));
    error = files_.CopyBytes(source, *temporary, [this](uint64_t bytes) {
      progress_.bytesDone = bytesBefore_ + bytes;
      return observer_.OnProgress(progress_);
    });
  }
  return error;
}

TransferRun::Outcome TransferRun::CopyFile(const PlanNode& node, const std::wstring& source,
                                           DestinationFolder& folder, const Arrival& arrival) {
  FileStatus before = node.status;
  FailureReason reason = FailureReason::kSystem;
  SystemError error = kNoError;
  for (int tries = 0; tries < kCopyTries; ++tries) {
    std::wstring temporary;
    error = CopyToTemporary(source, folder, &temporary);
    FileStatus made;
    FileStatus after;
    if (error == kNoError) error = files_.Status(temporary, &made);
    if (error == kNoError) error = files_.Status(source, &after);
    reason = FailureReason::kSystem;
    if (error == kNoError) {
      const bool same = SameContent(before, after);
      if (same && made.size == after.size) {
        return PutInPlace(source, temporary, after, made, folder, arrival);
      }
      reason = same ? FailureReason::kSizeDiffers : FailureReason::kSourceChanged;
      before = after;
    }
    files_.RemoveFile(temporary);
    if (error == kCancelled) return Outcome::kCancelled;
    if (reason != FailureReason::kSourceChanged) break;
  }
  Fail(source, reason, error);
  return Outcome::kNotDone;
}

TransferRun::Outcome TransferRun::CopyLink(const PlanNode& node, const std::wstring& source,
                                           DestinationFolder& folder, const Arrival& arrival) {
  const std::wstring target = PathInFolder(folder.path(), arrival.name);
  std::wstring path = target;
  if (arrival.replaces) {
    path = PathInFolder(folder.path(), TemporaryName(files_.ProcessToken(), ++temporaryNumber_));
  }
  SystemError error = files_.CopyLink(source, path);
  if (!arrival.replaces && (error == kAlreadyExists || error == kFileExists)) return Outcome::kAgain;
  FileStatus made;
  if (error == kNoError) {
    error = files_.Status(path, &made);
    if (error != kNoError) files_.RemoveLink(path);
  }
  if (error != kNoError) {
    Fail(source, IsNotFound(error) ? FailureReason::kSystem : FailureReason::kLinkNotMade, error);
    return Outcome::kNotDone;
  }
  if (arrival.replaces) return PutInPlace(source, path, node.status, made, folder, arrival);
  folder.Add(arrival.name, made);
  NoteCopy(source, node.status, target, made, arrival);
  return Outcome::kDone;
}

TransferRun::Outcome TransferRun::PutInPlace(const std::wstring& source, const std::wstring& temporary,
                                             const FileStatus& sourceStatus, const FileStatus& made,
                                             DestinationFolder& folder, const Arrival& arrival) {
  const std::wstring target = PathInFolder(folder.path(), arrival.name);
  SystemError error = kNoError;
  if (arrival.replaces) {
    FileStatus standing;
    error = files_.Status(target, &standing);
    // The user agreed to replace this file and no other one.
    if (error != kNoError || standing.identity != arrival.standing) error = kAlreadyExists;
    if (error == kNoError) error = files_.Replace(temporary, target);
  } else {
    error = files_.Rename(temporary, target);
  }
  if (error != kNoError) {
    RemoveObject(made.kind, temporary);
    if (error == kAlreadyExists || error == kFileExists) return Outcome::kAgain;
    Fail(source, FailureReason::kSystem, error);
    return Outcome::kNotDone;
  }
  folder.Add(arrival.name, made);
  NoteCopy(source, sourceStatus, target, made, arrival);
  return Outcome::kDone;
}

void TransferRun::NoteCopy(const std::wstring& source, const FileStatus& sourceStatus,
                           const std::wstring& target, const FileStatus& made, const Arrival& arrival) {
  if (arrival.replaces) {
    undo_.replaced.push_back(target);
  } else {
    undo_.made.push_back({target, made});
  }
  if (across_) {
    pending_.push_back({source, target, sourceStatus, made, true});
  } else {
    ++done_;
  }
}

}  // namespace base
