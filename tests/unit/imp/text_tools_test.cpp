#include "workbench/imp/text_tools.h"

#include <gtest/gtest.h>

namespace workbench::imp {
namespace {

TEST(StripWhitespace, TakesBothEndsAndLeavesTheMiddle) {
  EXPECT_EQ(StripWhitespace(" \t\r\n\v\f a b\tc \f\v\n\r\t "), "a b\tc");
  EXPECT_EQ(StripWhitespace("abc"), "abc");
  EXPECT_EQ(StripWhitespace(" \t "), "");
  EXPECT_EQ(StripWhitespace(""), "");
}

TEST(StripWhitespace, LeavesBytesOutsideAsciiAlone) {
  EXPECT_EQ(StripWhitespace("\xA0 a\x85"), "\xA0 a\x85");
}

TEST(HelpPagePath, IsTheTopicsPageInTheHelpFilesFolder) {
  EXPECT_EQ(HelpPagePath("c:\\help", "ui_file_explorer.hlp", "main"),
            "c:\\help\\ui_file_explorer\\main.html");
  EXPECT_EQ(HelpPagePath("c:\\help\\", "NAME.HLP", "folder options"), "c:\\help\\NAME\\folder options.html");
  EXPECT_EQ(HelpPagePath("c:\\help", "name", "main"), "c:\\help\\name\\main.html");
}

TEST(HelpPagePath, IsEmptyWhenSomethingIsMissing) {
  EXPECT_EQ(HelpPagePath("", "name.hlp", "main"), "");
  EXPECT_EQ(HelpPagePath("c:\\help", "", "main"), "");
  EXPECT_EQ(HelpPagePath("c:\\help", ".hlp", "main"), "");
  EXPECT_EQ(HelpPagePath("c:\\help", "name.hlp", ""), "");
}

TEST(HelpPagePath, DoesNotLeadOutOfTheHelpFolder) {
  EXPECT_EQ(HelpPagePath("c:\\help", "..", "main"), "");
  EXPECT_EQ(HelpPagePath("c:\\help", "name.hlp", ".."), "");
  EXPECT_EQ(HelpPagePath("c:\\help", "name.hlp", "..\\..\\other"), "");
  EXPECT_EQ(HelpPagePath("c:\\help", "name.hlp", "../other"), "");
  EXPECT_EQ(HelpPagePath("c:\\help", "c:name.hlp", "main"), "");
}

TEST(VersionText, HasFourParts) {
  EXPECT_EQ(VersionText(0x00010002, 0x00030004), "1.2.3.4");
  EXPECT_EQ(VersionText(0xFFFF0000, 0x0000FFFF), "65535.0.0.65535");
}

}  // namespace
}  // namespace workbench::imp
