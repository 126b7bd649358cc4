#include "base/files/save_recovery.h"

#include <utility>

namespace base {
namespace {

constexpr char kLockExtension[] = ".lock";
constexpr char kRecordExtension[] = ".recovery";
constexpr char kReplacedExtension[] = ".replaced";
constexpr char kNewExtension[] = ".new";

}  // namespace

RecoveryCalls::Writing ReplaceContent(RecoveryCalls& calls, const std::string& path, std::string_view bytes) {
  using Writing = RecoveryCalls::Writing;
  const std::string beside = path + kNewExtension;
  Writing result = calls.Write(beside, bytes);
  if (result == Writing::kWritten && !calls.Replace(beside, path)) result = Writing::kRefused;
  if (result != Writing::kWritten) calls.Remove(beside);  // on a full disk its bytes are missed
  return result;
}

SaveRecovery::SaveRecovery(std::string path, RecoveryCalls& calls)
    : path_(std::move(path)), record_(path_ + kRecordExtension), calls_(calls) {
  const std::string lock = path_ + kLockExtension;
  for (int tries = 0; tries < kMostLockTries; ++tries) {
    if (tries > 0) calls_.Pause();
    lock_ = calls_.Lock(lock);
    if (lock_ != RecoveryCalls::Locking::kHeldElsewhere) return;
  }
}

SaveRecovery::~SaveRecovery() {
  if (lock_ == RecoveryCalls::Locking::kLocked) calls_.Unlock();
}

std::optional<std::string> SaveRecovery::CompleteCutSave(const WriteFile& write) {
  // The record of whoever holds the lock is no cut save.
  if (lock_ == RecoveryCalls::Locking::kHeldElsewhere) return std::nullopt;
  calls_.Remove(record_ + kNewExtension);  // cut while it was being written
  std::optional<RecoveryRecord> record = ReadRecord();
  if (!record) return std::nullopt;
  std::string bytes;
  const RecoveryCalls::Reading reading = calls_.Read(path_, &bytes);
  SaveProgress progress = SaveProgress::kUnknown;
  if (reading == RecoveryCalls::Reading::kMissing) progress = ProgressOfSave(*record, std::nullopt);
  if (reading == RecoveryCalls::Reading::kRead) progress = ProgressOfSave(*record, bytes);
  // What may be somebody's own work is kept, too. Renamed, it is the save's no longer.
  if (progress == SaveProgress::kUnknown && !calls_.Replace(path_, path_ + kReplacedExtension)) {
    return std::move(record->text);
  }
  if (progress != SaveProgress::kDone && !write(record->text, progress)) return std::move(record->text);
  Finish();
  return std::nullopt;
}

std::optional<RecoveryRecord> SaveRecovery::ReadRecord() {
  std::string bytes;
  if (calls_.Read(record_, &bytes) != RecoveryCalls::Reading::kRead) return std::nullopt;
  std::optional<RecoveryRecord> record = ParseRecoveryRecord(bytes);
  if (!record) RemoveRecord();
  return record;
}

// A record that stays although its save is done would bring the file back to that save later: if it can't go,
// it is made worthless.
bool SaveRecovery::RemoveRecord() {
  return calls_.Remove(record_) || calls_.Write(record_, "") == RecoveryCalls::Writing::kWritten;
}

SaveRecovery::Kept SaveRecovery::KeepNew(std::string_view text) {
  if (lock_ == RecoveryCalls::Locking::kHeldElsewhere || text.size() > kLargestRecoveryText) {
    return Kept::kImpossible;
  }
  RecoveryRecord record;
  record.text = text;
  std::string bytes;
  if (calls_.Read(path_, &bytes) != RecoveryCalls::Reading::kMissing) record.previous = Fingerprint(bytes);
  return WriteRecord(FormatRecoveryRecord(record));
}

SaveRecovery::Kept SaveRecovery::WriteRecord(const std::string& bytes) {
  const RecoveryCalls::Writing result = ReplaceContent(calls_, record_, bytes);
  if (result == RecoveryCalls::Writing::kWritten) return Kept::kKept;
  // An older record is still there when it could not be used to complete its save: it goes only together with
  // the save that takes its place.
  std::string older;
  const auto reading = calls_.Read(record_, &older);
  if (reading == RecoveryCalls::Reading::kFailed ||
      (reading == RecoveryCalls::Reading::kRead && ParseRecoveryRecord(older))) {
    return Kept::kInTheWay;
  }
  return result == RecoveryCalls::Writing::kNoRoom ? Kept::kNoRoom : Kept::kImpossible;
}

void SaveRecovery::Finish() {
  if (lock_ == RecoveryCalls::Locking::kHeldElsewhere) return;
  calls_.Flush(path_);  // a power failure must not take the file when the record is gone
  RemoveRecord();
}

}  // namespace base
