#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <regex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "src/host/vc64_tx.h"

namespace {

TEST(Environment, GivesWhatTheHostSet) {
  ASSERT_TRUE(Tx_Set_Environment("TS_WORKING_DIR", "d:\\work"));
  EXPECT_STREQ(Tx_Inquire_Environment("TS_WORKING_DIR"), "d:\\work");
  char processValue[16];
  EXPECT_EQ(GetEnvironmentVariableA("TS_WORKING_DIR", processValue, sizeof(processValue)), 0u)
      << "the process's own environment stays as it was";
}

TEST(Environment, FallsBackToTheProcessUntilItIsSetOrRemoved) {
  SetEnvironmentVariableA("HOSTLIBS_TEST", "process");
  EXPECT_STREQ(Tx_Inquire_Environment("HOSTLIBS_TEST"), "process");
  Tx_Set_Environment("HOSTLIBS_TEST", "host");
  EXPECT_STREQ(Tx_Inquire_Environment("HOSTLIBS_TEST"), "host");
  Tx_Set_Environment("HOSTLIBS_TEST", nullptr);
  EXPECT_EQ(Tx_Inquire_Environment("HOSTLIBS_TEST"), nullptr);
}

TEST(Environment, AVariableOfAnyLengthComesBackWhole) {
  const std::string value(5000, 'v');
  SetEnvironmentVariableA("HOSTLIBS_LONG", value.c_str());
  EXPECT_EQ(Tx_Inquire_Environment("HOSTLIBS_LONG"), value);
}

TEST(Environment, HasNothingForWhatIsNotSetOrEmpty) {
  EXPECT_EQ(Tx_Inquire_Environment("HOSTLIBS_NEVER_SET"), nullptr);
  Tx_Set_Environment("HOSTLIBS_EMPTY", "");
  EXPECT_EQ(Tx_Inquire_Environment("HOSTLIBS_EMPTY"), nullptr);
  EXPECT_EQ(Tx_Inquire_Environment(nullptr), nullptr);
  EXPECT_EQ(Tx_Inquire_Environment(""), nullptr);
  EXPECT_FALSE(Tx_Set_Environment(nullptr, "x"));
  EXPECT_FALSE(Tx_Set_Environment("", "x"));
}

TEST(Environment, AnotherThreadsCallLeavesTheTextAlone) {
  Tx_Set_Environment("HOSTLIBS_A", "mine");
  Tx_Set_Environment("HOSTLIBS_B", "theirs");
  const char* mine = Tx_Inquire_Environment("HOSTLIBS_A");
  std::thread([] { EXPECT_STREQ(Tx_Inquire_Environment("HOSTLIBS_B"), "theirs"); }).join();
  EXPECT_STREQ(mine, "mine");
}

TEST(Token, EqualKeywordsGiveEqualTokens) {
  EXPECT_EQ(Tx_Inquire_Token("import"), Tx_Inquire_Token(std::string("import").c_str()));
  EXPECT_NE(Tx_Inquire_Token("import"), Tx_Inquire_Token("export"));
  EXPECT_NE(Tx_Inquire_Token("import"), Tx_Inquire_Token("Import"));
  EXPECT_NE(Tx_Inquire_Token("a keyword that nobody knows"), 0);
  EXPECT_EQ(Tx_Inquire_Token(nullptr), 0);
  EXPECT_EQ(Tx_Inquire_Token(""), 0);
}

TEST(Token, ThreadsAgree) {
  std::vector<TxToken> seen[4];
  std::vector<std::thread> threads;
  for (auto& tokens : seen) {
    threads.emplace_back([&tokens] {
      for (int i = 0; i < 500; ++i)
        tokens.push_back(Tx_Inquire_Token(("keyword" + std::to_string(i)).c_str()));
    });
  }
  for (std::thread& thread : threads) thread.join();
  for (const auto& tokens : seen) EXPECT_EQ(tokens, seen[0]);
  EXPECT_EQ(std::set<TxToken>(seen[0].begin(), seen[0].end()).size(), 500u);
}

TEST(CreateGuid, GivesAFreshOneInRegistryForm) {
  const std::regex form("\\{[0-9A-F]{8}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{4}-[0-9A-F]{12}\\}");
  std::set<std::string> guids;
  for (int i = 0; i < 50; ++i) {
    char guid[kTxGuidSize + 1];
    guid[kTxGuidSize] = '#';
    ASSERT_TRUE(Tx_Create_GUID(guid));
    EXPECT_TRUE(std::regex_match(guid, form)) << guid;
    EXPECT_EQ(guid[kTxGuidSize], '#') << "nothing is written behind the terminator";
    guids.insert(guid);
  }
  EXPECT_EQ(guids.size(), 50u);
  EXPECT_FALSE(Tx_Create_GUID(nullptr));
}

}  // namespace
