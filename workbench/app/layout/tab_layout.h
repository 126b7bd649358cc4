// Arithmetic of a strip of tabs: widths, shrinking when there is not enough room, hit testing.
#pragma once

#include <vector>

#include "workbench/app/layout/geometry.h"

namespace workbench {

// Positions of tabs along a strip: tab i reaches from offsets[i] to offsets[i + 1].
struct TabLayout {
  std::vector<int> offsets{0};
  int count() const { return static_cast<int>(offsets.size()) - 1; }
  int start(int tab) const { return offsets[static_cast<size_t>(tab)]; }
  int length(int tab) const { return offsets[static_cast<size_t>(tab) + 1] - start(tab); }
};

// Lays tabs of the wanted lengths out in room pixels. When they don't fit, the longest ones are shortened
// first, all to the same length; below smallest they are not shortened, and tabs at the end then lie outside
// the room.
TabLayout LayOutTabs(const std::vector<int>& wanted, int room, int smallest);

// The tab at an offset along the strip; -1 for none.
int TabAt(const TabLayout& layout, int offset);

}  // namespace workbench
