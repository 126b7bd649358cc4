#include "src/preview/picture_header.h"

#include <algorithm>
#include <cstddef>

namespace file_explorer::preview {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kPngStart = "\x89PNG\r\n\x1A\n"sv;
constexpr std::string_view kJpegStart = "\xFF\xD8"sv;
constexpr unsigned kStartOfScan = 0xDA;

// Numbers anywhere in the file; what lies outside reads as 0.
class Numbers {
 public:
  Numbers(std::string_view bytes, bool bigEndian) : bytes_(bytes), bigEndian_(bigEndian) {}

  unsigned Byte(std::size_t at) const {
    return at < bytes_.size() ? static_cast<unsigned char>(bytes_[at]) : 0;
  }
  std::uint32_t Short(std::size_t at) const {
    return bigEndian_ ? Byte(at) << 8 | Byte(at + 1) : Byte(at + 1) << 8 | Byte(at);
  }
  std::uint32_t Long(std::size_t at) const {
    return bigEndian_ ? Short(at) << 16 | Short(at + 2) : Short(at + 2) << 16 | Short(at);
  }

 private:
  std::string_view bytes_;
  bool bigEndian_;
};

StatedSize Larger(StatedSize a, StatedSize b) {
  return a.pixels() >= b.pixels() ? a : b;
}

StatedSize PngSize(std::string_view file) {
  const Numbers numbers(file, true);
  return {numbers.Long(16), numbers.Long(20)};
}

// One segment of a JPEG: a mark, and a length that counts itself but not the mark.
struct Segment {
  unsigned kind = 0;
  std::size_t content = 0;  // where it begins
  std::size_t length = 0;
};

// Calls visit for each segment before the picture's data, until it says false.
template <typename Visit>
void ForEachSegment(std::string_view file, const Visit& visit) {
  const Numbers numbers(file, true);
  for (std::size_t at = kJpegStart.size(); at + 4 <= file.size() && numbers.Byte(at) == 0xFF;) {
    const unsigned kind = numbers.Byte(at + 1);
    const bool isFill = kind == 0xFF;
    const bool standsAlone = kind == 0x01 || (kind >= 0xD0 && kind <= 0xD8);
    if (isFill || standsAlone) {
      at += isFill ? 1 : 2;
      continue;
    }
    const std::size_t length = numbers.Short(at + 2);
    if (kind == kStartOfScan || length < 2 || !visit(Segment{kind, at + 4, length - 2})) return;
    at += 2 + length;
  }
}

StatedSize JpegSize(std::string_view file) {
  const Numbers numbers(file, true);
  StatedSize largest;
  ForEachSegment(file, [&](const Segment& segment) {
    const unsigned kind = segment.kind;
    const bool isFrame = kind >= 0xC0 && kind <= 0xCF && kind != 0xC4 && kind != 0xC8 && kind != 0xCC;
    if (isFrame) {
      largest = Larger(largest, {numbers.Short(segment.content + 3), numbers.Short(segment.content + 1)});
    }
    return true;
  });
  return largest;
}

std::size_t ColorTableSize(unsigned flags) {
  return (flags & 0x80) != 0 ? std::size_t{3} << ((flags & 7) + 1) : 0;
}

std::size_t BehindSubBlocks(std::string_view file, std::size_t at) {
  const Numbers numbers(file, false);
  while (at < file.size() && numbers.Byte(at) != 0) at += 1 + numbers.Byte(at);
  return at + 1;
}

StatedSize GifSize(std::string_view file) {
  const Numbers numbers(file, false);
  StatedSize largest = {numbers.Short(6), numbers.Short(8)};
  std::size_t at = 13 + ColorTableSize(numbers.Byte(10));
  while (at < file.size()) {
    const unsigned block = numbers.Byte(at);
    if (block == 0x21) {  // an extension
      at = BehindSubBlocks(file, at + 2);
    } else if (block == 0x2C) {
      largest = Larger(largest, {numbers.Short(at + 5), numbers.Short(at + 7)});
      at = BehindSubBlocks(file, at + 11 + ColorTableSize(numbers.Byte(at + 9)));
    } else {
      break;
    }
  }
  return largest;
}

// A negative height means rows from the top.
StatedSize BitmapSize(std::string_view header) {
  const Numbers numbers(header, false);
  if (numbers.Long(0) == 12) return {numbers.Short(4), numbers.Short(6)};
  const auto magnitude = [](std::uint32_t value) {
    return value >= 0x80000000u ? 0x100000000u - std::uint64_t{value} : std::uint64_t{value};
  };
  return {magnitude(numbers.Long(4)), magnitude(numbers.Long(8))};
}

StatedSize BitmapFileSize(std::string_view file) {
  constexpr std::size_t kFileHeader = 14;
  return BitmapSize(file.substr(std::min(kFileHeader, file.size())));
}

StatedSize TiffSize(std::string_view file) {
  constexpr std::uint32_t kShort = 3;
  const Numbers numbers(file, file.starts_with("MM"sv));
  const std::size_t directory = numbers.Long(4);
  StatedSize size;
  for (std::size_t i = 0; i < numbers.Short(directory); ++i) {
    const std::size_t entry = directory + 2 + i * 12;
    if (entry >= file.size()) break;
    const std::uint32_t value =
        numbers.Short(entry + 2) == kShort ? numbers.Short(entry + 8) : numbers.Long(entry + 8);
    if (numbers.Short(entry) == 256) size.width = value;
    if (numbers.Short(entry) == 257) size.height = value;
  }
  return size;
}

StatedSize IconSize(std::string_view file) {
  const Numbers numbers(file, false);
  StatedSize largest;
  for (std::size_t i = 0; i < numbers.Short(4) && 6 + i * 16 < file.size(); ++i) {
    const std::size_t start = numbers.Long(6 + i * 16 + 12);
    if (start >= file.size()) continue;
    const std::string_view content = file.substr(start);
    largest = Larger(largest, content.starts_with(kPngStart) ? PngSize(content) : BitmapSize(content));
  }
  return largest;
}

// Has no mark at its start, so the whole header has to make sense.
StatedSize TargaSize(std::string_view file) {
  constexpr std::size_t kHeader = 18;
  const Numbers numbers(file, false);
  const unsigned kind = numbers.Byte(2) & ~8u;
  const unsigned depth = numbers.Byte(16);
  const bool makesSense = file.size() > kHeader && numbers.Byte(1) <= 1 && kind >= 1 && kind <= 3 &&
                          (depth == 8 || depth == 15 || depth == 16 || depth == 24 || depth == 32);
  return makesSense ? StatedSize{numbers.Short(12), numbers.Short(14)} : StatedSize{};
}

struct Format {
  std::string_view start;
  StatedSize (*size)(std::string_view file);
};
constexpr Format kFormats[] = {
    {kPngStart, PngSize},  {kJpegStart, JpegSize}, {"GIF8"sv, GifSize},      {"BM"sv, BitmapFileSize},
    {"II*\0"sv, TiffSize}, {"MM\0*"sv, TiffSize},  {"\0\0\1\0"sv, IconSize}, {""sv, TargaSize},
};

// The tag in the first directory of a camera's notes.
int OrientationIn(std::string_view notes) {
  constexpr std::uint32_t kTag = 0x0112;
  constexpr std::uint32_t kShort = 3;
  if (!notes.starts_with("MM"sv) && !notes.starts_with("II"sv)) return 1;
  const Numbers numbers(notes, notes.starts_with("MM"sv));
  const std::size_t directory = numbers.Long(4);
  for (std::size_t i = 0; i < numbers.Short(directory); ++i) {
    const std::size_t entry = directory + 2 + i * 12;
    if (entry >= notes.size()) break;
    if (numbers.Short(entry) != kTag || numbers.Short(entry + 2) != kShort) continue;
    const std::uint32_t orientation = numbers.Short(entry + 8);
    return orientation >= 1 && orientation <= 8 ? static_cast<int>(orientation) : 1;
  }
  return 1;
}

}  // namespace

