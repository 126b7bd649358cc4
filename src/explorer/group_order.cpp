#include "src/explorer/group_order.h"

#include <algorithm>
#include <cstring>

#include "src/filter/file_category.h"

namespace file_explorer {
namespace {

constexpr std::string_view kArchiveExtension = ".zip";

constexpr unsigned char Folded(char letter) noexcept {
  const auto byte = static_cast<unsigned char>(letter);
  return byte >= 'A' && byte <= 'Z' ? static_cast<unsigned char>(byte - 'A' + 'a') : byte;
}

// How many bytes the two have in common at their beginning, to the last whole eight of them. Paths of one
// folder begin alike.
size_t EqualBytes(const char* first, const char* second, size_t size) noexcept {
  size_t at = 0;
  for (; at + 8 <= size; at += 8) {
    std::uint64_t a;
    std::uint64_t b;
    std::memcpy(&a, first + at, sizeof(a));
    std::memcpy(&b, second + at, sizeof(b));
    if (a != b) break;
  }
  return at;
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
  for (size_t i = EqualBytes(first.data(), second.data(), common); i < common; ++i) {
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
