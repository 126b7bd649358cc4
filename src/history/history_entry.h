// One remembered file, and the few types that it is made of. No Windows in here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace file_explorer {

// A moment in the layout of the platform's SYSTEMTIME: 16 bytes, UTC. Nothing says that it is a date that
// exists.
struct HistoryTime {
  std::uint16_t year = 0;
  std::uint16_t month = 0;      // 1 to 12
  std::uint16_t dayOfWeek = 0;  // 0 is Sunday; carried along, never looked at
  std::uint16_t day = 0;        // 1 to 31
  std::uint16_t hour = 0;
  std::uint16_t minute = 0;
  std::uint16_t second = 0;
  std::uint16_t milliseconds = 0;

  bool operator==(const HistoryTime&) const = default;
};
static_assert(sizeof(HistoryTime) == 16);

// 100-nanosecond steps since 1 January 1601, as a FILETIME counts them; none for a date that does not exist.
std::optional<std::uint64_t> ToFileTime(const HistoryTime& time);

// A shell item identifier list as plain bytes; empty when there is none.
using ItemId = std::vector<unsigned char>;

struct HistoryEntry {
  std::string displayName;  // base name with extension; empty: none
  std::string fullPath;     // as it was given; the entry's identity, letters of any case; empty: none
  std::string itemName;     // what the shell parses into the entry's item, when it is needed; empty: none
  HistoryTime lastAccess;
};

// Gives a text in which letters that differ only in case are the same.
using CaseFolder = std::string (*)(std::string_view);
// The letters A to Z only; what Windows code uses knows the code page's letters.
std::string FoldAsciiCase(std::string_view text);

}  // namespace file_explorer
