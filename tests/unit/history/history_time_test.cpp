#include <gtest/gtest.h>

#include "src/history/history_entry.h"

namespace file_explorer {
namespace {

HistoryTime Date(unsigned year, unsigned month, unsigned day) {
  HistoryTime time;
  time.year = static_cast<std::uint16_t>(year);
  time.month = static_cast<std::uint16_t>(month);
  time.day = static_cast<std::uint16_t>(day);
  return time;
}

TEST(HistoryTimeConversion, CountsFromTheYear1601) {
  EXPECT_EQ(ToFileTime(Date(1601, 1, 1)), 0u);
  EXPECT_EQ(ToFileTime(Date(1970, 1, 1)), 116444736000000000u);
  HistoryTime time = Date(2000, 2, 29);
  time.hour = 23;
  time.minute = 59;
  time.second = 59;
  time.milliseconds = 999;
  EXPECT_EQ(ToFileTime(time), (11644473600u + 951868799u) * 10000000u + 9990000u);
}

TEST(HistoryTimeConversion, RefusesDatesThatDoNotExist) {
  EXPECT_FALSE(ToFileTime(HistoryTime()));
  EXPECT_FALSE(ToFileTime(Date(1600, 12, 31)));
  EXPECT_FALSE(ToFileTime(Date(30828, 1, 1)));
  EXPECT_FALSE(ToFileTime(Date(2026, 13, 1)));
  EXPECT_FALSE(ToFileTime(Date(2026, 2, 29)));
  EXPECT_FALSE(ToFileTime(Date(2100, 2, 29)));
  EXPECT_TRUE(ToFileTime(Date(2400, 2, 29)));
  HistoryTime time = Date(2026, 1, 1);
  time.hour = 24;
  EXPECT_FALSE(ToFileTime(time));
}

TEST(HistoryTimeConversion, TheDayOfTheWeekDoesNotMatter) {
  HistoryTime time = Date(2026, 11, 16);
  time.dayOfWeek = 9;
  EXPECT_EQ(ToFileTime(time), ToFileTime(Date(2026, 11, 16)));
}

}  // namespace
}  // namespace file_explorer
