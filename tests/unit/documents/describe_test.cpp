#include "workbench/app/documents/describe.h"

#include <gtest/gtest.h>

#include <limits>

namespace workbench {
namespace {

TEST(ExactSize, GroupsDigits) {
  EXPECT_EQ(ExactSize(0), "0 bytes");
  EXPECT_EQ(ExactSize(1), "1 byte");
  EXPECT_EQ(ExactSize(999), "999 bytes");
  EXPECT_EQ(ExactSize(1000), "1,000 bytes");
  EXPECT_EQ(ExactSize(1234567), "1,234,567 bytes");
  EXPECT_EQ(ExactSize(std::numeric_limits<std::uint64_t>::max()), "18,446,744,073,709,551,615 bytes");
}

TEST(RoundedSize, HasThreeSignificantDigits) {
  EXPECT_EQ(RoundedSize(1023), "1,023 bytes");
  EXPECT_EQ(RoundedSize(1024), "1.00 KB");
  EXPECT_EQ(RoundedSize(1234567), "1.18 MB");
  EXPECT_EQ(RoundedSize(10 * 1024), "10.0 KB");
  EXPECT_EQ(RoundedSize(100 * 1024), "100 KB");
  EXPECT_EQ(RoundedSize(1023 * 1024), "1.00 MB") << "four digits would be too many";
  EXPECT_EQ(RoundedSize(10234), "9.99 KB");
  EXPECT_EQ(RoundedSize(10239), "10.0 KB");
  EXPECT_EQ(RoundedSize(std::numeric_limits<std::uint64_t>::max()), "16.0 EB");
}

TEST(FullSize, SaysASmallSizeOnce) {
  EXPECT_EQ(FullSize(12), "12 bytes");
  EXPECT_EQ(FullSize(2048), "2.00 KB (2,048 bytes)");
}

TEST(FormatDateTime, WritesTheMonthAsAWord) {
  EXPECT_EQ(FormatDateTime({2026, 11, 21, 9, 5}), "21 November 2026, 09:05");
  EXPECT_EQ(FormatDateTime({2000, 1, 1, 0, 0}), "1 January 2000, 00:00");
  EXPECT_EQ(FormatDateTime({}), "");
  EXPECT_EQ(FormatDateTime({2000, 13, 1, 0, 0}), "");
}

TEST(DescribeType, GoesByTheExtension) {
  EXPECT_EQ(DescribeType("a.png").description, "PNG picture");
  EXPECT_EQ(DescribeType("A.PnG").kind, FileKind::kPicture);
  EXPECT_EQ(DescribeType("c:\\x.zip\\cube.3ds").kind, FileKind::kModel);
  EXPECT_EQ(DescribeType("a.tar.gz").description, "Compressed file");
  EXPECT_EQ(DescribeType("a.xyz").description, "XYZ file");
}

TEST(DescribeType, CallsAFileWithoutAUsableExtensionAFile) {
  for (const char* name :
       {"README", ".profile", "dot.", "a.\xC3\xA4", "a.averyverylongextension", "", "a.b c"}) {
    EXPECT_EQ(DescribeType(name).description, "File") << name;
    EXPECT_EQ(DescribeType(name).kind, FileKind::kOther) << name;
  }
}

}  // namespace
}  // namespace workbench
