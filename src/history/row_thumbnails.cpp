#include "src/history/row_thumbnails.h"

#include <algorithm>
#include <utility>

namespace file_explorer {

RowThumbnails::RowThumbnails(Source source, CaseFolder foldCase)
    : source_(std::move(source)), foldCase_(foldCase) {}

RowThumbnails::Answer RowThumbnails::Of(const HistoryEntry& entry) {
  if (entry.fullPath.empty() && entry.itemName.empty()) return {};
  const std::string key = foldCase_(entry.fullPath.empty() ? entry.displayName : entry.fullPath);
  const std::uint64_t start = source_.now();
  auto found = kept_.find(key);
  if (found != kept_.end() && start - found->second.lookedAt >= kLookEveryMs) {
    found->second.lookedAt = start;
    if (source_.stamp(entry.fullPath) != found->second.stamp) {
      kept_.erase(found);
      found = kept_.end();
    }
  }
  if (found == kept_.end()) {
    if (spent_ >= kPaintingMs) return {nullptr, true};
    Kept made;
    made.stamp = source_.stamp(entry.fullPath);  // before the file is read: a change meanwhile is seen later
    made.preview = source_.make(entry);
    made.lookedAt = source_.now();
    spent_ += made.lookedAt - start;
    if (kept_.size() >= kMostKept) DropOldest();
    found = kept_.emplace(key, std::move(made)).first;
  }
  found->second.used = ++uses_;
  return {found->second.preview ? &*found->second.preview : nullptr, false};
}

void RowThumbnails::DropOldest() {
  kept_.erase(std::min_element(kept_.begin(), kept_.end(),
                               [](const auto& a, const auto& b) { return a.second.used < b.second.used; }));
}

}  // namespace file_explorer
