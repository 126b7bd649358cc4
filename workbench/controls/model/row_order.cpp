#include "workbench/controls/model/row_order.h"

#include <algorithm>

#include "workbench/controls/model/natural_compare.h"

namespace controls {
namespace {

template <typename T>
int CompareValues(T first, T second) {
  return first < second ? -1 : first > second ? 1 : 0;
}

}  // namespace

uint32_t OwnOrder::TypeRank(ItemId id) const {
  const uint32_t type = store_.at(id).type;
  return typeRank_ && type < typeRank_->size() ? (*typeRank_)[type] : type;
}

int OwnOrder::CompareColumn(ItemId first, ItemId second) const {
  switch (rule_.column) {
    case SortColumn::kSize:
      return CompareValues(store_.at(first).size, store_.at(second).size);
    case SortColumn::kType:
      return CompareValues(TypeRank(first), TypeRank(second));
    case SortColumn::kModified:
      return CompareValues(store_.at(first).modified, store_.at(second).modified);
    case SortColumn::kName:
      break;
  }
  return 0;
}

bool OwnOrder::operator()(ItemId first, ItemId second) const {
  const bool firstIsFolder = store_.IsFolder(first);
  if (firstIsFolder != store_.IsFolder(second)) return firstIsFolder;
  int order = CompareColumn(first, second);
  if (order == 0) order = CompareNatural(store_.name(first), store_.name(second));
  if (rule_.descending) order = -order;
  if (order != 0) return order < 0;
  return first < second;
}

int RowOrder::RowOf(ItemId id) const {
  if (!indexValid_) {
    std::fill(rowOf_.begin(), rowOf_.end(), -1);
    for (size_t row = 0; row < rows_.size(); ++row) {
      if (rows_[row] >= rowOf_.size()) rowOf_.resize(rows_[row] + 1, -1);
      rowOf_[rows_[row]] = static_cast<int32_t>(row);
    }
    indexValid_ = true;
  }
  return id < rowOf_.size() ? rowOf_[id] : -1;
}

void RowOrder::Clear() {
  rows_.clear();
  rowOf_.clear();
  Changed();
}

void RowOrder::Append(ItemId id) {
  rows_.push_back(id);
  Changed();
}

void RowOrder::Sort(const OwnOrder& order) {
  std::sort(rows_.begin(), rows_.end(), order);
  Changed();
}

void RowOrder::Merge(std::vector<ItemId> added, const OwnOrder& order) {
  if (added.empty()) return;
  std::sort(added.begin(), added.end(), order);
  const auto middle = static_cast<std::ptrdiff_t>(rows_.size());
  rows_.insert(rows_.end(), added.begin(), added.end());
  std::inplace_merge(rows_.begin(), rows_.begin() + middle, rows_.end(), order);
  Changed();
}

bool RowOrder::RemoveIf(const std::function<bool(ItemId)>& gone) {
  const size_t removed = std::erase_if(rows_, gone);
  if (removed != 0) Changed();
  return removed != 0;
}

void RowOrder::Assign(std::vector<ItemId> rows) {
  rows_ = std::move(rows);
  Changed();
}

}  // namespace controls
