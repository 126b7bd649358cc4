#include "src/history/history_order.h"

#include <iterator>
#include <optional>
#include <string>
#include <utility>

namespace file_explorer {
namespace {

// An entry with what its method compares, made once an entry and not once a comparison.
struct Keyed {
  std::unique_ptr<HistoryEntry> entry;
  std::optional<std::uint64_t> time;
  std::optional<std::string> name;
  std::optional<std::string> extension;
};

using Keys = std::vector<Keyed>;
using Before = bool (*)(const Keyed&, const Keyed&);

bool IsNewer(const Keyed& a, const Keyed& b) {
  return a.time && b.time && *a.time > *b.time;
}
bool IsOlder(const Keyed& a, const Keyed& b) {
  return a.time && b.time && *a.time < *b.time;
}
bool HasLesserName(const Keyed& a, const Keyed& b) {
  return a.name && b.name && *a.name < *b.name;
}
bool HasLesserExtension(const Keyed& a, const Keyed& b) {
  if (!a.extension || !b.extension) return false;
  const int order = a.extension->compare(*b.extension);
  return order != 0 ? order < 0 : HasLesserName(a, b);
}

Keyed MakeKeyed(std::unique_ptr<HistoryEntry> entry, int method, CaseFolder fold) {
  Keyed keyed;
  if (method == kSortNewestFirst || method == kSortOldestFirst) {
    keyed.time = ToFileTime(entry->lastAccess);
  } else if (!entry->displayName.empty()) {
    keyed.name = fold(entry->displayName);
    const std::string_view extension = HistoryExtension(entry->displayName);
    if (!extension.empty()) keyed.extension = fold(extension);
  }
  keyed.entry = std::move(entry);
  return keyed;
}

// The library's sorts want a strict weak order, which entries that can't be compared do not give; a merge
// sort of our own is well defined with any comparison.
void MergeSort(Keys& keys, Keys& spare, size_t first, size_t last, Before before) {
  if (last - first < 2) return;
  const size_t middle = first + (last - first) / 2;
  MergeSort(keys, spare, first, middle, before);
  MergeSort(keys, spare, middle, last, before);
  size_t left = first;
  size_t right = middle;
  for (size_t target = first; target < last; ++target) {
    const bool takeRight = left == middle || (right != last && before(keys[right], keys[left]));
    spare[target] = std::move(keys[takeRight ? right++ : left++]);
  }
  for (size_t i = first; i < last; ++i) keys[i] = std::move(spare[i]);
}

bool IsDigit(char letter) {
  return letter >= '0' && letter <= '9';
}

}  // namespace

std::string_view HistoryExtension(std::string_view name) {
  size_t start = name.size();
  for (size_t at = name.size(); at-- > 0;) {
    if (name[at] != '.') continue;
    start = at;
    const bool isNumeric = at + 1 < name.size() && IsDigit(name[at + 1]);
    if (!isNumeric) break;
  }
  return name.substr(start);
}

void SortHistory(HistoryEntries& entries, int method, CaseFolder fold) {
  static constexpr Before kOrders[kSortMethodCount] = {IsNewer, IsOlder, HasLesserName, HasLesserExtension};
  if (method < 0 || method >= kSortMethodCount) return;
  Keys keys;
  keys.reserve(entries.size());
  for (auto& entry : entries) keys.push_back(MakeKeyed(std::move(entry), method, fold));
  Keys spare(keys.size());
  MergeSort(keys, spare, 0, keys.size(), kOrders[method]);
  for (size_t i = 0; i < keys.size(); ++i) entries[i] = std::move(keys[i].entry);
}

}  // namespace file_explorer
