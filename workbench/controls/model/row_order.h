// Which item stands in which row.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "workbench/controls/model/item_store.h"

namespace controls {

enum class SortColumn : int { kName = 0, kSize = 1, kType = 2, kModified = 3 };
inline constexpr int kColumnCount = 4;

struct SortRule {
  SortColumn column = SortColumn::kName;
  bool descending = false;
};

// The control's own order: folders first whatever the direction, then the column, equal values by name.
// typeRank gives each type's place in the alphabet of the type names.
class OwnOrder {
 public:
  OwnOrder(const ItemStore& store, SortRule rule, const std::vector<uint32_t>* typeRank)
      : store_(store), rule_(rule), typeRank_(typeRank) {}
  bool operator()(ItemId first, ItemId second) const;

 private:
  int CompareColumn(ItemId first, ItemId second) const;
  uint32_t TypeRank(ItemId id) const;

  const ItemStore& store_;
  SortRule rule_;
  const std::vector<uint32_t>* typeRank_;
};

class RowOrder {
 public:
  size_t size() const { return rows_.size(); }
  ItemId operator[](size_t row) const { return rows_[row]; }
  const std::vector<ItemId>& rows() const { return rows_; }

  // The row of an item, or -1. The first call after a change costs O(n), the next ones are constant.
  int RowOf(ItemId id) const;

  void Clear();
  void Append(ItemId id);
  // Sorts everything.
  void Sort(const OwnOrder& order);
  // Sorts added and merges it in; the present rows must be sorted by the same order.
  void Merge(std::vector<ItemId> added, const OwnOrder& order);
  // Takes out the rows of items for which gone(id) holds; true when there was one.
  bool RemoveIf(const std::function<bool(ItemId)>& gone);
  void Assign(std::vector<ItemId> rows);

 private:
  void Changed() { indexValid_ = false; }

  std::vector<ItemId> rows_;
  mutable std::vector<int32_t> rowOf_;
  mutable bool indexValid_ = false;
};

}  // namespace controls
