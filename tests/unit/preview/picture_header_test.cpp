#include "src/preview/picture_header.h"

#include <gtest/gtest.h>

#include <string>

#include "tests/unit/preview/model_files.h"

namespace file_explorer::preview {
namespace {

using model_files::Bytes;
using namespace std::string_literals;

std::string Short(unsigned value, bool big = false) {
  return Bytes(static_cast<std::uint16_t>(value), big);
}
std::string Long(std::uint32_t value, bool big = false) {
  return Bytes(value, big);
}

void ExpectSize(const std::string& file, std::uint64_t width, std::uint64_t height) {
  const StatedSize size = LargestStatedSize(file);
  EXPECT_EQ(size.width, width);
  EXPECT_EQ(size.height, height);
  // No beginning of the file is read beyond its end.
  for (std::size_t length = 0; length < file.size(); ++length)
    LargestStatedSize(std::string(file, 0, length));
}

std::string Png(std::uint32_t width, std::uint32_t height) {
  return "\x89PNG\r\n\x1A\n\0\0\0\rIHDR"s + Long(width, true) + Long(height, true);
}
std::string JpegFrame(unsigned width, unsigned height) {
  return "\xFF\xC2"s + Short(11, true) + "\x08"s + Short(height, true) + Short(width, true) + "\1\1\1\0"s;
}
std::string Exif(const std::string& notes) {
  return "\xFF\xE1"s + Short(static_cast<unsigned>(notes.size() + 8), true) + "Exif\0\0"s + notes;
}

TEST(StatedSize, OfEachKindOfPicture) {
  ExpectSize(Png(640, 4000000000u), 640, 4000000000u);
  ExpectSize("\xFF\xD8"s + Exif("II") + "\xFF\xFF"s + JpegFrame(300, 200) + "\xFF\xDA"s, 300, 200);
  ExpectSize("BM"s + std::string(12, '\0') + Long(40) + Long(33) + Long(0xFFFFFFF0u), 33, 16);
  ExpectSize("BM"s + std::string(12, '\0') + Long(12) + Short(7) + Short(9), 7, 9);
  ExpectSize("II*\0"s + Long(8) + Short(2) + Short(256) + Short(3) + Long(1) + Long(50) + Short(257) +
                 Short(4) + Long(1) + Long(70000),
             50, 70000);
  ExpectSize("MM\0*"s + Long(8, true) + Short(1, true) + Short(256, true) + Short(3, true) + Long(1, true) +
                 Short(50, true) + Short(0, true),
             50, 0);
  ExpectSize("\0\0\2"s + std::string(9, '\0') + Short(320) + Short(240) + "\x18\0more"s, 320, 240);
}

TEST(StatedSize, CountsTheLargestFrameAndThePicturesInsideAnIcon) {
  ExpectSize("GIF89a"s + Short(10) + Short(10) + "\0\0\0"s + ","s + Short(0) + Short(0) + Short(5000) +
                 Short(6000) + "\0\2\1x\0;"s,
             5000, 6000);
  ExpectSize("\0\0\1\0"s + Short(1) + std::string(12, '\0') + Long(22) + Png(70000, 80000), 70000, 80000);
}

TEST(StatedSize, UnknownFilesStateNone) {
  ExpectSize("", 0, 0);
  ExpectSize("just some text that is no picture at all", 0, 0);
}

std::string Held(unsigned orientation, bool big) {
  return (big ? "MM\0*"s : "II*\0"s) + Long(8, big) + Short(1, big) + Short(0x112, big) + Short(3, big) +
         Long(1, big) + Short(orientation, big) + Short(0, big);
}

TEST(Orientation, IsReadFromTheCamerasNotes) {
  for (const bool big : {false, true}) {
    EXPECT_EQ(StatedOrientation("\xFF\xD8"s + Exif(Held(6, big))), 6);
    EXPECT_EQ(StatedOrientation("\xFF\xD8"s + Exif(Held(9, big))), 1);
  }
  EXPECT_EQ(StatedOrientation("\xFF\xD8"s + JpegFrame(1, 1)), 1);
  EXPECT_EQ(StatedOrientation(Png(1, 1)), 1);
  EXPECT_EQ(StatedOrientation("\xFF\xD8"s + Exif("II*\0\xFF\xFF\xFF\xFF"s)), 1);
}

TEST(Orientation, TurnsAndMirrors) {
  const Picture stored = {3, 2, {1, 2, 3, 4, 5, 6}};
  const auto upright = [&](int orientation) { return Upright(stored, orientation).pixels; };
  using Pixels = std::vector<std::uint32_t>;
  EXPECT_EQ(upright(1), (Pixels{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(upright(2), (Pixels{3, 2, 1, 6, 5, 4}));
  EXPECT_EQ(upright(3), (Pixels{6, 5, 4, 3, 2, 1}));
  EXPECT_EQ(upright(4), (Pixels{4, 5, 6, 1, 2, 3}));
  EXPECT_EQ(upright(5), (Pixels{1, 4, 2, 5, 3, 6}));
  EXPECT_EQ(upright(6), (Pixels{4, 1, 5, 2, 6, 3}));
  EXPECT_EQ(upright(7), (Pixels{6, 3, 5, 2, 4, 1}));
  EXPECT_EQ(upright(8), (Pixels{3, 6, 2, 5, 1, 4}));
  EXPECT_EQ(Upright(stored, 6).width, 2);
  EXPECT_EQ(upright(0), (Pixels{1, 2, 3, 4, 5, 6}));
}

}  // namespace
}  // namespace file_explorer::preview
