#include "src/explorer/group_sort.h"

#include <commctrl.h>
#include <shlobj.h>

#include <bit>
#include <cstdint>
#include <utility>

#include "src/explorer/group_order.h"
#include "src/explorer/item_name.h"
#include "src/filter/category_lookup.h"
#include "src/framework/com/com_dispatch.h"
#include "src/shellhost/file_view.h"
#include "src/shellhost/shell_item.h"

namespace file_explorer {
namespace {

VARIANT KeyVariant(std::int32_t key) {
  VARIANT variant;
  VariantInit(&variant);
  variant.vt = VT_INT;
  variant.intVal = key;
  return variant;
}

LONG KeyAsNumber(OwnedVariant key) {
  if (key->vt != VT_I4) {
    const HRESULT converted = VariantChangeType(key.operator->(), key.operator->(), 0, VT_I4);
    if (FAILED(converted)) throw _com_error(converted);
  }
  return key->lVal;
}

}  // namespace

void GroupSort::AssignKeys(ShellControlHost* fileView) {
  Forget();
  comparisons_ = 0;
  itemsToKeep_ = 0;
  const LONG count = GetItemCount(fileView);
  if (count < 1) return;
  itemsToKeep_ = static_cast<size_t>(count);
  const HWND list = GetListWindow(fileView);
  ItemName name;
  for (LONG i = 0; i < count; ++i) {
    try {
      const ShellItem item = GetItem(fileView, i + 1);
      if (item && name.Read(list, i)) item.SetSortKey(KeyVariant(GroupKeyOf(CategoryTypeMask(name.text()))));
    } catch (const _com_error&) {
      // One item that has gone or refuses does not keep the others from being sorted.
    }
  }
}

void GroupSort::Compare(IDispatch* first, IDispatch* second, LONG* order) {
  ++comparisons_;
  const Facts* a = Find(first);
  const Facts* b = Find(second);
  Facts ownFirst;
  Facts ownSecond;
  if (a == nullptr || b == nullptr) {
    // Reading calls the control, which may raise an event that makes us forget everything: from here on the two are
    // compared by copies of our own.
    ownFirst = a != nullptr ? *a : ReadFacts(first);
    b = Find(second);
    ownSecond = b != nullptr ? *b : ReadFacts(second);
    Keep(first, ownFirst);
    Keep(second, ownSecond);
    a = &ownFirst;
    b = &ownSecond;
  }
  if (a->name.empty() || b->name.empty()) return;
  *order = CompareGrouped({a->name, a->isFolder, a->sortKey}, {b->name, b->isFolder, b->sortKey});
}

GroupSort::Facts GroupSort::ReadFacts(IDispatch* object) {
  Facts facts;
  try {
    const ShellItem item(object);
    facts.sortKey = KeyAsNumber(item.GetSortKey());
    const bool shellFolder = item.HasAttributes(SFGAO_FOLDER) != 0;
    facts.name = item.GetName().value_or(std::string());
    facts.isFolder = CountsAsFolder(shellFolder, facts.name);
  } catch (const _com_error&) {
    facts.name.clear();
  }
  return facts;
}

size_t GroupSort::SlotOf(IDispatch* item) const noexcept {
  const size_t mask = table_.size() - 1;
  // Objects lie at multiples of 16; their addresses are spread over the table.
  size_t slot = ((reinterpret_cast<std::uintptr_t>(item) >> 4) * 0x9E3779B97F4A7C15u >> 32) & mask;
  while (table_[slot] != nullptr && table_[slot]->item.Get() != item) slot = (slot + 1) & mask;
  return slot;
}

const GroupSort::Facts* GroupSort::Find(IDispatch* item) const noexcept {
  const KeptItem* const kept = table_.empty() ? nullptr : table_[SlotOf(item)];
  return kept != nullptr ? &kept->facts : nullptr;
}

void GroupSort::Keep(IDispatch* item, const Facts& facts) {
  if (!MayKeep() || Find(item) != nullptr) return;
  if (table_.empty()) table_.resize(std::bit_ceil(2 * itemsToKeep_));
  kept_.push_back({item, facts});
  table_[SlotOf(item)] = &kept_.back();
}

void GroupSort::Forget() noexcept {
  if (kept_.empty() && table_.empty()) return;
  table_ = {};
  // The items may run code of the control when they go: by then nobody finds them here.
  std::deque<KeptItem> gone;
  gone.swap(kept_);
}

}  // namespace file_explorer
