#include "base/text/byte_search.h"

#include <gtest/gtest.h>

#include <random>
#include <string>

namespace base {
namespace {

constexpr BytePattern kLetter = {{'a', 'A'}, {}, false};
constexpr BytePattern kPair = {{'a', 'A'}, {'b', 'B'}, true};

TEST(FindBytes, FindsEitherValueAtEveryPlaceOfTextsOfEveryLength) {
  for (std::size_t length = 1; length < 70; ++length) {
    for (std::size_t place = 0; place < length; ++place) {
      std::string text(length, '.');
      text[place] = place % 2 != 0 ? 'a' : 'A';
      EXPECT_EQ(FindBytes(text, 0, kLetter), place);
      EXPECT_EQ(FindBytes(text, place, kLetter), place);
      EXPECT_EQ(FindBytes(text, place + 1, kLetter), std::string::npos);
      EXPECT_EQ(FindBytes(text, 0, kPair), std::string::npos);
      if (place + 1 == length) continue;
      text[place + 1] = 'b';
      EXPECT_EQ(FindBytes(text, 0, kPair), place);
    }
  }
}

TEST(FindBytes, FindsNothingInNothing) {
  EXPECT_EQ(FindBytes("", 0, kLetter), std::string::npos);
  EXPECT_EQ(FindBytes("", 0, kPair), std::string::npos);
  EXPECT_EQ(FindBytes("a", 0, kPair), std::string::npos);
  EXPECT_EQ(FindBytes("a", 1, kLetter), std::string::npos);
}

// The memory ends with the text, so that a sanitizer sees a byte read too many.
TEST(FindBytes, AgreesWithThePlainSearch) {
  std::mt19937 random(3);
  for (int i = 0; i < 20'000; ++i) {
    std::string text(random() % 60, '\0');
    for (char& c : text) c = "abAB\xC3\xA4."[random() % 8];
    text.shrink_to_fit();
    BytePattern pattern = kPair;
    pattern.first[1] = static_cast<unsigned char>("aA\xC3"[random() % 4]);
    pattern.hasSecond = random() % 2 != 0;
    const std::size_t from = random() % (text.size() + 1);
    ASSERT_EQ(FindBytes(text, from, pattern), FindBytesPlainly(text, from, pattern)) << text << " " << from;
  }
}

}  // namespace
}  // namespace base
