#include "src/favorites/favorite_list.h"

#include <algorithm>
#include <functional>
#include <iterator>
#include <utility>

namespace file_explorer {

std::string FoldAsciiLetters(std::string_view text) {
  std::string folded(text);
  for (char& letter : folded) {
    if (letter >= 'A' && letter <= 'Z') letter = static_cast<char>(letter - 'A' + 'a');
  }
  return folded;
}

bool StandsBefore(const FavoriteRecord& a, const FavoriteRecord& b) {
  const bool aIsFolder = a.Has(kFavoriteFolder);
  if (aIsFolder != b.Has(kFavoriteFolder)) return aIsFolder;
  return a.sortKey < b.sortKey;
}

bool LiesWithin(const FavoriteRecord& record, const FavoriteRecord& folder) {
  for (const FavoriteRecord* at = &record; at != nullptr; at = at->parent) {
    if (at == &folder) return true;
  }
  return false;
}

FavoriteRecord* DropFolder(FavoriteRecord* target) {
  return target == nullptr || target->Has(kFavoriteFolder) ? target : target->parent;
}

bool MayDrop(const FavoriteRecord& dragged, const FavoriteRecord* folder) {
  return folder != nullptr && folder->Has(kFavoriteFolder) && folder->Has(kFavoriteAcceptsDrop) &&
         !LiesWithin(*folder, dragged);
}

FavoriteRecord* FolderForNewEntry(FavoriteRecord* selected) {
  return DropFolder(selected);
}

FavoriteList::FavoriteList(FoldCase fold) : fold_(fold) {}

void FavoriteList::Clear() {
  topLevel_.clear();
  byKey_.clear();
  records_.clear();
}

FavoriteRecord* FavoriteList::Add(std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent) {
  FavoriteRecord* const added = record.get();
  if (parent != nullptr && parent->isDeleted) parent = nullptr;
  added->sortKey = fold_(added->displayName);
  records_.push_back(std::move(record));
  byKey_.try_emplace(fold_(added->key), added);
  Place(*added, parent);
  return added;
}

void FavoriteList::EndLoading() {
  isLoading_ = false;
  for (const auto& record : records_) {
    std::stable_sort(record->children.begin(), record->children.end(),
                     [](const FavoriteRecord* a, const FavoriteRecord* b) { return StandsBefore(*a, *b); });
  }
}

std::vector<FavoriteRecord*> FavoriteList::Remove(FavoriteRecord& record) {
  std::vector<FavoriteRecord*> orphans = std::exchange(record.children, {});
  for (FavoriteRecord* const orphan : orphans) Place(*orphan, nullptr);
  Unplace(record);
  records_.erase(std::find_if(records_.begin(), records_.end(),
                              [&](const auto& candidate) { return candidate.get() == &record; }));
  byKey_.clear();  // another record may have had the same key
  for (const auto& each : records_) byKey_.try_emplace(fold_(each->key), each.get());
  return orphans;
}

FavoriteRecord* FavoriteList::FindByKey(std::string_view key) const {
  const auto found = byKey_.find(fold_(key));
  return found == byKey_.end() ? nullptr : found->second;
}

bool FavoriteList::HasPath(std::string_view path) const {
  const std::string wanted = fold_(path);
  return std::any_of(records_.begin(), records_.end(), [&](const auto& record) {
    return !record->path.empty() && fold_(record->path) == wanted;
  });
}

void FavoriteList::SetDisplayName(FavoriteRecord& record, std::string_view name) {
  record.displayName = name;
  record.sortKey = fold_(name);
  if (record.parent != nullptr && record.parent->areChildrenSorted) {
    const auto& siblings = record.parent->children;
    const auto at = std::find(siblings.begin(), siblings.end(), &record);
    const bool isMisplaced = (at != siblings.begin() && StandsBefore(record, **std::prev(at))) ||
                             (std::next(at) != siblings.end() && StandsBefore(**std::next(at), record));
    record.parent->areChildrenSorted = !isMisplaced;
  }
}

void FavoriteList::MarkDeleted(FavoriteRecord& record) {
  Unplace(record);
  std::vector<FavoriteRecord*> pending{&record};
  while (!pending.empty()) {
    FavoriteRecord* const deleted = pending.back();
    pending.pop_back();
    deleted->isDeleted = true;
    deleted->treeItem = nullptr;
    pending.insert(pending.end(), deleted->children.begin(), deleted->children.end());
  }
}

void FavoriteList::Move(FavoriteRecord& record, FavoriteRecord& folder) {
  Unplace(record);
  Place(record, &folder);
  PlaceChildrenAnew(record);
}

void FavoriteList::PlaceChildrenAnew(FavoriteRecord& record) {
  std::vector<FavoriteRecord*> pending{&record};
  while (!pending.empty()) {
    FavoriteRecord* const folder = pending.back();
    pending.pop_back();
    const std::vector<FavoriteRecord*> children = std::exchange(folder->children, {});
    folder->areChildrenSorted = true;
    for (FavoriteRecord* const child : children) Place(*child, folder);
    pending.insert(pending.end(), children.begin(), children.end());
  }
}

const std::vector<FavoriteRecord*>& FavoriteList::SiblingsOf(const FavoriteRecord& record) const {
  return record.parent != nullptr ? record.parent->children : topLevel_;
}

FavoriteRecord* FavoriteList::PreviousSibling(const FavoriteRecord& record) const {
  const auto& siblings = SiblingsOf(record);
  if (siblings.size() < 2) return nullptr;
  if (siblings.back() == &record) return siblings[siblings.size() - 2];  // as it is while a file is read
  const auto at = std::find(siblings.begin(), siblings.end(), &record);
  return at == siblings.begin() || at == siblings.end() ? nullptr : *std::prev(at);
}

// The sorted place is before the first sibling that stands behind the record. Siblings that a rename left
// unsorted have to be walked for it.
void FavoriteList::Place(FavoriteRecord& record, FavoriteRecord* parent) {
  record.parent = parent;
  if (parent == nullptr || isLoading_) {
    Level(parent).push_back(&record);
    return;
  }
  const auto standsBehind = [&](const FavoriteRecord* sibling) { return StandsBefore(record, *sibling); };
  auto& level = parent->children;
  const auto place = parent->areChildrenSorted
                         ? std::partition_point(level.begin(), level.end(), std::not_fn(standsBehind))
                         : std::find_if(level.begin(), level.end(), standsBehind);
  level.insert(place, &record);
}

void FavoriteList::Unplace(FavoriteRecord& record) {
  std::vector<FavoriteRecord*>& level = Level(record.parent);
  level.erase(std::remove(level.begin(), level.end(), &record), level.end());
  record.parent = nullptr;
}

}  // namespace file_explorer
