#include "workbench/app/documents/picture_size.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

using namespace std::string_literals;

void ExpectSize(const std::string& file, std::uint64_t width, std::uint64_t height) {
  const StatedSize size = LargestStatedSize(file);
  EXPECT_EQ(size.width, width);
  EXPECT_EQ(size.height, height);
}

const std::string kPng = "\x89PNG\r\n\x1A\n\0\0\0\x0DIHDR\0\0\xEA\x60\0\0\x01\x02\x08\x06\0\0\0"s;
const std::string kInformationHeader =
    "\x28\0\0\0\x10\x27\0\0\xF0\xD8\xFF\xFF\x01\0\x18\0"s;  // 10,000 x -10,000

TEST(LargestStatedSize, ReadsEveryKnownHeader) {
  ExpectSize(kPng, 60000, 258);
  ExpectSize("BM"s + std::string(12, '\0') + kInformationHeader, 10000, 10000);
  ExpectSize("BM"s + std::string(12, '\0') + "\x0C\0\0\0\x05\0\x06\0"s, 5, 6);
  ExpectSize("\xFF\xD8\xFF\xE0\0\x04xx\xFF\xFF\xC2\0\x0B\x08\x01\x00\x02\x03\x01\x01\x11\0\xFF\xDA\0\0"s, 515,
             256);
  ExpectSize("GIF89a\x07\0\x08\0\0\0\0"s, 7, 8);
  ExpectSize("II*\0\x08\0\0\0\x02\0\0\x01\x03\0\x01\0\0\0\x09\0\0\0\x01\x01\x04\0\x01\0\0\0\x0A\0\0\0"s, 9,
             10);
  ExpectSize("MM\0*\0\0\0\x08\0\x02\x01\0\0\x03\0\0\0\x01\0\x09\0\0\x01\x01\0\x04\0\0\0\x01\0\0\0\x0A"s, 9,
             10);
}

TEST(LargestStatedSize, LooksAtEveryFrameOfAGif) {
  const std::string screen = "GIF89a\x02\0\x02\0\x80\0\0"s + std::string(6, 'c');
  const std::string extension = "\x21\xF9\x04\0\0\0\0\0"s;
  const std::string small = "\x2C\0\0\0\0\x02\0\x02\0\0\x02\x02xx\0"s;
  const std::string large = "\x2C\0\0\0\0\xFF\xFF\xFE\xFF\x80"s + std::string(6, 'c') + "\x02\x01x\0"s;
  ExpectSize(screen + extension + small + "\x3B", 2, 2);
  ExpectSize(screen + small + extension + large + "\x3B", 65535, 65534);
}

TEST(LargestStatedSize, LooksAtEveryPictureOfAnIcon) {
  std::string icon = "\0\0\1\0\x02\0"s;
  icon += std::string(12, '\0') + "\x26\0\0\0"s;  // at 38
  icon += std::string(12, '\0') + static_cast<char>(38 + kInformationHeader.size()) + "\0\0\0"s;
  ExpectSize(icon + kInformationHeader + kPng, 10000, 10000);
}

TEST(LargestStatedSize, IsNothingForOtherAndBrokenFiles) {
  for (const std::string& file : {""s, "text"s, "\xFF\xD8"s, "\xFF\xD8\xFF\xE0\0\0xxxxxxxxxx"s,
                                  "\0\0\1\0\x01\0"s, "II*\0\xFF\xFF\xFF\xFF"s, "BM"s}) {
    EXPECT_EQ(LargestStatedSize(file).pixels(), 0u);
  }
}

TEST(LargestStatedSize, StandsFilesThatAreCutOffAnywhere) {
  for (std::size_t size = 0; size < kPng.size(); ++size) LargestStatedSize(kPng.substr(0, size));
  ExpectSize(kPng.substr(0, 22), 60000, 0);
}

}  // namespace
}  // namespace workbench
