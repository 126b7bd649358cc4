// All records of a favourites tree and their arrangement.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "src/favorites/favorite_record.h"

namespace file_explorer {

class FavoriteList {
 public:
  explicit FavoriteList(FoldCase fold = FoldAsciiLetters);
  FavoriteList(const FavoriteList&) = delete;
  FavoriteList& operator=(const FavoriteList&) = delete;

  // The records in the order in which they came, deleted ones included.
  const std::vector<std::unique_ptr<FavoriteRecord>>& records() const { return records_; }
  // The top level in the order that the tree shows.
  const std::vector<FavoriteRecord*>& topLevel() const { return topLevel_; }
  bool empty() const { return records_.empty(); }
  FoldCase fold() const { return fold_; }
  void Clear();

  // Puts the record at the list's end and at its place below parent (null: the end of the top level). A
  // parent that was deleted counts as none.
  FavoriteRecord* Add(std::unique_ptr<FavoriteRecord> record, FavoriteRecord* parent);
  // Between the two calls added records are only collected; EndLoading puts each folder's at their places, as
  // if they had been placed one by one, in time that grows with n log n.
  void BeginLoading() { isLoading_ = true; }
  void EndLoading();
  // Takes a record off again. What was below it goes to the end of the top level, where entries stand whose
  // parent is unknown; gives these records.
  std::vector<FavoriteRecord*> Remove(FavoriteRecord& record);

  // First record in list order with that key, letters of any case; null when there is none. Deleted ones are
  // found too.
  FavoriteRecord* FindByKey(std::string_view key) const;
  // Whether a record, deleted ones included, refers to that path, letters of any case.
  bool HasPath(std::string_view path) const;

  // Changes the name where the record stands; its place among its siblings stays.
  void SetDisplayName(FavoriteRecord& record, std::string_view name);
  // Marks the record and everything below it as deleted and takes it out of the tree.
  void MarkDeleted(FavoriteRecord& record);
  // Puts the record below another folder, at its sorted place; its subtree is placed anew by the same rule.
  void Move(FavoriteRecord& record, FavoriteRecord& folder);

  // The siblings among which a record stands, and the one before it (null: it is the first).
  const std::vector<FavoriteRecord*>& SiblingsOf(const FavoriteRecord& record) const;
  FavoriteRecord* PreviousSibling(const FavoriteRecord& record) const;

 private:
  std::vector<FavoriteRecord*>& Level(FavoriteRecord* parent) {
    return parent ? parent->children : topLevel_;
  }
  void Place(FavoriteRecord& record, FavoriteRecord* parent);
  void Unplace(FavoriteRecord& record);
  void PlaceChildrenAnew(FavoriteRecord& record);

  FoldCase fold_;
  bool isLoading_ = false;
  std::vector<std::unique_ptr<FavoriteRecord>> records_;
  std::vector<FavoriteRecord*> topLevel_;
  std::unordered_map<std::string, FavoriteRecord*> byKey_;  // folded key: first record that has it
};

// Whether a stands before b below a folder: folders first, then by name.
bool StandsBefore(const FavoriteRecord& a, const FavoriteRecord& b);

// Whether record is folder or lies somewhere below it.
bool LiesWithin(const FavoriteRecord& record, const FavoriteRecord& folder);

// The folder that a drop on `target` goes to: target itself, or the folder of a reference. Null when there is
// none.
FavoriteRecord* DropFolder(FavoriteRecord* target);
// Whether `dragged` may be dropped there.
bool MayDrop(const FavoriteRecord& dragged, const FavoriteRecord* folder);

// The folder that a new entry goes to when `selected` is selected.
FavoriteRecord* FolderForNewEntry(FavoriteRecord* selected);

}  // namespace file_explorer
