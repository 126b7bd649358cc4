// The history list, apart from the platform: what is kept, in which order.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "src/history/history_entry.h"
#include "src/history/history_order.h"
#include "src/history/history_values.h"

namespace file_explorer {

// What the list needs from the shell and the clock.
class HistoryPlatform {
 public:
  virtual ~HistoryPlatform() = default;
  // The path or parsing name as an item identifier list; empty when the shell does not know it.
  virtual ItemId ParseItem(const std::string& name) = 0;
  // The parsing name of an item; empty when there is none.
  virtual std::string ParsingName(const ItemId& item) = 0;
  // Whether asking the shell about a name may take long: it is on another machine, or on a disc to be loaded first.
  virtual bool MayHang(const std::string& name) = 0;
  // The part of a path after its folder; empty when the path ends with a separator.
  virtual std::string BaseName(const std::string& path) = 0;
  // The current time, UTC.
  virtual HistoryTime Now() = 0;
};

// Most entries that are written; any number is read.
inline constexpr int kMaximumSavedEntries = 50;

class HistoryList {
 public:
  explicit HistoryList(HistoryPlatform& platform, CaseFolder fold = FoldAsciiCase);

  const HistoryEntries& entries() const { return entries_; }
  size_t size() const { return entries_.size(); }
  void Clear() { entries_.clear(); }
  void Sort(int method) { SortHistory(entries_, method, fold_); }

  // Replaces the list with the file's content, not sorted. False when the file names no entries. Asks the shell for
  // nothing: the entries may lie on disks that sleep and on machines that are gone.
  bool Load(HistorySource& file);
  // What a save writes: the count and the first entries.
  HistoryValues Values() const;

  enum class AddResult { kRefused, kAppended, kReplaced };
  // Appends the path with the current time. The first entry of the same path goes (kReplaced). Refuses an
  // empty path.
  AddResult Add(const std::string& path);

 private:
  // Null when the file has no such entry.
  std::unique_ptr<HistoryEntry> ReadEntry(HistorySource& file, int index) const;
  std::string ItemNameToKeep(const std::string& name) const;

  HistoryPlatform& platform_;
  CaseFolder fold_;
  HistoryEntries entries_;
};

}  // namespace file_explorer
