#include "base/files/transfer.h"

#include <algorithm>
#include <iterator>

#include "base/files/paths.h"
#include "base/files/transfer_run.h"

namespace base {
namespace {

UndoKind UndoKindOf(TransferKind kind) {
  switch (kind) {
    case TransferKind::kCopy:
      return UndoKind::kCopy;
    case TransferKind::kMove:
      return UndoKind::kMove;
    case TransferKind::kDelete:
      break;
  }
  return UndoKind::kNothing;
}

template <typename Value>
void Append(std::vector<Value>& to, std::vector<Value>& from) {
  to.insert(to.end(), std::make_move_iterator(from.begin()), std::make_move_iterator(from.end()));
}

}  // namespace

void TransferRun::Fail(const std::wstring& path, FailureReason reason, SystemError error) {
  report_.failures.push_back({path, reason, error});
}

void TransferRun::SetTotals(size_t items, uint64_t bytes) {
  progress_.itemsTotal = items;
  progress_.bytesTotal = bytes;
}

bool TransferRun::Tell(const std::wstring& source, const std::wstring& target) {
  progress_.source = source;
  progress_.target = target;
  return observer_.OnProgress(progress_);
}

TransferReport TransferRun::Run(const TransferRequest& request) {
  kind_ = request.kind;
  files_.BeginOperation();
  report_.undo.kind = UndoKindOf(request.kind);
  TransferPlan plan = PlanTransfer(request, files_, [this, &request](const TransferPlan& soFar) {
    SetTotals(soFar.items, soFar.bytes);
    return Tell(request.sources.empty() ? std::wstring() : request.sources.front(), request.folder);
  });
  SetTotals(plan.items, plan.bytes);
  report_.cancelled = plan.cancelled;
  if (plan.refusal) report_.failures.push_back(*plan.refusal);
  if (plan.cancelled || plan.refusal) return std::move(report_);
  DestinationFolder destination(plan.folderPath, plan.folder);
  if (kind_ != TransferKind::kDelete) {
    const SystemError error = destination.Read(files_);
    if (error != kNoError) {
      Fail(plan.folderPath, FailureReason::kSystem, error);
      return std::move(report_);
    }
  }
  for (const PlannedSource& source : plan.sources) {
    if (!source.refusal && source.node.status.kind != FileKind::kFolder)
      sources_.insert(source.node.status.identity);
  }
  for (PlannedSource& source : plan.sources) {
    RunSource(source, destination);
    if (report_.cancelled) break;
  }
  return std::move(report_);
}

void TransferRun::RunSource(PlannedSource& source, DestinationFolder& destination) {
  if (source.refusal) {
    report_.failures.push_back(*source.refusal);
    return;
  }
  undo_ = {};
  done_ = 0;
  arrived_.clear();
  pending_.clear();
  arrivedFolders_.clear();
  across_ = false;
  const Outcome outcome = kind_ == TransferKind::kDelete
                              ? Delete(source.node, source.path)
                              : Place(source.node, source.path, destination, source.inDestination);
  FinishSource(outcome == Outcome::kCancelled);
}

// What has been moved stays moved: each of those is whole, and a folder may be all that is left of one. A
// copy that is not complete goes.
void TransferRun::TakeAwayUnfinished() {
  const auto firstToGo = std::stable_partition(
      undo_.made.begin(), undo_.made.end(),
      [this](const UndoRecord::Made& made) { return arrivedFolders_.contains(made.path); });
  const std::vector<UndoRecord::Made> unfinished(firstToGo, undo_.made.end());
  undo_.made.erase(firstToGo, undo_.made.end());
  const size_t gone = TakeAway(unfinished, false);
  done_ -= std::min(done_, gone);
}

void TransferRun::FinishSource(bool cancelled) {
  if (cancelled) {
    report_.cancelled = true;
    TakeAwayUnfinished();
  }
  if (!cancelled && !arrived_.empty()) report_.arrived.push_back(arrived_);
  report_.done += done_;
  Append(report_.undo.made, undo_.made);
  Append(report_.undo.moved, undo_.moved);
  Append(report_.undo.emptied, undo_.emptied);
  Append(report_.undo.replaced, undo_.replaced);
}

TransferReport RunTransfer(const TransferRequest& request, FileSystem& files, TransferObserver& observer) {
  return TransferRun(files, observer).Run(request);
}

}  // namespace base
