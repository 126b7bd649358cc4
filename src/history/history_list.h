// The history list and its file, apart from the platform: what is kept, in which order, under which keys.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "src/history/history_entry.h"
#include "src/history/history_order.h"

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
  // The part of a path behind its folder.
  virtual std::string BaseName(const std::string& path) = 0;
  // The current time, UTC.
  virtual HistoryTime Now() = 0;
};

// The profile file that the history is kept in: one section of keys and values.
class HistoryFile {
 public:
  virtual ~HistoryFile() = default;
  // Empty when the key is missing.
  virtual std::string ReadText(const char* key) = 0;
  // False, with *time unchanged, when the key is missing or its value is no well-formed time.
  virtual bool ReadTime(const char* key, HistoryTime* time) = 0;
  virtual bool WriteText(const char* key, const std::string& text) = 0;
  virtual bool WriteTime(const char* key, const HistoryTime& time) = 0;

  virtual bool Exists() = 0;
  virtual void RemoveBackup() = 0;
  // Makes the file the backup; false when it stays what it is.
  virtual bool MoveToBackup() = 0;
  virtual void Remove() = 0;
  // Makes the backup the file again.
  virtual void RestoreBackup() = 0;
};

// Most entries that are written; any number is read.
inline constexpr int kMaximumSavedEntries = 50;

// The keys of the file's section.
inline constexpr char kHistorySection[] = "HistoryList";
inline constexpr char kEntryCountKey[] = "NumEntries";
// 'd' display name, 'm' last access, 'f' full path, 'p' parsing name of the item.
std::string HistoryKey(char letter, int index);

class HistoryList {
 public:
  explicit HistoryList(HistoryPlatform& platform, CaseFolder fold = FoldAsciiCase);

  const HistoryEntries& entries() const { return entries_; }
  size_t size() const { return entries_.size(); }
  void Clear() { entries_.clear(); }
  void Sort(int method) { SortHistory(entries_, method, fold_); }

  // Replaces the list with the file's content, not sorted. False when the file names no entries. Asks the shell for
  // nothing: the entries may lie on disks that sleep and on machines that are gone.
  bool Load(HistoryFile& file);
  // Writes the first entries. On a failed write the previous file is put back.
  void Save(HistoryFile& file) const;

  enum class AddResult { kRefused, kAppended, kReplaced };
  // Appends the path with the current time. The first entry of the same path goes (kReplaced). Refuses an
  // empty path.
  AddResult Add(const std::string& path);

 private:
  // Null when the file has no such entry.
  std::unique_ptr<HistoryEntry> ReadEntry(HistoryFile& file, int index) const;
  std::string ItemNameToKeep(const std::string& name) const;
  bool WriteAll(HistoryFile& file) const;
  bool WriteEntry(HistoryFile& file, int index, const HistoryEntry& entry) const;

  HistoryPlatform& platform_;
  CaseFolder fold_;
  HistoryEntries entries_;
};

}  // namespace file_explorer
