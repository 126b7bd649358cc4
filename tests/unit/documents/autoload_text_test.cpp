#include "workbench/app/documents/autoload_text.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using namespace std::string_literals;

TEST(AutoloadContent, IsThePathAlone) {
  EXPECT_EQ(ParseAutoloadContent("c:\\models\\cube.obj"), "c:\\models\\cube.obj");
  EXPECT_EQ(ParseAutoloadContent("\\\\server\\share\\a b.png"), "\\\\server\\share\\a b.png");
  EXPECT_EQ(ParseAutoloadContent("c:\\\xC3\xA4\xE6\x97\xA5.obj"), "c:\\\xC3\xA4\xE6\x97\xA5.obj");
}

TEST(AutoloadContent, MayEndInALineEndOrNulsOrStandInQuotes) {
  EXPECT_EQ(ParseAutoloadContent("c:\\a.obj\r\n"), "c:\\a.obj");
  EXPECT_EQ(ParseAutoloadContent("c:\\a.obj\0\0"s), "c:\\a.obj");
  EXPECT_EQ(ParseAutoloadContent("\"c:\\a b.obj\"\n"), "c:\\a b.obj");
  EXPECT_EQ(ParseAutoloadContent(" c:\\a.obj"), " c:\\a.obj") << "a name may begin with a blank";
}

TEST(AutoloadContent, NamesNoFileWhenItIsEmptyBrokenOrOverLong) {
  EXPECT_EQ(ParseAutoloadContent(""), std::nullopt);
  EXPECT_EQ(ParseAutoloadContent(" \r\n"), std::nullopt);
  EXPECT_EQ(ParseAutoloadContent("\"\""), std::nullopt);
  EXPECT_EQ(ParseAutoloadContent("c:\\a.obj\nc:\\b.obj"), std::nullopt);
  EXPECT_EQ(ParseAutoloadContent("c:\\a\0b.obj"s), std::nullopt);
  EXPECT_EQ(ParseAutoloadContent(std::string(kAutoloadSizeLimit, 'x')), std::nullopt);
  EXPECT_TRUE(ParseAutoloadContent(std::string(kAutoloadSizeLimit - 1, 'x')).has_value());
}

}  // namespace
}  // namespace workbench
