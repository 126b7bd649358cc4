#include "workbench/controls/archive/dos_time.h"

#include <gtest/gtest.h>

#include "tests/support/zip_builder.h"

namespace {

using controls::TicksOfDosTime;
using test_support::DosDate;
using test_support::DosTime;

constexpr uint64_t kSecond = 10'000'000;
constexpr uint64_t kDay = 24 * 60 * 60 * kSecond;
// 1980-01-01 lies 138426 days behind 1601-01-01.
constexpr uint64_t kFirstDay = 138426 * kDay;

TEST(DosTime, CountsFromItsFirstDay) {
  EXPECT_EQ(TicksOfDosTime(DosDate(1980, 1, 1), 0), kFirstDay);
  EXPECT_EQ(TicksOfDosTime(DosDate(1980, 1, 1), DosTime(1, 2, 4)), kFirstDay + (3600 + 2 * 60 + 4) * kSecond);
}

TEST(DosTime, KnowsTheLengthsOfMonthsAndYears) {
  EXPECT_EQ(TicksOfDosTime(DosDate(1980, 3, 1), 0), kFirstDay + 60 * kDay) << "1980 is a leap year";
  EXPECT_EQ(TicksOfDosTime(DosDate(1981, 3, 1), 0), kFirstDay + (366 + 59) * kDay);
  EXPECT_EQ(TicksOfDosTime(DosDate(2100, 3, 1), 0) - TicksOfDosTime(DosDate(2100, 2, 28), 0), kDay)
      << "2100 is none";
  // 2021-03-04 05:06:08 as the system itself counts it.
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 3, 4), DosTime(5, 6, 8)), 132593079680000000u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2107, 12, 31), DosTime(23, 59, 58)), 159992927980000000u);
}

TEST(DosTime, DaysAndTimesThatDoNotExistAreUnknown) {
  EXPECT_EQ(TicksOfDosTime(0, 0), 0u) << "what writers put who know no time";
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 0, 4), 0), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 13, 4), 0), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 15, 31), 0), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 4, 0), 0), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 4, 31), 0), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 2, 29), 0), 0u);
  EXPECT_NE(TicksOfDosTime(DosDate(2024, 2, 29), 0), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 4, 1), DosTime(24, 0, 0)), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 4, 1), DosTime(0, 60, 0)), 0u);
  EXPECT_EQ(TicksOfDosTime(DosDate(2021, 4, 1), DosTime(0, 0, 60)), 0u);
  EXPECT_EQ(TicksOfDosTime(0xFFFF, 0xFFFF), 0u);
}

}  // namespace
