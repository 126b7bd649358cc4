#include "workbench/controls/operations/file_operations.h"

#include <objbase.h>

#include <exception>
#include <iterator>
#include <utility>

#include "base/files/undo.h"
#include "workbench/controls/operations/conflict_dialog.h"
#include "workbench/controls/operations/delete_plan.h"
#include "workbench/controls/operations/recycle_bin.h"
#include "workbench/controls/shell/display_format.h"

namespace controls {

// What an operation leaves; the window's thread looks at it when the work is done.
struct FileOperations::State {
  base::TransferReport report;
  UndoEntry undo;      // what takes it back
  UndoEntry takenOut;  // the entry that an undo works on
};

namespace {

TextFormat SystemFormat() {
  return {[](int64_t time) { return LocalDateTime(static_cast<uint64_t>(time)); },
          [](base::SystemError error) { return SystemErrorText(error, {}); }};
}

// The shell's functions need it on every thread.
class ComOnThread {
 public:
  ComOnThread() : initialised_(SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {}
  ~ComOnThread() {
    if (initialised_) CoUninitialize();
  }
  ComOnThread(const ComOnThread&) = delete;
  ComOnThread& operator=(const ComOnThread&) = delete;

 private:
  bool initialised_;
};

// The user, seen from the operation's thread.
class Observer : public base::TransferObserver {
 public:
  Observer(OperationLink& link, HWND view, OperationKind kind) : link_(link), view_(view), kind_(kind) {}

  base::ConflictReply OnConflict(const base::Conflict& conflict) override {
    const auto reply = std::make_shared<base::ConflictReply>();
    const bool asked = link_.Ask([reply, conflict, view = view_, kind = kind_] {
      *reply = AskConflict(GetAncestor(view, GA_ROOT), CaptionOf(kind),
                           TextOfConflict(conflict, SystemFormat()), conflict.mayReplace);
    });
    return asked ? *reply : base::ConflictReply{base::ConflictAnswer::kCancel, true};
  }
  bool OnProgress(const base::TransferProgress& progress) override {
    link_.Tell(progress);
    return !link_.cancelled();
  }

