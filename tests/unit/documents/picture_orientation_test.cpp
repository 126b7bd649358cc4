#include "workbench/app/documents/picture_orientation.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

using namespace std::string_literals;

std::string Segment(char kind, const std::string& content) {
  const std::size_t length = content.size() + 2;
  return "\xFF"s + kind + static_cast<char>(length / 256) + static_cast<char>(length % 256) + content;
}

// A photograph's beginning: another segment, then one that states the orientation as the second entry of two.
std::string Photograph(bool bigEndian, char orientation) {
  const std::string block =
      bigEndian ? "MM\0*\0\0\0\x08\0\x02\x01\x0F\0\x03\0\0\0\x01\0\x07\0\0\x01\x12\0\x03\0\0\0\x01\0"s +
                      orientation + "\0\0"s
                : "II*\0\x08\0\0\0\x02\0\x0F\x01\x03\0\x01\0\0\0\x07\0\0\0\x12\x01\x03\0\x01\0\0\0"s +
                      orientation + "\0\0\0"s;
  return "\xFF\xD8"s + Segment('\xE0', "JFIF\0"s) + Segment('\xE1', "Exif\0\0"s + block) + "\xFF\xDA";
}

TEST(StatedOrientation, IsReadInBothByteOrders) {
  for (char orientation = 1; orientation <= 8; ++orientation) {
    EXPECT_EQ(StatedOrientation(Photograph(false, orientation)), orientation);
    EXPECT_EQ(StatedOrientation(Photograph(true, orientation)), orientation);
  }
}

TEST(StatedOrientation, IsUprightForEverythingElse) {
  EXPECT_EQ(StatedOrientation(""), 1);
  EXPECT_EQ(StatedOrientation("\x89PNG"), 1);
  EXPECT_EQ(StatedOrientation("\xFF\xD8"), 1);
  EXPECT_EQ(StatedOrientation("\xFF\xD8\xFF"), 1);
  EXPECT_EQ(StatedOrientation("\xFF\xD8\xFF\xE1\0\0"s), 1);
  EXPECT_EQ(StatedOrientation(Photograph(true, 0)), 1);
  EXPECT_EQ(StatedOrientation(Photograph(true, 9)), 1);
  EXPECT_EQ(StatedOrientation("\xFF\xD8"s + Segment('\xE1', "http://other\0"s)), 1);
}

TEST(StatedOrientation, StandsAFileThatIsCutOffAnywhere) {
  for (const bool bigEndian : {false, true}) {
    const std::string whole = Photograph(bigEndian, 6);
    for (std::size_t size = 0; size < whole.size(); ++size) {
      const int orientation = StatedOrientation(whole.substr(0, size));
      EXPECT_TRUE(orientation == 1 || orientation == 6);
    }
  }
}

// Stored as   1 2 3   for every orientation.
//             4 5 6
TEST(Upright, TurnsAndMirrors) {
  const PixelGrid stored = {3, 2, {1, 2, 3, 4, 5, 6}};
  using Pixels = std::vector<std::uint32_t>;
  EXPECT_EQ(Upright(stored, 1).pixels, (Pixels{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(Upright(stored, 2).pixels, (Pixels{3, 2, 1, 6, 5, 4}));
  EXPECT_EQ(Upright(stored, 3).pixels, (Pixels{6, 5, 4, 3, 2, 1}));
  EXPECT_EQ(Upright(stored, 4).pixels, (Pixels{4, 5, 6, 1, 2, 3}));
  EXPECT_EQ(Upright(stored, 5).pixels, (Pixels{1, 4, 2, 5, 3, 6}));
  EXPECT_EQ(Upright(stored, 6).pixels, (Pixels{4, 1, 5, 2, 6, 3}));
  EXPECT_EQ(Upright(stored, 7).pixels, (Pixels{6, 3, 5, 2, 4, 1}));
  EXPECT_EQ(Upright(stored, 8).pixels, (Pixels{3, 6, 2, 5, 1, 4}));
  EXPECT_EQ(Upright(stored, 6).width, 2);
  EXPECT_EQ(Upright(stored, 6).height, 3);
  EXPECT_EQ(Upright(stored, 0).pixels, stored.pixels);
  EXPECT_EQ(Upright(stored, 9).pixels, stored.pixels);
}

}  // namespace
}  // namespace workbench
