#include "src/history/row_thumbnails.h"

#include <algorithm>
#include <utility>

namespace file_explorer {

RowThumbnails::RowThumbnails(Source source, CaseFolder foldCase)
    : source_(std::move(source)), foldCase_(foldCase) {}

std::string RowThumbnails::KeyOf(const HistoryEntry& entry) const {
  return foldCase_(entry.fullPath.empty() ? entry.displayName : entry.fullPath);
}

RowThumbnails::Answer RowThumbnails::Of(const HistoryEntry& entry) {
  if (entry.fullPath.empty() && entry.itemName.empty()) return {};
  const auto found = kept_.find(KeyOf(entry));
  const bool isKept = found != kept_.end();
  const bool isLater = !isKept || source_.now() - found->second.lookedAt >= kLookEveryMs;
  if (isLater) wanted_.push_back(entry);
  if (!isKept) return {nullptr, isLater};
  found->second.used = ++uses_;
  return {found->second.preview ? &*found->second.preview : nullptr, isLater};
}

// Whether there is one of the file as it is.
bool RowThumbnails::IsFresh(const std::string& key, const HistoryEntry& entry) {
  const auto found = kept_.find(key);
  if (found == kept_.end()) return false;
  const std::uint64_t now = source_.now();
  if (now - found->second.lookedAt < kLookEveryMs) return true;
  found->second.lookedAt = now;
  return source_.stamp(entry.fullPath) == found->second.stamp;
}

bool RowThumbnails::MakeWanted() {
  for (const HistoryEntry& entry : std::exchange(wanted_, {})) {
    const std::string key = KeyOf(entry);
    if (IsFresh(key, entry)) continue;
    Kept made;
    made.stamp = source_.stamp(entry.fullPath);  // before the file is read: a change meanwhile is seen later
    // Runs code of the shell's extensions, which may handle messages: afterwards this object may be gone.
    const auto make = source_.make;
    const std::weak_ptr<const bool> alive = alive_;
    made.preview = make(entry);
    if (alive.expired()) return false;
    made.lookedAt = source_.now();
    made.used = ++uses_;
    if (!kept_.contains(key) && kept_.size() >= kMostKept) DropOldest();
    kept_.insert_or_assign(key, std::move(made));
    return true;
  }
  return false;
}

void RowThumbnails::DropOldest() {
  kept_.erase(std::min_element(kept_.begin(), kept_.end(),
                               [](const auto& a, const auto& b) { return a.second.used < b.second.used; }));
}

}  // namespace file_explorer
