#include "workbench/app/documents/picture_size.h"

#include <algorithm>

#include "workbench/app/documents/byte_reader.h"

namespace workbench {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPngStart = "\x89PNG\r\n\x1A\n"sv;

StatedSize Larger(StatedSize a, StatedSize b) {
  return a.pixels() >= b.pixels() ? a : b;
}

StatedSize PngSize(std::string_view file) {
  const ByteReader reader(file, true);
  return {reader.Long(16), reader.Long(20)};
}

// Of the information header of a bitmap, also inside an icon file. A negative height means rows from the top.
StatedSize BitmapHeaderSize(std::string_view header) {
  const ByteReader reader(header, false);
  if (reader.Long(0) == 12) return {reader.Short(4), reader.Short(6)};
  const auto magnitude = [&](std::size_t at) -> std::uint64_t {
    const std::uint32_t value = reader.Long(at);
    return value >= 0x80000000u ? 0x100000000u - std::uint64_t{value} : value;
  };
  return {magnitude(4), magnitude(8)};
}

StatedSize JpegSize(std::string_view file) {
  const ByteReader reader(file, true);
  StatedSize largest;
  for (std::size_t at = 2; at + 9 < file.size();) {
    if (reader.Byte(at) != 0xFF) return largest;
    const unsigned kind = reader.Byte(at + 1);
    if (kind == 0xFF) {  // a fill byte
      ++at;
      continue;
    }
    const bool frame = kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
    if (frame) largest = Larger(largest, {reader.Short(at + 7), reader.Short(at + 5)});
    const bool alone = kind == 0x01 || (kind >= 0xD0 && kind <= 0xD8);  // without a length
    if (kind == 0xDA || (!alone && reader.Short(at + 2) < 2)) return largest;
    at += alone ? 2 : 2 + reader.Short(at + 2);
  }
  return largest;
}

std::size_t ColorTableSize(unsigned flags) {
  return (flags & 0x80) != 0 ? std::size_t{3} << ((flags & 7) + 1) : 0;
}

std::size_t BehindSubBlocks(const ByteReader& reader, std::size_t at) {
  while (at < reader.size() && reader.Byte(at) != 0) at += 1 + reader.Byte(at);
  return at + 1;
}

// The screen and every frame: a decoder may unpack them all at once.
StatedSize GifSize(std::string_view file) {
  const ByteReader reader(file, false);
  StatedSize largest = {reader.Short(6), reader.Short(8)};
  std::size_t at = 13 + ColorTableSize(reader.Byte(10));
  while (at < file.size()) {
    const unsigned kind = reader.Byte(at);
    if (kind == 0x21) {  // an extension
      at = BehindSubBlocks(reader, at + 2);
    } else if (kind == 0x2C) {
      largest = Larger(largest, {reader.Short(at + 5), reader.Short(at + 7)});
      at = BehindSubBlocks(reader, at + 11 + ColorTableSize(reader.Byte(at + 9)));
    } else {
      break;
    }
  }
  return largest;
}

StatedSize TiffSize(std::string_view file) {
  const ByteReader reader(file, file.starts_with("MM"sv));
  const std::size_t directory = reader.Long(4);
  const unsigned entries = reader.Short(directory);
  StatedSize size;
  for (unsigned i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + std::size_t{i} * 12;
    if (entry >= file.size()) break;
    const unsigned tag = reader.Short(entry);
    const std::uint64_t value =
        reader.Short(entry + 2) == 3 ? reader.Short(entry + 8) : reader.Long(entry + 8);
    if (tag == 256) size.width = value;
    if (tag == 257) size.height = value;
  }
  return size;
}

StatedSize IconSize(std::string_view file) {
  const ByteReader reader(file, false);
  StatedSize largest;
  for (std::size_t i = 0; i < reader.Short(4) && 6 + i * 16 < file.size(); ++i) {
    const std::size_t picture = reader.Long(6 + i * 16 + 12);
    if (picture >= file.size()) continue;
    const std::string_view content = file.substr(picture);
    largest = Larger(largest, content.starts_with(kPngStart) ? PngSize(content) : BitmapHeaderSize(content));
  }
  return largest;
}

struct Format {
  std::string_view start;
  StatedSize (*size)(std::string_view file);
};

constexpr Format kFormats[] = {
    {kPngStart, PngSize},
    {"\xFF\xD8"sv, JpegSize},
    {"GIF8"sv, GifSize},
    {"BM"sv,
     [](std::string_view file) {
       return BitmapHeaderSize(file.substr(std::min<std::size_t>(14, file.size())));
     }},
    {"II*\0"sv, TiffSize},
    {"MM\0*"sv, TiffSize},
    {"\0\0\1\0"sv, IconSize},
};

}  // namespace

StatedSize LargestStatedSize(std::string_view file) {
  for (const Format& format : kFormats) {
    if (file.starts_with(format.start)) return format.size(file);
  }
  return {};
}

}  // namespace workbench
