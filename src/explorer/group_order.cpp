#include "src/explorer/group_order.h"

#include <algorithm>

#include "src/filter/file_category.h"

namespace file_explorer {
namespace {

constexpr std::string_view kArchiveExtension = ".zip";

constexpr unsigned char Folded(char letter) noexcept {
  const auto byte = static_cast<unsigned char>(letter);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte - 'A' + 'a') : byte;
}

int Sign(int difference) noexcept {
  return (difference > 0) - (difference < 0);
}

}  // namespace

std::int32_t GroupKeyOf(std::uint32_t typeMask) noexcept {
  return typeMask < kFirstCategoryMask ? kNoHandlerKey : static_cast<std::int32_t>(typeMask);
}

bool IsArchiveName(std::string_view name) noexcept {
  return name.size() >= kArchiveExtension.size() &&
         CompareNames(name.substr(name.size() - kArchiveExtension.size()), kArchiveExtension) == 0;
}

int CompareNames(std::string_view first, std::string_view second) noexcept {
  const size_t common = std::min(first.size(), second.size());
  for (size_t i = 0; i < common; ++i) {
    // Paths of one folder begin alike: equal bytes are passed over without folding.
    if (first[i] == second[i]) continue;
    const int difference = Folded(first[i]) - Folded(second[i]);
    if (difference != 0) return Sign(difference);
  }
  return first.size() == second.size() ? 0 : (first.size() < second.size() ? -1 : 1);
}

int CompareGrouped(const GroupedItem& first, const GroupedItem& second) noexcept {
  if (first.isFolder != second.isFolder) return first.isFolder ? -1 : 1;
  if (!first.isFolder && first.sortKey != second.sortKey) return first.sortKey < second.sortKey ? -1 : 1;
  return CompareNames(first.name, second.name);
}

}  // namespace file_explorer
