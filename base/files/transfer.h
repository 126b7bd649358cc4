// Copying, moving and deleting files and folders so that nothing is lost. Pure: the file calls are a
// FileSystem, the user is a TransferObserver, and both may be called on any one thread, which RunTransfer
// never leaves.
//
// What holds whatever happens, a killed process included:
// - A link or mount point is one object. Nothing goes through it: it is moved, deleted and copied as the
// link.
// - A file of the destination is whole or absent. It is made beside its place under a temporary name
// (IsTemporaryName),
//   its size is checked, and only then it gets its name or replaces, at once, what the user said may be
//   replaced.
// - A source of a move to another file system is removed only when its copy is whole, on the disk, and the
// source has
//   not changed since.
// - What could not be done is in the report, by name and reason. Nothing else is touched.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

#include "base/files/file_system.h"
#include "base/files/undo_record.h"

namespace base {

enum class TransferKind { kCopy, kMove, kDelete };

struct TransferRequest {
  TransferKind kind = TransferKind::kCopy;
  // Absolute paths. Names that may contain a backslash: join them with PathInFolder (base/files/paths.h).
  std::vector<std::wstring> sources;
  // Where they go: a folder, or a link or mount point that leads to one. Not used to delete.
  std::wstring folder;
};

enum class ConflictAnswer {
  kReplace,   // files: the one that stands there is replaced; folders: the contents of both are put together
  kSkip,      // the source stays where it is and nothing comes of it
  kKeepBoth,  // what comes gets another name: NameOfCopy
  kCancel,    // ends the operation; what has been done stays done
};

// Something of that name stands at the destination already.
struct Conflict {
  std::wstring source;
  std::wstring target;  // with the name as the destination writes it
  FileStatus sourceStatus;
  FileStatus targetStatus;
  bool folders = false;  // both are folders: Replace puts their contents together
  bool mayReplace =
      true;  // false for a file and a folder of one name: Replace is not on offer (it counts as Skip)
  bool moves = false;
};

struct ConflictReply {
  ConflictAnswer answer = ConflictAnswer::kSkip;
  // The same answer for all further conflicts of this operation of the same kind: files, folders, or not
  // replaceable.
  bool forAll = false;
};

struct TransferProgress {
  std::wstring source;  // the object at hand
  std::wstring target;  // empty while deleting
  // Files, links and folders. A folder that moves within its file system counts as one.
  size_t itemsDone = 0;
  size_t itemsTotal = 0;
  uint64_t bytesDone = 0;
  uint64_t bytesTotal = 0;
};

// Answers come on the thread of RunTransfer. An exception that leaves an observer ends the operation as if
// the process had been killed there: nothing is lost, but a temporary file may stay until the next operation
// in that folder.
class TransferObserver {
 public:
  virtual ~TransferObserver() = default;
  virtual ConflictReply OnConflict(const Conflict& conflict) = 0;
  // Called before each object and after each portion of a large file (about 1 MB). False cancels: the file at
  // hand leaves nothing behind, and neither does the source at hand (one of TransferRequest::sources): what
  // has been made of it is taken away again, except where it replaced something. What a move within the file
  // system has put elsewhere stays there, and so do the sources before it.
  virtual bool OnProgress(const TransferProgress& progress) = 0;
};

enum class FailureReason {
  kSystem,          // TransferFailure::error says why
  kIntoItself,      // a folder into itself or a folder inside of it
  kMountPoint,      // a mount point can be neither copied nor moved to another file system
  kSpecialFile,     // a pipe, socket or device cannot be copied
  kLinkNotMade,     // the link could not be made at the destination (`error`); the contents are not copied
                    // instead
  kAttributesLost,  // the folder came, but not its times or attributes (`error`)
  kSizeDiffers,     // the copy came out with another size: it was taken away again
  kSourceChanged,   // it changed while it was copied, moved or deleted, and was left as it is
  kFolderInTheWay,  // Replace for a file where a folder stands
  kFileInTheWay,    // Replace for a folder where a file stands
  kKept,            // moved to another file system: kept because something inside could not be moved
  kNoFolder,        // the destination is no folder (any more)
  kChangedSince,    // undo: it is not what the operation made any more, so it was left alone
  kPlaceTaken,      // undo: something else stands at its old place
  kWasReplaced,     // undo: the file that was replaced cannot be brought back
};

struct TransferFailure {
  std::wstring path;  // of the source; of the object itself for undo
  FailureReason reason = FailureReason::kSystem;
  SystemError error = kNoError;
};

// A source that came to stand under another name, because two of one name came or the user keeps both.
struct RenamedArrival {
  std::wstring source;
  std::wstring target;
};

struct TransferReport {
  size_t done = 0;     // objects: files, links and folders; a folder that moved within its file system is one
  size_t skipped = 0;  // by the answer Skip
  bool cancelled = false;
  std::vector<TransferFailure> failures;
  std::vector<RenamedArrival> renamed;
  // The paths of what stands at the destination for each source that arrived, wholly or in part: to be
  // selected.
  std::vector<std::wstring> arrived;
  // Takes back what was done: RunUndo (base/files/undo.h). Empty after deleting.
  UndoRecord undo;
};

TransferReport RunTransfer(const TransferRequest& request, FileSystem& files, TransferObserver& observer);

// The reason as a sentence without a name, ending with a full stop: "It is in use by another program."
// systemText words the codes of the system.
std::wstring TextOfFailure(const TransferFailure& failure,
                           const std::function<std::wstring(SystemError error)>& systemText);

}  // namespace base
