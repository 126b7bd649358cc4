// Saving a file so that a cut (a killed process, a power failure, a full disk) leaves its old content or its
// new one, whole, whatever steps the save itself takes; and programs that save it at the same moment do so
// one after the other.
//
//   SaveRecovery recovery(path, calls);       // waits for its turn
//   recovery.CompleteCutSave(write);          // before a load and before a save
//   if (recovery.KeepNew(text) == …) {        // before the save's first step
//     …the save's steps…
//     recovery.Finish();                      // after the last one
//   }
//
// Beside FILE lie, while a save runs, FILE.lock (held open, gone with its holder), FILE.recovery.new (being
// written) and FILE.recovery (whole). FILE.replaced is a file that was in the way when a cut save was brought
// to its end. No Windows in here.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "base/files/recovery_record.h"

namespace base {

// What the recovery asks of the file system; paths are in the code page.
class RecoveryCalls {
 public:
  virtual ~RecoveryCalls() = default;

  enum class Reading { kRead, kMissing, kFailed };  // failed: locked, too long, …
  enum class Writing { kWritten, kNoRoom, kRefused };
  enum class Locking { kLocked, kHeldElsewhere, kImpossible };

  virtual Reading Read(const std::string& path, std::string* bytes) = 0;
  // Makes the file, or makes it anew, and brings its bytes to the disk itself. What it could write of them
  // stays when it fails.
  virtual Writing Write(const std::string& path, std::string_view bytes) = 0;
  // Brings what was written of the file to the disk itself, as far as the system can.
  virtual void Flush(const std::string& path) = 0;
  // Gives the file another name in one step; a file of that name goes. False when nothing has changed.
  virtual bool Replace(const std::string& from, const std::string& to) = 0;
  // False when the file is still there.
  virtual bool Remove(const std::string& path) = 0;
  // The lock goes with Unlock, or with the process, however it ends.
  virtual Locking Lock(const std::string& path) = 0;
  virtual void Unlock() = 0;
  // Lets a moment go by before the next try.
  virtual void Pause() = 0;
};

// How often a lock that is held elsewhere is asked for, with a pause in between, before the work is done
// without it: its holder hangs then.
inline constexpr int kMostLockTries = 1000;

class SaveRecovery {
 public:
  SaveRecovery(std::string path, RecoveryCalls& calls);
  ~SaveRecovery();
  SaveRecovery(const SaveRecovery&) = delete;
  SaveRecovery& operator=(const SaveRecovery&) = delete;

  // Brings the file to `text`; kNotBegun: every step of a save is still to be done, else its file is under
  // way or gone. False when it failed.
  using WriteFile = std::function<bool(const std::string& text, SaveProgress progress)>;
  // Brings a save that was cut short to its end. Gives the text that the file should have when that can't be
  // done now; the next try does it, and until then that text is to be read in place of the file.
  std::optional<std::string> CompleteCutSave(const WriteFile& write);

  // Puts the file's new text beside it, whole and on the disk.
  enum class Kept {
    kKept,
    kNoRoom,      // the disk is full: a save that empties its file must not begin
    kImpossible,  // no file can be made here
    kInTheWay,    // an older record can't be replaced, and would undo the save later: it must not begin
  };
  Kept KeepNew(std::string_view text);
  // The save came to its end: the file has the new text, or the old one is back.
  void Finish();

 private:
  std::optional<RecoveryRecord> ReadRecord();
  bool RemoveRecord();
  Kept WriteRecord(const std::string& bytes);

  const std::string path_;
  const std::string record_;
  RecoveryCalls& calls_;
  RecoveryCalls::Locking lock_ = RecoveryCalls::Locking::kImpossible;
};

// Replaces a file by one with these bytes in one step, so that it is whole at every moment.
RecoveryCalls::Writing ReplaceContent(RecoveryCalls& calls, const std::string& path, std::string_view bytes);

}  // namespace base
