#include "workbench/app/layout/tab_layout.h"

#include <numeric>

namespace workbench {
namespace {

long long TotalWithCap(const std::vector<int>& lengths, int cap) {
  return std::accumulate(lengths.begin(), lengths.end(), 0LL,
                         [&](long long sum, int length) { return sum + std::min(length, cap); });
}

}  // namespace

TabLayout LayOutTabs(const std::vector<int>& wanted, int room, int smallest) {
  std::vector<int> lengths = wanted;
  for (int& length : lengths) length = std::max({length, smallest, 1});
  int high = lengths.empty() ? 0 : *std::max_element(lengths.begin(), lengths.end());
  if (TotalWithCap(lengths, high) > room) {
    // The largest cap at which everything fits, never below the smallest length.
    int low = std::max(smallest, 1);
    while (low < high) {
      const int middle = low + (high - low + 1) / 2;
      if (TotalWithCap(lengths, middle) <= room) {
        low = middle;
      } else {
        high = middle - 1;
      }
    }
    for (int& length : lengths) length = std::min(length, std::max(low, smallest));
  }
  TabLayout layout;
  for (const int length : lengths) layout.offsets.push_back(layout.offsets.back() + length);
  return layout;
}

int TabAt(const TabLayout& layout, int offset) {
  if (offset < 0) return -1;
  for (int tab = 0; tab < layout.count(); ++tab) {
    if (offset < layout.offsets[static_cast<size_t>(tab) + 1]) return tab;
  }
  return -1;
}

}  // namespace workbench
