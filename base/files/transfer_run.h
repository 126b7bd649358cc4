// One run of the transfer engine: internal to RunTransfer and RunUndo.
#pragma once

#include <array>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "base/files/destination_folder.h"
#include "base/files/transfer.h"
#include "base/files/transfer_plan.h"

namespace base {

class TransferRun {
 public:
  TransferRun(FileSystem& files, TransferObserver& observer) : files_(files), observer_(observer) {}

  TransferReport Run(const TransferRequest& request);

  // The steps that undoing needs too. They report into report().

  // Moves an object to exactly this path, where nothing stands (kAlreadyExists otherwise, without a failure
  // noted).
  SystemError MoveTo(const std::wstring& source, const FileStatus& status, const std::wstring& target);
  // Deletes what a copy made as long as it is what was made. Gives how many objects went.
  size_t TakeAway(const std::vector<UndoRecord::Made>& made, bool reportFailures);
  void Fail(const std::wstring& path, FailureReason reason, SystemError error = kNoError);
  bool Tell(const std::wstring& source, const std::wstring& target);
  void SetTotals(size_t items, uint64_t bytes);
  void StepDone() { ++progress_.itemsDone; }
  TransferReport& report() { return report_; }

 private:
  enum class Outcome { kDone, kNotDone, kCancelled, kAgain };
  // How an object comes to stand in its folder.
  struct Arrival {
    std::wstring name;
    bool replaces = false;
    bool merges = false;
    FileIdentity standing;  // of what is replaced
  };
  // An object that was copied to another file system and whose source is still there.
  struct PendingRemoval {
    std::wstring source;
    std::wstring target;
    FileStatus sourceStatus;
    FileStatus targetStatus;
    bool complete = true;  // folders: everything in it came along
  };

  void RunSource(PlannedSource& source, DestinationFolder& destination);
  void FinishSource(bool cancelled);
  void TakeAwayUnfinished();

  // Where it goes and how (transfer_place.cpp).
  Outcome Place(PlanNode& node, const std::wstring& source, DestinationFolder& folder, bool inDestination);
  Outcome Settle(const PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                 bool inDestination, Arrival* arrival);
  Outcome SettleConflict(const PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                         const DestinationFolder::Entry& standing, Arrival* arrival);
  // Whether another file or link that the operation names stands there: a folder that is merged may meet one
  // on its way, and it must not be replaced before it is moved or copied itself, whatever was answered for
  // the others.
  bool IsOtherSource(const PlanNode& node, const FileStatus& standing) const;
  ConflictReply Ask(const Conflict& conflict);
  Outcome Put(PlanNode& node, const std::wstring& source, DestinationFolder& folder, const Arrival& arrival);
  Outcome Merge(PlanNode& node, const std::wstring& source, const std::wstring& target,
                const FileIdentity& identity);

  // Copying (transfer_copy.cpp).
  Outcome Copy(PlanNode& node, const std::wstring& source, DestinationFolder& folder, const Arrival& arrival);
  Outcome CopyFolder(PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                     const Arrival& arrival);
  Outcome CopyChildren(PlanNode& node, const std::wstring& source, DestinationFolder& folder);
  Outcome CopyFile(const PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                   const Arrival& arrival);
  Outcome CopyLink(const PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                   const Arrival& arrival);
  SystemError CopyToTemporary(const std::wstring& source, const DestinationFolder& folder,
                              std::wstring* temporary);
  Outcome PutInPlace(const std::wstring& source, const std::wstring& temporary,
                     const FileStatus& sourceStatus, const FileStatus& made, DestinationFolder& folder,
                     const Arrival& arrival);
  void NoteCopy(const std::wstring& source, const FileStatus& sourceStatus, const std::wstring& target,
                const FileStatus& made, const Arrival& arrival);

  // Moving (transfer_move.cpp).
  Outcome Move(PlanNode& node, const std::wstring& source, DestinationFolder& folder, const Arrival& arrival);
  Outcome MoveAcross(PlanNode& node, const std::wstring& source, DestinationFolder& folder,
                     const Arrival& arrival);
  SystemError MoveOver(const PlanNode& node, const std::wstring& source, const DestinationFolder& folder,
                       const Arrival& arrival);
  SystemError MoveOntoItself(const PlanNode& node, const std::wstring& source,
                             const DestinationFolder& folder);
  void RemoveCopiedSources(size_t first, const std::wstring& destination);
  bool RemoveCopiedSource(const PendingRemoval& pending);
  void NoteMove(const std::wstring& from, const std::wstring& to, const FileIdentity& identity);

  // Deleting (transfer_delete.cpp).
  Outcome Delete(PlanNode& node, const std::wstring& path);
  Outcome DeleteFolder(PlanNode& node, const std::wstring& path);
  SystemError RemoveObject(FileKind kind, const std::wstring& path);

  FileSystem& files_;
  TransferObserver& observer_;
  TransferKind kind_ = TransferKind::kCopy;
  TransferReport report_;
  TransferProgress progress_;
  uint64_t bytesBefore_ = 0;  // of the objects before the one at hand
  uint32_t temporaryNumber_ = 0;
  std::array<std::optional<ConflictAnswer>, 3> answersForAll_;

  std::set<FileIdentity> sources_;  // everything that the operation names but folders

  // Of the source at hand.
  UndoRecord undo_;
  size_t done_ = 0;
  std::wstring arrived_;
  std::set<std::wstring> arrivedFolders_;  // made, and gone from their old places
  bool across_ = false;                    // copying as the first half of a move
  std::vector<PendingRemoval> pending_;
};

}  // namespace base
