#include "src/preview/text_source.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>
#include <vector>

namespace file_explorer::preview {
namespace {

std::vector<std::vector<std::string>> Lines(TextSource text) {
  std::vector<std::vector<std::string>> lines;
  while (!text.AtEnd()) {
    lines.emplace_back();
    for (auto word = text.Word(); !word.empty(); word = text.Word()) lines.back().emplace_back(word);
    text.NextLine();
  }
  return lines;
}
using Words = std::vector<std::vector<std::string>>;

TEST(TextSource, GivesWordsLineByLine) {
  EXPECT_EQ(Lines(TextSource("v 1\t2\r\n\n f 3 ")), (Words{{"v", "1", "2"}, {}, {"f", "3"}}));
}

TEST(TextSource, KnowsEveryKindOfLineEnd) {
  EXPECT_EQ(Lines(TextSource("a\rb\nc\r\nd")), (Words{{"a"}, {"b"}, {"c"}, {"d"}}));
}

TEST(TextSource, JoinsContinuedLinesWhereTheyAreKnown) {
  EXPECT_EQ(Lines(TextSource("f 1 \\\n2\\\r\n 3\nv", true)), (Words{{"f", "1", "2", "3"}, {"v"}}));
  EXPECT_EQ(Lines(TextSource("f 1 \\\n2")), (Words{{"f", "1", "\\"}, {"2"}}));
}

TEST(TextSource, EndsBehindABackslashAtTheEnd) {
  EXPECT_EQ(Lines(TextSource("a \\", true)), (Words{{"a", "\\"}}));
}

TEST(TextSource, GivesWordsOfTheTextOverLines) {
  TextSource text("a\n\n b\r\n");
  EXPECT_EQ(text.WordOfText(), "a");
  EXPECT_EQ(text.WordOfText(), "b");
  EXPECT_EQ(text.WordOfText(), "");
  EXPECT_TRUE(text.AtEnd());
}

double Number(std::string_view word) {
  double value = -12345;
  return ReadNumber(word, &value) ? value : -12345;
}

TEST(TextSource, ReadsNumbers) {
  EXPECT_EQ(Number("1"), 1);
  EXPECT_EQ(Number("-2.5e3"), -2500);
  EXPECT_EQ(Number("+.5"), 0.5);
  EXPECT_EQ(Number("1e-400"), 0);
  EXPECT_TRUE(std::isinf(Number("1e400")));
  EXPECT_TRUE(std::isnan(Number("nan")));
}

TEST(TextSource, RefusesWhatIsNoNumber) {
  for (const char* const word : {"", "+", "-", "x", "1x", "++1", "0x10", "1,5"})
    EXPECT_EQ(Number(word), -12345) << word;
  EXPECT_EQ(Number(std::string(100000, '1')), -12345);
}

TEST(TextSource, ReadsWholeNumbersUpToFifteenDigits) {
  long long value = 0;
  EXPECT_TRUE(ReadWhole("-999999999999999", &value));
  EXPECT_EQ(value, -999999999999999);
  EXPECT_TRUE(ReadWhole("+7", &value));
  EXPECT_EQ(value, 7);
  for (const char* const word : {"", "-", "1.0", "1000000000000000", "a"})
    EXPECT_FALSE(ReadWhole(word, &value)) << word;
}

TEST(TextSource, ReadsNumbersOutOfALine) {
  TextSource text("1.5 -2e3\tnan x\n7");
  double value = 0;
  EXPECT_TRUE(text.Number(&value));
  EXPECT_EQ(value, 1.5);
  EXPECT_TRUE(text.Number(&value));
  EXPECT_EQ(value, -2000);
  EXPECT_TRUE(text.Number(&value));
  EXPECT_TRUE(std::isnan(value));
  EXPECT_FALSE(text.Number(&value)) << "a word that is none";
  EXPECT_TRUE(text.AtLineEnd());
  EXPECT_FALSE(text.Number(&value)) << "the line's end";
  EXPECT_TRUE(text.NextLineWithWords());
  EXPECT_TRUE(text.Number(&value));
  EXPECT_EQ(value, 7);
  EXPECT_FALSE(text.NextLineWithWords());
}

TEST(TextSource, ReadsNumbersThatGoOnInTheNextLine) {
  TextSource text("1.5\\\n 2 3\\\n", true);
  double value = 0;
  for (const double expected : {1.5, 2.0, 3.0}) {
    EXPECT_TRUE(text.Number(&value));
    EXPECT_EQ(value, expected);
  }
}

TEST(TextSource, ReadsWholeNumbersUpToASlash) {
  TextSource text("12/3/4 -5//6 +7 8/ x 9.5 1x 1000000000000000");
  long long value = 0;
  for (const long long expected : {12, -5, 7, 8}) {
    EXPECT_TRUE(text.Whole(&value));
    EXPECT_EQ(value, expected);
  }
  for (int i = 0; i < 5; ++i) EXPECT_FALSE(text.Whole(&value)) << i;
  EXPECT_TRUE(text.AtEnd());
}

TEST(TextSource, ReadsWhatIsNoNumberInTheOldNotation) {
  for (const char* const word : {"1.#IND", "-1.#IND", "-1.#IND00", "1.#QNAN", "1.#SNAN0"})
    EXPECT_TRUE(std::isnan(Number(word))) << word;
  EXPECT_TRUE(std::isinf(Number("1.#INF")));
  EXPECT_LT(Number("-1.#INF000"), -1e300);
  for (const char* const word : {"1.#", "1.#x", ".#IND", "#IND", "x.#IND", "1.#INFx"})
    EXPECT_EQ(Number(word), -12345) << word;
}

}  // namespace
}  // namespace file_explorer::preview
