// The orders of the history list.
#pragma once

#include <memory>
#include <string_view>
#include <vector>

#include "src/history/history_entry.h"

namespace file_explorer {

// Sorting methods, as the settings keep them. Any other number leaves the order as it is.
inline constexpr int kSortNewestFirst = 0;
inline constexpr int kSortOldestFirst = 1;
inline constexpr int kSortByName = 2;
inline constexpr int kSortByExtension = 3;
inline constexpr int kSortMethodCount = 4;

using HistoryEntries = std::vector<std::unique_ptr<HistoryEntry>>;

// The extension that "Sort by Extension" goes by, with its dot: the last one together with numeric ones
// behind it
// ("scene.3ds.001" has ".3ds.001"). Empty when the name has no dot.
std::string_view HistoryExtension(std::string_view name);

// Sorts with a stable merge sort. Two entries that the method can't compare (a date that does not exist, a
// missing name or extension) keep their order.
void SortHistory(HistoryEntries& entries, int method, CaseFolder fold);

}  // namespace file_explorer
