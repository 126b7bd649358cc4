#include "src/shellhost/control_values.h"

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <limits>
#include <set>

namespace file_explorer {
namespace {

TEST(PidlValues, WritingCopiesTheBitsWithoutConversion) {
  for (const std::uint64_t address :
       {0x0ull, 0x1ull, 0x7FFE12345678ull, 0xFFFFFFFFFFFFFFFFull, 0x7FF0000000000001ull}) {
    EXPECT_EQ(std::bit_cast<std::uint64_t>(PidlBitsAsDouble(address)), address);
  }
}

TEST(PidlValues, ReadingTruncatesTheNumber) {
  EXPECT_EQ(AddressFromNumber(0.0), 0u);
  EXPECT_EQ(AddressFromNumber(4096.0), 4096u);
  EXPECT_EQ(AddressFromNumber(4096.99), 4096u);
  EXPECT_EQ(AddressFromNumber(140737488355327.0), 0x7FFFFFFFFFFFu);
  EXPECT_EQ(AddressFromNumber(-1.5), 0xFFFFFFFFFFFFFFFFu);
}

TEST(PidlValues, TheTwoDirectionsDifferOnPurpose) {
  EXPECT_EQ(AddressFromNumber(PidlBitsAsDouble(0x123456)), 0u);
}

TEST(PidlValues, WhatNoIntegerHoldsGivesNoAddress) {
  EXPECT_EQ(AddressFromNumber(std::nan("")), 0u);
  EXPECT_EQ(AddressFromNumber(std::numeric_limits<double>::infinity()), 0u);
  EXPECT_EQ(AddressFromNumber(-std::numeric_limits<double>::infinity()), 0u);
  EXPECT_EQ(AddressFromNumber(9223372036854775808.0), 0u);
  EXPECT_EQ(AddressFromNumber(-9223372036854775808.0), 0x8000000000000000u);
  EXPECT_EQ(AddressFromNumber(std::numeric_limits<double>::max()), 0u);
}

TEST(DisplayModes, EachNameHasItsViewValue) {
  EXPECT_EQ(ViewValueOfDisplayMode("LargeIcon"), 0);
  EXPECT_EQ(ViewValueOfDisplayMode("Report"), 1);
  EXPECT_EQ(ViewValueOfDisplayMode("SmallIcon"), 2);
  EXPECT_EQ(ViewValueOfDisplayMode("List"), 3);
  EXPECT_EQ(ViewValueOfDisplayMode("Thumbnails"), 4);
}

TEST(DisplayModes, NamesAreComparedExactlyInCaseAndLength) {
  for (const char* name :
       {"smallicon", "SMALLICON", "SmallIco", "SmallIcons", "", " List", "Details", "report"}) {
    EXPECT_FALSE(ViewValueOfDisplayMode(name)) << name;
  }
}

TEST(EventValues, NumbersAreSignExtendedFromTheirLow16Bits) {
  EXPECT_EQ(EventNumber(0), 0);
  EXPECT_EQ(EventNumber(5), 5);
  EXPECT_EQ(EventNumber(-1), -1);
  EXPECT_EQ(EventNumber(32767), 32767);
  EXPECT_EQ(EventNumber(32768), -32768);
  EXPECT_EQ(EventNumber(65535), -1);
  EXPECT_EQ(EventNumber(65536), 0);
  EXPECT_EQ(EventNumber(0x12345678), 0x5678);
  EXPECT_EQ(EventNumber(static_cast<std::int32_t>(0x8000FFFE)), -2);
}

TEST(EventValues, FlagsAreZeroOrMinusOne) {
  EXPECT_EQ(EventFlag(0), 0);
  EXPECT_EQ(EventFlag(-1), -1);
  EXPECT_EQ(EventFlag(1), -1);
}

std::set<int> KnownEvents(bool (*known)(std::int32_t)) {
  std::set<int> result;
  for (int id = -1000; id <= 1000; ++id) {
    if (known(id)) result.insert(id);
  }
  return result;
}

std::set<int> UpTo(int last, std::set<int> stock) {
  for (int id = 1; id <= last; ++id) stock.insert(id);
  return stock;
}

TEST(EventTables, KnowTheirDispatchIdsAndNoOthers) {
  EXPECT_EQ(KnownEvents(IsFileViewEvent), UpTo(25, {-600, -601, -602, -604, -605, -606, -607}));
  EXPECT_EQ(KnownEvents(IsFolderViewEvent), UpTo(21, {-600, -601, -602, -604, -605, -606, -607}));
  EXPECT_EQ(KnownEvents(IsComboViewEvent), UpTo(6, {-602, -604, -606}));
}

TEST(EventTables, TheStockKeypressEventIsDeliberatelyAbsent) {
  EXPECT_FALSE(IsFileViewEvent(-603));
  EXPECT_FALSE(IsFolderViewEvent(-603));
  EXPECT_FALSE(IsComboViewEvent(-603));
}

TEST(Himetric, ConvertsByTheScreensResolution) {
  EXPECT_EQ(PixelsToHimetric(96, 96), 2540);
  EXPECT_EQ(PixelsToHimetric(1, 96), 26);
  EXPECT_EQ(PixelsToHimetric(-96, 96), -2540);
  EXPECT_EQ(PixelsToHimetric(144, 144), 2540);
  EXPECT_DOUBLE_EQ(HimetricToPixels(2540, 96), 96.0);
  EXPECT_DOUBLE_EQ(HimetricToPixels(1270, 144), 72.0);
  EXPECT_DOUBLE_EQ(HimetricToPixels(-2540, 96), -96.0);
}

TEST(Himetric, OddInputsStayInRange) {
  EXPECT_EQ(PixelsToHimetric(10, 0), 0);
  EXPECT_EQ(PixelsToHimetric(std::nan(""), 96), 0);
  EXPECT_EQ(PixelsToHimetric(1e300, 96), std::numeric_limits<std::int32_t>::max());
  EXPECT_EQ(PixelsToHimetric(-1e300, 96), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(HimetricToPixels(100, 0), 0);
  EXPECT_EQ(HimetricToPixels(100, -5), 0);
}

}  // namespace
}  // namespace file_explorer
