// Facts about a file in words: sizes, dates, types.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace workbench {

// "1,234,567": digits in groups of three.
std::string GroupedNumber(std::uint64_t number);
// "0 bytes", "1 byte", "1,234,567 bytes".
std::string ExactSize(std::uint64_t bytes);
// "1.18 MB": three significant digits, units of 1,024; below 1,024 the same as ExactSize.
std::string RoundedSize(std::uint64_t bytes);
// "1.18 MB (1,234,567 bytes)"; a size below 1,024 is written once.
std::string FullSize(std::uint64_t bytes);

struct DateTime {
  int year = 0;
  int month = 0;  // 1 to 12
  int day = 0;
  int hour = 0;
  int minute = 0;
};
// "21 November 2026, 09:05"; empty for a month outside 1 to 12.
std::string FormatDateTime(const DateTime& time);

// Broad kinds of files; they choose the colour of an icon.
enum class FileKind {
  kOther,
  kFolder,
  kModel,
  kPicture,
  kDrawing,
  kText,
  kArchive,
  kVideo,
  kAudio,
  kTable,
  kSlides
};

struct FileType {
  std::string description;  // "PNG picture", "XYZ file", "File" (no extension)
  FileKind kind = FileKind::kOther;
};
// By the name's extension, letters of any case. An extension outside ASCII or longer than 12 characters
// counts as none.
FileType DescribeType(std::string_view fileName);

// The part behind the name's last dot, in capitals, without the dot; empty when there is none (".profile" has
// none).
std::string UpperExtension(std::string_view fileName);

}  // namespace workbench
