// Deleting for good: every object by itself, links as links.
#include <algorithm>

#include "base/files/paths.h"
#include "base/files/transfer_run.h"

namespace base {

SystemError TransferRun::RemoveObject(FileKind kind, const std::wstring& path) {
  switch (kind) {
    case FileKind::kFolder:
      return files_.RemoveFolder(path);
    case FileKind::kFileLink:
    case FileKind::kFolderLink:
    case FileKind::kMountPoint:
      return files_.RemoveLink(path);
    case FileKind::kFile:
    case FileKind::kOther:
      return files_.RemoveFile(path);
    case FileKind::kNothing:
      break;
  }
  return kFileNotFound;
}

TransferRun::Outcome TransferRun::Delete(PlanNode& node, const std::wstring& path) {
  if (!Tell(path, {})) return Outcome::kCancelled;
  if (node.status.kind == FileKind::kFolder) return DeleteFolder(node, path);
  const SystemError error = RemoveObject(node.status.kind, path);
  ++progress_.itemsDone;
  bytesBefore_ += node.status.size;
  progress_.bytesDone = bytesBefore_;
  if (error != kNoError && !IsNotFound(error)) {
    Fail(path, FailureReason::kSystem, error);
    return Outcome::kNotDone;
  }
  ++done_;
  return Outcome::kDone;
}

TransferRun::Outcome TransferRun::DeleteFolder(PlanNode& node, const std::wstring& path) {
  FileStatus now;
  SystemError error = files_.Status(path, &now);
  // Nothing may be deleted through a link that took the folder's place meanwhile.
  if (error == kNoError && (now.kind != FileKind::kFolder || now.identity != node.status.identity)) {
    Fail(path, FailureReason::kSourceChanged);
    return Outcome::kNotDone;
  }
  if (IsNotFound(error)) return Outcome::kDone;
  Outcome all = node.listError == kNoError ? Outcome::kDone : Outcome::kNotDone;
  for (PlanNode& child : node.children) {
    const Outcome outcome = Delete(child, PathInFolder(path, child.name));
    if (outcome == Outcome::kCancelled) return outcome;
    if (outcome != Outcome::kDone) all = Outcome::kNotDone;
  }
  ++progress_.itemsDone;
  if (node.listError != kNoError) Fail(path, FailureReason::kSystem, node.listError);
  if (all != Outcome::kDone) return all;  // what stays is named already
  error = files_.RemoveFolder(path);
  if (error != kNoError && !IsNotFound(error)) {
    Fail(path, FailureReason::kSystem, error);
    return Outcome::kNotDone;
  }
  ++done_;
  return Outcome::kDone;
}

size_t TransferRun::TakeAway(const std::vector<UndoRecord::Made>& made, bool reportFailures) {
  size_t gone = 0;
  for (auto at = made.rbegin(); at != made.rend(); ++at) {
    FileStatus now;
    if (files_.Status(at->path, &now) != kNoError) continue;
    const bool folder = at->status.kind == FileKind::kFolder;
    const bool same = folder ? now.kind == FileKind::kFolder && now.identity == at->status.identity
                             : SameContent(now, at->status);
    const SystemError error = same ? RemoveObject(now.kind, at->path) : kNoError;
    if (same && error == kNoError) {
      ++gone;
    } else if (reportFailures) {
      const bool changed = !same || error == kFolderNotEmpty;
      Fail(at->path, changed ? FailureReason::kChangedSince : FailureReason::kSystem, error);
    }
    if (reportFailures) StepDone();
  }
  return gone;
}

}  // namespace base
