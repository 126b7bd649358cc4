// The compact model of a folder's contents: one fixed-size record an item, all names in one block of text.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace controls {

using ItemId = uint32_t;
inline constexpr ItemId kNoItem = 0xFFFFFFFFu;

// What enumeration gives of one item.
struct ItemFacts {
  uint64_t size = 0;
  uint64_t modified = 0;    // 100 ns units since 1601, UTC; 0 when unknown
  uint32_t attributes = 0;  // the platform's file attribute bits
};

struct ItemRecord {
  uint64_t size = 0;
  uint64_t modified = 0;
  uint32_t attributes = 0;
  uint32_t nameOffset = 0;
  uint16_t nameLength = 0;
  uint16_t flags = 0;
  uint32_t type = 0;    // index of the caller's type table
  int32_t sortKey = 0;  // the container's grouping key
};

inline constexpr uint32_t kAttributeHidden = 0x2;
inline constexpr uint32_t kAttributeSystem = 0x4;
inline constexpr uint32_t kAttributeDirectory = 0x10;

// Beside the platform's bits: the contents of an archive's entry cannot be where the archive says.
inline constexpr uint32_t kAttributeDamaged = 0x80000000;

inline constexpr uint16_t kItemLeftOut = 1;  // the container's filter keeps it out of the view
inline constexpr uint16_t kItemGone = 2;     // deleted or renamed on disk
inline constexpr uint16_t kItemHasSortKey = 4;
inline constexpr uint16_t kItemMarked = 8;  // scratch bit of one pass

// Items in the order in which they were found. An id stays valid for the store's life; names never move to
// another id.
class ItemStore {
 public:
  ItemId Add(std::wstring_view name, const ItemFacts& facts);
  // New facts of an item that was found before.
  void Update(ItemId id, const ItemFacts& facts);

  size_t size() const { return records_.size(); }
  const ItemRecord& at(ItemId id) const { return records_[id]; }
  ItemRecord& at(ItemId id) { return records_[id]; }
  std::wstring_view name(ItemId id) const {
    const ItemRecord& record = records_[id];
    return std::wstring_view(names_.data() + record.nameOffset, record.nameLength);
  }
  bool IsFolder(ItemId id) const { return (records_[id].attributes & kAttributeDirectory) != 0; }
  bool IsDimmed(ItemId id) const {
    return (records_[id].attributes & (kAttributeHidden | kAttributeSystem)) != 0;
  }

  // The item of this name (exact spelling first, then without regard to case) that is not gone; kNoItem when
  // none. The first call builds an index; later additions keep it.
  ItemId Find(std::wstring_view name);

  size_t BytesUsed() const {
    return records_.capacity() * sizeof(ItemRecord) + names_.capacity() * sizeof(wchar_t);
  }

 private:
  void BuildIndex(size_t buckets);
  void Link(ItemId id);

  std::vector<ItemRecord> records_;
  std::vector<wchar_t> names_;
  std::vector<ItemId> buckets_;  // heads of hash chains; a power of two, empty until the first Find
  std::vector<ItemId> next_;
};

}  // namespace controls
