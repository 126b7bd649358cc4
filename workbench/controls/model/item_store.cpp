#include "workbench/controls/model/item_store.h"

#include <algorithm>
#include <bit>
#include <stdexcept>

#include "workbench/controls/model/natural_compare.h"

namespace controls {
namespace {

uint32_t HashName(std::wstring_view name) {
  uint32_t hash = 2166136261u;
  for (const wchar_t c : name) hash = (hash ^ static_cast<uint32_t>(FoldCase(c))) * 16777619u;
  return hash ^ (hash >> 15);
}

}  // namespace

ItemId ItemStore::Add(std::wstring_view name, const ItemFacts& facts) {
  if (name.size() > 0xFFFF || names_.size() + name.size() > 0xFFFFFFFFu || records_.size() >= kNoItem) {
    throw std::length_error("item store is full");
  }
  const auto id = static_cast<ItemId>(records_.size());
  ItemRecord record;
  record.nameOffset = static_cast<uint32_t>(names_.size());
  record.nameLength = static_cast<uint16_t>(name.size());
  names_.insert(names_.end(), name.begin(), name.end());
  records_.push_back(record);
  Update(id, facts);
  if (!buckets_.empty()) {
    if (records_.size() > buckets_.size() * 2) {
      BuildIndex(buckets_.size() * 4);
    } else {
      Link(id);
    }
  }
  return id;
}

void ItemStore::Update(ItemId id, const ItemFacts& facts) {
  records_[id].size = facts.size;
  records_[id].modified = facts.modified;
  records_[id].attributes = facts.attributes;
}

void ItemStore::BuildIndex(size_t buckets) {
  buckets_.assign(std::bit_ceil(std::max<size_t>(buckets, 64)), kNoItem);
  next_.clear();
  next_.reserve(records_.size());
  for (ItemId id = 0; id < records_.size(); ++id) Link(id);
}

void ItemStore::Link(ItemId id) {
  ItemId& head = buckets_[HashName(name(id)) & (buckets_.size() - 1)];
  next_.push_back(head);
  head = id;
}

ItemId ItemStore::Find(std::wstring_view wanted) {
  if (buckets_.empty()) BuildIndex(records_.size());
  ItemId similar = kNoItem;
  for (ItemId id = buckets_[HashName(wanted) & (buckets_.size() - 1)]; id != kNoItem; id = next_[id]) {
    if (records_[id].flags & kItemGone) continue;
    const std::wstring_view candidate = name(id);
    if (candidate == wanted) return id;
    if (EqualsIgnoringCase(candidate, wanted)) similar = id;
  }
  return similar;
}

}  // namespace controls
