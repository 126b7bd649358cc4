#include "src/explorer/group_sort.h"

#include <commctrl.h>
#include <shlobj.h>

#include <array>
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

GroupedItem Grouped(const std::string& name, bool isFolder, LONG sortKey) {
  return {name, isFolder, sortKey};
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
  std::optional<Facts> freshFirst;
  std::optional<Facts> freshSecond;
  const std::optional<Facts>& a = FactsOf(first, freshFirst);
  const std::optional<Facts>& b = FactsOf(second, freshSecond);
  if (!a || !b) return;
  *order =
      CompareGrouped(Grouped(a->name, a->isFolder, a->sortKey), Grouped(b->name, b->isFolder, b->sortKey));
}

std::optional<GroupSort::Facts> GroupSort::ReadFacts(IDispatch* object) {
  try {
    const ShellItem item(object);
    Facts facts;
    facts.sortKey = KeyAsNumber(item.GetSortKey());
    const bool shellFolder = item.HasAttributes(SFGAO_FOLDER) != 0;
    std::optional<std::string> name = item.GetName();
    if (!name || name->empty()) return std::nullopt;
    facts.name = std::move(*name);
    facts.isFolder = CountsAsFolder(shellFolder, facts.name);
    return facts;
  } catch (const _com_error&) {
    return std::nullopt;
  }
}

// References into the table stay valid when it grows.
const std::optional<GroupSort::Facts>& GroupSort::FactsOf(IDispatch* item, std::optional<Facts>& fresh) {
  const auto known = kept_.find(item);
  if (known != kept_.end()) return known->second.facts;
  fresh = ReadFacts(item);
  if (!MayKeep()) return fresh;
  return kept_.emplace(item, KeptItem{item, std::move(fresh)}).first->second.facts;
}

void GroupSort::Forget() noexcept {
  if (kept_.empty()) return;
  // The items may run code of the control when they go: by then nobody finds them here.
  std::unordered_map<IDispatch*, KeptItem> gone;
  gone.swap(kept_);
}

}  // namespace file_explorer
