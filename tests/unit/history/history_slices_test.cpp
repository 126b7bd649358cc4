#include "src/history/history_slices.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST(EntryOfKey, IsTheNumberOfAKeyThatTheProgramWrites) {
  EXPECT_EQ(EntryOfKey("d0"), 0);
  EXPECT_EQ(EntryOfKey("m12"), 12);
  EXPECT_EQ(EntryOfKey("P20000"), 20000);
  for (const char* const key :
       {"", "d", "d01", "d-1", "d+1", "d1x", "x1", "NumEntries", "dm1", "d 1", "d9999999999"})
    EXPECT_EQ(EntryOfKey(key), -1) << key;
}

// So many entries that are in no slice: a list that is as long as its last number says.
std::string Early(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += "\nd" + std::to_string(i % 1000) + "=x";
  return text;
}

TEST(CutHistory, GivesEachSliceItsEntriesAndEveryOtherLineInTheirOrder) {
  EXPECT_THAT(
      CutHistory(
          "; a remark\r\n[HistoryList]\r\nNumEntries=1300\r\nd5=early\r\n d1000 = first\r\nd1200=later\r\n"
          "d1000=second\r\n[Other]\r\nF1199=last of its slice" +
          Early(1300)),
      ElementsAre("; a remark\r\n[HistoryList]\r\nNumEntries=1300\r\n d1000 = first\r\nd1000=second\r\n"
                  "[Other]\r\nF1199=last of its slice\n",
                  "; a remark\r\n[HistoryList]\r\nNumEntries=1300\r\nd1200=later\r\n[Other]\r\n"));
}

TEST(CutHistory, MakesNoMoreSlicesThanTheListCanHave) {
  EXPECT_THAT(CutHistory("d1000=a\nd1001=b" + Early(1000)), SizeIs(1));
  EXPECT_THAT(CutHistory("d1000=a\nd999999999=c" + Early(1200)), SizeIs(2))
      << "reading ends long before the last one";
}

TEST(CutHistory, LeavesAloneWhatItCannotCut) {
  const std::string rest = Early(1100);
  ASSERT_THAT(CutHistory("d1000=a" + rest), SizeIs(1));
  EXPECT_THAT(CutHistory("d999=a" + rest), IsEmpty()) << "no entry to cut";
  EXPECT_THAT(CutHistory("d1000=a"), IsEmpty()) << "never reached";
  EXPECT_THAT(CutHistory(""), IsEmpty());
  EXPECT_THAT(CutHistory("d1000=a\rb" + rest), IsEmpty());
  EXPECT_THAT(CutHistory("d1000=a" + rest + "\r"), IsEmpty());
  EXPECT_THAT(CutHistory("d1000=a\x1A" + rest), IsEmpty());
  EXPECT_THAT(CutHistory("d1000=a" + std::string(1, '\0') + rest), IsEmpty());
  EXPECT_THAT(CutHistory("\xFF\xFE"
                         "d1000=a" +
                         rest),
              IsEmpty());
}

TEST(CutHistory, DoesNotRepeatALotOfOtherTextManyTimes) {
  const std::string remarks(std::size_t{8} << 20, ';');
  EXPECT_THAT(CutHistory(remarks + "\nd1000=a" + Early(1100)), SizeIs(1));
  EXPECT_THAT(CutHistory(remarks + "\nd9000=a" + Early(9100)), IsEmpty());
}

}  // namespace
}  // namespace file_explorer
