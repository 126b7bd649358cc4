// The order of a file list that is grouped by kind: folders by name, then the files by the host's handler
// type, each group by name. ZIP archives are files here, whatever the shell calls them.
#pragma once

#include <compare>
#include <cstdint>
#include <string_view>

namespace file_explorer {

// The sort key of files that no usable handler claims: they come last.
inline constexpr std::int32_t kNoHandlerKey = 32767;

// A file's sort key for the host's type mask of its name. A mask below 2 names no handler that counts.
std::int32_t GroupKeyOf(std::uint32_t typeMask) noexcept;

// What the order asks of an item.
struct GroupedItem {
  std::string_view name;  // the item's path text
  bool isFolder = false;
  std::int32_t sortKey = 0;
};

// Whether a name ends in ".zip", letters of any case.
bool IsArchiveName(std::string_view name) noexcept;

// Whether an item that the shell calls a folder is one for the order.
inline bool CountsAsFolder(bool shellFolder, std::string_view name) noexcept {
  return shellFolder && !IsArchiveName(name);
}

// Names by their bytes, the letters A to Z taken as a to z: -1, 0 or 1.
int CompareNames(std::string_view first, std::string_view second) noexcept;

// -1 when first stands before second, 1 when behind it, 0 when only the control's own order tells them apart.
int CompareGrouped(const GroupedItem& first, const GroupedItem& second) noexcept;

}  // namespace file_explorer
