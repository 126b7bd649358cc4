#include <gtest/gtest.h>

#include "workbench/tx/environment_table.h"
#include "workbench/tx/guid_text.h"
#include "workbench/tx/token_table.h"

namespace workbench::tx {
namespace {

TEST(TokenTable, EqualKeywordsHaveEqualTokens) {
  TokenTable tokens;
  const int32_t on = tokens.Token("on");
  EXPECT_NE(on, 0);
  EXPECT_EQ(tokens.Token(std::string("o") + "n"), on);
  EXPECT_NE(tokens.Token("off"), on);
  EXPECT_EQ(tokens.Token("on"), on);
}

TEST(TokenTable, TheCaseOfLettersCounts) {
  TokenTable tokens;
  EXPECT_NE(tokens.Token("on"), tokens.Token("ON"));
}

TEST(TokenTable, AnEmptyKeywordHasNone) {
  TokenTable tokens;
  EXPECT_EQ(tokens.Token(""), 0);
}

TEST(TokenTable, NoTokenLooksLikeTheMarksOfAnArgumentList) {
  TokenTable tokens;
  for (const char* keyword : {"a", "b", "c"}) EXPECT_GT(tokens.Token(keyword), 1);
}

TEST(EnvironmentTable, KnowsOnlyWhatWasSetOrRemoved) {
  EnvironmentTable table;
  EXPECT_FALSE(table.Find("TS_WORKING_DIR").known);
  ASSERT_TRUE(table.Set("TS_WORKING_DIR", "d:\\work"));
  ASSERT_TRUE(table.Find("ts_working_dir").known) << "names in any case";
  EXPECT_EQ(*table.Find("ts_working_dir").value, "d:\\work");
  ASSERT_TRUE(table.Set("TS_WORKING_DIR", std::nullopt));
  EXPECT_TRUE(table.Find("TS_WORKING_DIR").known);
  EXPECT_EQ(table.Find("TS_WORKING_DIR").value, nullptr);
}

TEST(EnvironmentTable, AnEmptyValueIsNone) {
  EnvironmentTable table;
  table.Set("A", "");
  EXPECT_TRUE(table.Find("A").known);
  EXPECT_EQ(table.Find("A").value, nullptr);
}

TEST(EnvironmentTable, RefusesAnEmptyName) {
  EnvironmentTable table;
  EXPECT_FALSE(table.Set("", "x"));
}

TEST(GuidText, IsTheRegistryFormInUpperCase) {
  EXPECT_EQ(GuidText({0x00, 0x01, 0x0a, 0xff, 0x10, 0x20, 0x30, 0x40, 0x50, 0x60, 0x70, 0x80, 0x90, 0xab,
                      0xcd, 0xef}),
            "{00010AFF-1020-3040-5060-708090ABCDEF}");
}

}  // namespace
}  // namespace workbench::tx
