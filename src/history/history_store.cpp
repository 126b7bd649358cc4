#include "src/history/history_store.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

#include "src/history/history_list.h"

namespace file_explorer {
namespace {

using base::SaveProgress;
using base::SaveRecovery;

bool WriteValue(HistoryFile& file, const HistoryValue& value) {
  return value.time ? file.WriteTime(value.key.c_str(), *value.time)
                    : file.WriteText(value.key.c_str(), value.text);
}

// Whether less came back than was written. A letter that the file's code page lacks may come back as another
// one: that is no cut.
bool IsCut(HistoryFile& file, const HistoryValue& value) {
  if (value.time) {
    HistoryTime time;
    return !file.ReadTime(value.key.c_str(), &time) || time != *value.time;
  }
  const std::string wanted = ReadFormOf(value.text);
  const std::string read = file.ReadText(value.key.c_str());
  return read.size() < wanted.size() && wanted.starts_with(read);
}

// The profile calls of some systems answer success on a full disk. Each writes the whole file, so that its
// first value and those of its last entry tell.
bool ReadsBack(HistoryFile& file, const HistoryValues& values) {
  file.Forget();
  constexpr std::size_t kValuesOfAnEntry = 4;
  const std::size_t last = values.size() - std::min(values.size(), kValuesOfAnEntry);
  return !IsCut(file, values.front()) &&
         std::none_of(values.begin() + static_cast<std::ptrdiff_t>(last), values.end(),
                      [&](const HistoryValue& value) { return IsCut(file, value); });
}

bool WriteValues(HistoryFile& file, const HistoryValues& values) {
  return std::all_of(values.begin(), values.end(),
                     [&](const HistoryValue& value) { return WriteValue(file, value); }) &&
         (values.empty() || ReadsBack(file, values));
}

HistorySaved WriteWithBackup(HistoryFile& file, const HistoryValues& values, bool hasBackup) {
  if (WriteValues(file, values)) return HistorySaved::kNew;  // the backup stays beside the new file
  file.Remove();
  return hasBackup && file.RestoreBackup() ? HistorySaved::kOld : HistorySaved::kNeither;
}

// A save that had made its backup goes on with writing, on an empty file.
bool CompleteHistory(HistoryFile& file, const std::string& text, SaveProgress progress) {
  const HistoryValues values = ValuesOfHistory(text);
  if (progress == SaveProgress::kNotBegun) return WriteHistory(file, values) == HistorySaved::kNew;
  file.Remove();
  return WriteWithBackup(file, values, true) == HistorySaved::kNew;
}

std::optional<std::string> CompleteCutSave(HistoryFile& file, SaveRecovery& recovery) {
  return recovery.CompleteCutSave([&file](const std::string& text, SaveProgress progress) {
    return CompleteHistory(file, text, progress);
  });
}

}  // namespace

HistorySaved WriteHistory(HistoryFile& file, const HistoryValues& values) {
  bool hasBackup = false;
  if (file.Exists()) {
    file.RemoveBackup();
    hasBackup = file.MoveToBackup();
  }
  return WriteWithBackup(file, values, hasBackup);
}

bool LoadHistory(HistoryList& list, HistoryFile& file, SaveRecovery& recovery) {
  const std::optional<std::string> text = CompleteCutSave(file, recovery);
  if (!text) return list.Load(file);
  HistoryText source(*text);
  return list.Load(source);
}

void SaveHistory(const HistoryList& list, HistoryFile& file, SaveRecovery& recovery) {
  CompleteCutSave(file, recovery);
  const HistoryValues values = list.Values();
  if (recovery.KeepNew(TextOfHistory(values)) == SaveRecovery::Kept::kInTheWay) return;
  // With neither, the record stays: the next load makes the file of it.
  if (WriteHistory(file, values) != HistorySaved::kNeither) recovery.Finish();
}

}  // namespace file_explorer