StatedSize LargestStatedSize(std::string_view file) {
  const auto* const format = std::find_if(std::begin(kFormats), std::end(kFormats),
                                          [&](const Format& known) { return file.starts_with(known.start); });
  return format->size(file);  // the last one fits every start
}

int StatedOrientation(std::string_view file) {
  constexpr unsigned kNotesKind = 0xE1;
  constexpr std::string_view kNotesName = "Exif\0\0"sv;
  int orientation = 1;
  if (!file.starts_with(kJpegStart)) return orientation;
  ForEachSegment(file, [&](const Segment& segment) {
    const std::string_view content = file.substr(std::min(segment.content, file.size()), segment.length);
    const bool isNotes = segment.kind == kNotesKind && content.starts_with(kNotesName);
    if (isNotes) orientation = OrientationIn(content.substr(kNotesName.size()));
    return !isNotes;
  });
  return orientation;
}

Picture Upright(const Picture& picture, int orientation) {
  if (orientation < 2 || orientation > 8) return picture;
  const bool turned = orientation >= 5;
  // Which ends of the stored rows and columns the upright picture begins at.
  const bool fromRight = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
  const bool fromBottom = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
  Picture upright = {turned ? picture.height : picture.width, turned ? picture.width : picture.height, {}};
  upright.pixels.reserve(picture.pixels.size());
  for (int y = 0; y < upright.height; ++y) {
    for (int x = 0; x < upright.width; ++x) {
      const int column = turned ? y : x;
      const int row = turned ? x : y;
      upright.pixels.push_back(picture.At(fromRight ? picture.width - 1 - column : column,
                                          fromBottom ? picture.height - 1 - row : row));
    }
  }
  return upright;
}

}  // namespace file_explorer::preview
