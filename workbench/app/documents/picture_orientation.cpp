#include "workbench/app/documents/picture_orientation.h"

#include <cstddef>
#include <utility>

#include "workbench/app/documents/byte_reader.h"

namespace workbench {
namespace {

using namespace std::string_view_literals;

constexpr std::string_view kJpegStart = "\xFF\xD8"sv;
constexpr std::string_view kExifName = "Exif\0\0"sv;
constexpr unsigned kApplicationSegment = 0xE1;
constexpr unsigned kStartOfScan = 0xDA;
constexpr unsigned kOrientationTag = 0x0112;
constexpr unsigned kShortType = 3;
constexpr std::size_t kEntrySize = 12;

// The tag in the first directory of the block behind the segment's name.
int OrientationIn(std::string_view block) {
  const bool bigEndian = block.starts_with("MM"sv);
  if (!bigEndian && !block.starts_with("II"sv)) return 1;
  const ByteReader reader(block, bigEndian);
  const std::size_t directory = reader.Long(4);
  const unsigned entries = reader.Short(directory);
  for (unsigned i = 0; i < entries; ++i) {
    const std::size_t entry = directory + 2 + std::size_t{i} * kEntrySize;
    if (entry >= block.size()) return 1;
    if (reader.Short(entry) != kOrientationTag || reader.Short(entry + 2) != kShortType) continue;
    const unsigned orientation = reader.Short(entry + 8);
    return orientation >= 1 && orientation <= 8 ? static_cast<int>(orientation) : 1;
  }
  return 1;
}

}  // namespace

int StatedOrientation(std::string_view file) {
  if (!file.starts_with(kJpegStart)) return 1;
  const ByteReader reader(file, true);
  std::size_t at = kJpegStart.size();
  while (at < file.size() && reader.Byte(at) == 0xFF) {
    const unsigned kind = reader.Byte(at + 1);
    const unsigned length = reader.Short(at + 2);  // counts itself
    if (kind == kStartOfScan || length < 2) return 1;
    const std::string_view segment = file.substr(at + 4 < file.size() ? at + 4 : file.size(), length - 2);
    if (kind == kApplicationSegment && segment.starts_with(kExifName)) {
      return OrientationIn(segment.substr(kExifName.size()));
    }
    at += 2 + length;
  }
  return 1;
}

PixelGrid Upright(PixelGrid picture, int orientation) {
  if (orientation < 2 || orientation > 8) return picture;
  const bool turned = orientation >= 5;
  const int width = picture.width;
  const int height = picture.height;
  PixelGrid upright = {turned ? height : width, turned ? width : height, {}};
  upright.pixels.reserve(picture.pixels.size());
  // Which end of the stored rows and columns the upright picture begins at.
  const bool fromRight = orientation == 2 || orientation == 3 || orientation == 7 || orientation == 8;
  const bool fromBottom = orientation == 3 || orientation == 4 || orientation == 6 || orientation == 7;
  for (int y = 0; y < upright.height; ++y) {
    for (int x = 0; x < upright.width; ++x) {
      const int storedX = turned ? y : x;
      const int storedY = turned ? x : y;
      upright.pixels.push_back(
          picture.At(fromRight ? width - 1 - storedX : storedX, fromBottom ? height - 1 - storedY : storedY));
    }
  }
  return upright;
}

}  // namespace workbench