 private:
  OperationLink& link_;
  HWND view_;
  OperationKind kind_;
};

bool ConfirmDelete(OperationLink& link, HWND view, const DeletePlan& plan) {
  const auto yes = std::make_shared<bool>(false);
  const bool asked = link.Ask([yes, view, text = TextOfDelete(plan), warns = DeletesForGood(plan)] {
    const UINT look = warns ? MB_ICONEXCLAMATION | MB_DEFBUTTON2 : MB_ICONQUESTION;
    *yes = MessageBoxW(GetAncestor(view, GA_ROOT), text.c_str(), CaptionOf(OperationKind::kDelete),
                       MB_YESNO | look) == IDYES;
  });
  return asked && *yes;
}

void Append(base::TransferReport& report, base::TransferReport&& more) {
  report.done += more.done;
  report.skipped += more.skipped;
  report.cancelled |= more.cancelled;
  std::move(more.failures.begin(), more.failures.end(), std::back_inserter(report.failures));
}

// The items for the bin, one by one.
void DeleteToBin(OperationLink& link, HWND view, const std::vector<std::wstring>& paths,
                 base::TransferReport& report, std::vector<BinnedItem>& binned) {
  base::TransferProgress progress;
  progress.itemsTotal = paths.size();
  BinOutcome outcome = MoveToBin(GetAncestor(view, GA_ROOT), paths, [&](const std::wstring& path) {
    progress.source = path;
    link.Tell(progress);
    ++progress.itemsDone;
    return !link.cancelled();
  });
  base::TransferReport part;
  part.done = outcome.done;
  part.cancelled = outcome.cancelled;
  part.failures = std::move(outcome.failures);
  Append(report, std::move(part));
  binned = std::move(outcome.binned);
}

void RestoreBinned(OperationLink& link, const std::vector<BinnedItem>& items, base::TransferReport& report) {
  base::TransferProgress progress;
  progress.itemsTotal = items.size();
  for (const BinnedItem& item : items) {
    progress.source = item.path;
    link.Tell(progress);
    if (link.cancelled()) {
      report.cancelled = true;
      return;
    }
    const base::SystemError error = RestoreFromBin(item);
    ++progress.itemsDone;
    if (error == base::kNoError) {
      ++report.done;
      report.arrived.push_back(item.path);
    } else if (error == base::kAlreadyExists) {
      report.failures.push_back({item.path, base::FailureReason::kPlaceTaken, error});
    } else {
      report.failures.push_back({item.path, base::FailureReason::kSystem, error});
    }
  }
}

}  // namespace

FileOperations::FileOperations(base::FileSystem* files)
    : files_(files ? *files : base::MachineFileSystem()) {}

void FileOperations::Copy(HWND view, std::vector<std::wstring> paths, std::wstring folder, bool move,
                          Done done) {
  const OperationKind kind = move ? OperationKind::kMove : OperationKind::kCopy;
  base::TransferRequest request;
  request.kind = move ? base::TransferKind::kMove : base::TransferKind::kCopy;
  request.sources = std::move(paths);
  request.folder = std::move(folder);
  const auto work = [request, view, kind, &files = files_](OperationLink& link, State& state) {
    Observer observer(link, view, kind);
    state.report = base::RunTransfer(request, files, observer);
    state.undo.name = CaptionOf(kind);
    state.undo.record = std::move(state.report.undo);
  };
  Begin({kind, view, work, std::move(done)});
}

void FileOperations::Delete(HWND view, std::vector<std::wstring> paths, bool permanently, Done done) {
  const auto work = [paths = std::move(paths), permanently, view, &files = files_](OperationLink& link,
                                                                                   State& state) {
    const ComOnThread com;
    const DeletePlan plan =
        PlanDelete({paths, permanently, &HasBin, [&] { return !link.cancelled(); }}, files);
    if (plan.stopped || !ConfirmDelete(link, view, plan)) {
      state.report.cancelled = true;
      return;
    }
    std::vector<std::wstring> toBin;
    base::TransferRequest forGood;
    forGood.kind = base::TransferKind::kDelete;
    for (const DeleteItem& item : plan.items) {
      (item.refusal == BinRefusal::kNone ? toBin : forGood.sources).push_back(item.path);
    }
    state.undo.name = CaptionOf(OperationKind::kDelete);
    if (!toBin.empty()) DeleteToBin(link, view, toBin, state.report, state.undo.binned);
    if (forGood.sources.empty() || state.report.cancelled) return;
    Observer observer(link, view, OperationKind::kDelete);
    Append(state.report, base::RunTransfer(forGood, files, observer));
  };
  Begin({OperationKind::kDelete, view, work, std::move(done)});
}

void FileOperations::Undo(HWND view, Done done) {
  // The entry is taken when the turn comes: what waits before may still add one.
  const auto work = [view, store = store_, &files = files_](OperationLink& link, State& state) {
    const ComOnThread com;
    std::optional<UndoEntry> entry = store->Pop();
    if (!entry) return;
    state.takenOut = std::move(*entry);
    Observer observer(link, view, OperationKind::kUndo);
    if (!state.takenOut.record.empty()) state.report = base::RunUndo(state.takenOut.record, files, observer);
    RestoreBinned(link, state.takenOut.binned, state.report);
    // What could not be taken back at all can be tried again.
    if (state.report.done == 0) state.undo = state.takenOut;
  };
  Begin({OperationKind::kUndo, view, work, std::move(done)});
}

void FileOperations::NoteRename(const std::wstring& from, const std::wstring& to) {
  UndoEntry entry;
  entry.name = L"Rename";
  entry.record = base::RecordRename(from, to, files_);
  store_->Push(entry);
}

void FileOperations::Begin(Order order) {
  if (!*alive_) return;
  waiting_.push_back(std::move(order));
  if (!running_) StartNext();
}

void FileOperations::StartNext() {
  while (*alive_ && !running_ && !waiting_.empty()) {
    const Order order = std::move(waiting_.front());
    waiting_.pop_front();
    const auto state = std::make_shared<State>();
    const auto work = [state, run = order.work](OperationLink& link) {
      try {
        run(link, *state);
      } catch (const std::exception&) {
        state->report.failures.push_back({L"", base::FailureReason::kSystem, ERROR_NOT_ENOUGH_MEMORY});
      }
    };
    running_ = RunningOperation::Start(order.kind, order.view, work,
                                       [this, order, state] { OnFinished(order, state); });
    if (running_) continue;
    state->report.failures.push_back({L"", base::FailureReason::kSystem, ERROR_NOT_ENOUGH_MEMORY});
    OnFinished(order, state);
  }
}

void FileOperations::OnFinished(const Order& finished, const std::shared_ptr<State>& finishedState) {
  // Whoever hears of the end may let go of this object.
  const Order order = finished;
  const std::shared_ptr<State> state = finishedState;
  const std::shared_ptr<bool> alive = alive_;
  running_.reset();
  store_->Push(state->undo);
  Outcome outcome;
  outcome.report = std::move(state->report);
  const base::TransferReport& report = outcome.report;
  outcome.whole = !report.cancelled && report.failures.empty() && report.skipped == 0;
  const HWND root = GetAncestor(order.view, GA_ROOT);
  if (order.done) order.done(outcome);
  const std::wstring text = TextOfReport(order.kind, report, SystemFormat());
  if (!text.empty()) MessageBoxW(root, text.c_str(), CaptionOf(order.kind), MB_OK | MB_ICONEXCLAMATION);
  if (*alive) StartNext();
}

void FileOperations::Close() {
  *alive_ = false;
  waiting_.clear();
  if (const std::shared_ptr<RunningOperation> running = std::exchange(running_, nullptr)) running->Close();
}

}  // namespace controls
