#include "src/history/history_list.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace file_explorer {
namespace {

int ParseCount(const std::string& text) {
  const long value = std::strtol(text.c_str(), nullptr, 10);
  return static_cast<int>(std::clamp<long>(value, 0, std::numeric_limits<int>::max()));
}

}  // namespace

HistoryList::HistoryList(HistoryPlatform& platform, CaseFolder fold) : platform_(platform), fold_(fold) {}

bool HistoryList::Load(HistorySource& file) {
  entries_.clear();
  const int count = ParseCount(file.ReadText(kEntryCountKey));
  if (count == 0) return false;
  for (int index = 0; index < count; ++index) {
    auto entry = ReadEntry(file, index);
    if (!entry) break;  // a gap ends the list, whatever stands behind it
    entries_.push_back(std::move(entry));
  }
  return true;
}

std::unique_ptr<HistoryEntry> HistoryList::ReadEntry(HistorySource& file, int index) const {
  std::string name = file.ReadText(HistoryKey('d', index).c_str());
  if (name.empty()) return nullptr;
  auto entry = std::make_unique<HistoryEntry>();
  entry->displayName = std::move(name);
  if (!file.ReadTime(HistoryKey('m', index).c_str(), &entry->lastAccess)) entry->lastAccess = platform_.Now();
  entry->fullPath = file.ReadText(HistoryKey('f', index).c_str());
  entry->itemName = file.ReadText(HistoryKey('p', index).c_str());
  return entry;
}

HistoryValues HistoryList::Values() const {
  const int count = static_cast<int>(std::min<size_t>(entries_.size(), kMaximumSavedEntries));
  HistoryValues values;
  AddTextValue(&values, kEntryCountKey, std::to_string(count), Lossy::kNo);
  for (int index = 0; index < count; ++index) {
    const HistoryEntry& entry = *entries_[static_cast<size_t>(index)];
    AddTimeValue(&values, HistoryKey('m', index), entry.lastAccess);
    AddTextValue(&values, HistoryKey('d', index), entry.displayName, Lossy::kYes);
    AddTextValue(&values, HistoryKey('f', index), entry.fullPath, Lossy::kNo);
    AddTextValue(&values, HistoryKey('p', index), ItemNameToKeep(entry.itemName), Lossy::kNo);
  }
  return values;
}

// What the shell does not know any more is not kept. It is not asked about what may keep the caller waiting: that stays
// as it was given.
std::string HistoryList::ItemNameToKeep(const std::string& name) const {
  if (name.empty() || platform_.MayHang(name)) return name;
  const ItemId item = platform_.ParseItem(name);
  return item.empty() ? std::string() : platform_.ParsingName(item);
}

HistoryList::AddResult HistoryList::Add(const std::string& path) {
  if (path.empty()) return AddResult::kRefused;
  // Made first: making it asks the shell, which may come back to us, and until the view is filled again its rows point
  // at the entries that are listed.
  auto entry = std::make_unique<HistoryEntry>();
  entry->fullPath = path;
  entry->itemName = path;
  entry->displayName = platform_.BaseName(path);
  // A folder with a separator at its end, a drive, a share: an entry without a name would end the list when it
  // is read again.
  if (entry->displayName.empty()) entry->displayName = path;
  entry->lastAccess = platform_.Now();

  const std::string identity = fold_(path);
  const auto old = std::find_if(entries_.begin(), entries_.end(), [&](const auto& entry) {
    return !entry->fullPath.empty() && fold_(entry->fullPath) == identity;
  });
  const bool isListed = old != entries_.end();
  if (isListed) entries_.erase(old);
  entries_.push_back(std::move(entry));
  return isListed ? AddResult::kReplaced : AddResult::kAppended;
}

}  // namespace file_explorer
