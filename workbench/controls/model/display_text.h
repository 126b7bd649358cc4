// Texts of the columns and the status line that need no system call.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace controls {

// "1,234,567" with the given separator between groups of three.
std::wstring GroupDigits(uint64_t value, std::wstring_view separator = L",");

// A file's size for the size column: whole kilobytes rounded up, "0 KB" only for an empty file.
std::wstring SizeInKilobytes(uint64_t bytes);

// A size for people: "512 bytes", "1.5 KB", "12 MB".
std::wstring ShortSize(uint64_t bytes);

// "OBJ File" for an extension that no program has registered; "File" without one.
std::wstring FallbackTypeName(std::wstring_view extension);

struct StatusFacts {
  size_t items = 0;
  size_t selected = 0;
  uint64_t selectedBytes = 0;
  bool selectionHasFiles = false;
  bool reading = false;
};

// The status line of a folder: "1,204 items", "1,204 items, 3 selected, 12.5 KB", "1,204 items, reading...".
std::wstring StatusText(const StatusFacts& facts);

// Why an archive cannot be shown, beside the system's own error codes (none of which has this bit).
inline constexpr uint32_t kErrorNoArchive = 0x20000001;
inline constexpr uint32_t kErrorArchiveDamaged = 0x20000002;
inline constexpr uint32_t kErrorArchiveSplit = 0x20000003;
inline constexpr uint32_t kErrorArchiveTooLarge = 0x20000004;
inline constexpr bool IsArchiveError(uint32_t error) {
  return (error & 0x20000000) != 0;
}

// Why a folder could not be opened, as a sentence for the status line. systemText is the system's own
// wording, used for error codes that have no sentence here; it may be empty.
std::wstring FolderErrorText(uint32_t error, std::wstring_view path, std::wstring_view systemText);

}  // namespace controls
