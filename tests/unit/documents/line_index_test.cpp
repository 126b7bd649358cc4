#include "workbench/app/documents/line_index.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

TEST(LineIndex, EndsLinesAtEveryKindOfLineEnd) {
  const std::u16string text = u"one\ntwo\r\nthree\rfour";
  const LineIndex index(text);
  ASSERT_EQ(index.rows(), 4u);
  EXPECT_EQ(index.lines(), 4u);
  EXPECT_EQ(index.Row(0), u"one");
  EXPECT_EQ(index.Row(1), u"two");
  EXPECT_EQ(index.Row(2), u"three");
  EXPECT_EQ(index.Row(3), u"four");
  EXPECT_EQ(index.widestRow(), 5);
}

TEST(LineIndex, GivesAnEmptyTextOneRow) {
  const std::u16string text;
  const LineIndex index(text);
  EXPECT_EQ(index.rows(), 1u);
  EXPECT_EQ(index.Row(0), u"");
  EXPECT_EQ(index.RowOf(0), 0u);
  EXPECT_EQ(index.PositionAt(0, 5), 0u);
  EXPECT_EQ(index.ColumnAt(0), 0);
}

TEST(LineIndex, CountsALineBehindTheLastLineEnd) {
  const std::u16string text = u"a\n\n";
  const LineIndex index(text);
  EXPECT_EQ(index.rows(), 3u);
  EXPECT_EQ(index.Row(1), u"");
  EXPECT_EQ(index.Row(2), u"");
}

TEST(LineIndex, BreaksAVeryLongLineWithoutCuttingACharacter) {
  std::u16string text(LineIndex::kLongestRow - 1, u'x');
  text += u"\xD83D\xDE00";  // takes two units and would straddle the border
  text += u"y\nz";
  const LineIndex index(text);
  ASSERT_EQ(index.rows(), 3u);
  EXPECT_EQ(index.lines(), 2u);
  EXPECT_EQ(index.Row(0).size(), LineIndex::kLongestRow - 1);
  EXPECT_EQ(index.Row(1), u"\xD83D\xDE00y");
  EXPECT_EQ(index.Row(2), u"z");
}

TEST(LineIndex, KeepsALineOfExactlyTheLongestRowInOneRow) {
  const std::u16string text = std::u16string(LineIndex::kLongestRow, u'x') + u"\r\n" + u"end";
  const LineIndex index(text);
  ASSERT_EQ(index.rows(), 2u);
  EXPECT_EQ(index.Row(0).size(), LineIndex::kLongestRow);
  EXPECT_EQ(index.Row(1), u"end");
}

TEST(LineIndex, PutsCharactersOnColumns) {
  const std::u16string text = u"a\tb\u65E5c\u0301d";
  const LineIndex index(text);
  EXPECT_EQ(index.ColumnAt(1), 1);
  EXPECT_EQ(index.ColumnAt(2), 8);   // behind the tab
  EXPECT_EQ(index.ColumnAt(4), 11);  // behind a wide character
  EXPECT_EQ(index.ColumnAt(6), 12);  // a combining mark takes no column
  EXPECT_EQ(index.widestRow(), 13);
  EXPECT_EQ(index.PositionAt(0, 0), 0u);
  EXPECT_EQ(index.PositionAt(0, 5), 1u);  // inside the tab
  EXPECT_EQ(index.PositionAt(0, 8), 2u);
  EXPECT_EQ(index.PositionAt(0, 10), 3u);  // second half of the wide character
  EXPECT_EQ(index.PositionAt(0, 99), text.size());
}

TEST(LineIndex, FindsTheRowOfAPosition) {
  const std::u16string text = u"ab\r\ncd";
  const LineIndex index(text);
  EXPECT_EQ(index.RowOf(0), 0u);
  EXPECT_EQ(index.RowOf(3), 0u);  // between the halves of the line end
  EXPECT_EQ(index.ColumnAt(3), 2);
  EXPECT_EQ(index.RowOf(4), 1u);
  EXPECT_EQ(index.RowOf(6), 1u);
}

TEST(WordAt, TakesLettersAndDigitsTogether) {
  const std::u16string text = u"one two_2, \u00E4\u00F6!";
  const auto word = [&](std::size_t at) {
    const TextRange range = WordAt(text, at);
    return text.substr(range.first, range.last - range.first);
  };
  EXPECT_EQ(word(1), u"one");
  EXPECT_EQ(word(4), u"two_2");
  EXPECT_EQ(word(9), u",");
  EXPECT_EQ(word(11), u"\u00E4\u00F6");
  EXPECT_EQ(word(99), u"!");
  EXPECT_EQ(WordAt(u"", 0).last, 0u);
}

}  // namespace
}  // namespace workbench
