// The history's file: the steps of a save, and loading and saving so that a cut at any of them loses nothing.
#pragma once

#include <string>

#include "base/files/save_recovery.h"
#include "src/history/history_values.h"

namespace file_explorer {

class HistoryList;

// The profile file that the history is kept in: one section of keys and values.
class HistoryFile : public HistorySource {
 public:
  virtual bool WriteText(const char* key, const std::string& text) = 0;
  virtual bool WriteTime(const char* key, const HistoryTime& time) = 0;
  // The next reading gives what is on the disk, whatever the system keeps in memory.
  virtual void Forget() = 0;

  virtual bool Exists() = 0;
  virtual void RemoveBackup() = 0;
  // Makes the file the backup; false when it stays what it is.
  virtual bool MoveToBackup() = 0;
  virtual void Remove() = 0;
  // Makes the backup the file again; false when it is not.
  virtual bool RestoreBackup() = 0;
};

// What the file holds after a save.
enum class HistorySaved {
  kNew,
  kOld,      // a write failed and the backup was put back
  kNeither,  // a write failed and there was no backup, or it could not be put back
};
// All steps of a save: the backup, the values, and on a failed write the way back.
HistorySaved WriteHistory(HistoryFile& file, const HistoryValues& values);

// Loads the file into the list; a save that was cut short is brought to its end first. False when the file
// names no entries.
bool LoadHistory(HistoryList& list, HistoryFile& file, base::SaveRecovery& recovery);
// Saves the list; see WriteHistory. Does nothing while the record of an earlier save that could not be
// brought to its end can't be replaced.
void SaveHistory(const HistoryList& list, HistoryFile& file, base::SaveRecovery& recovery);

}  // namespace file_explorer
