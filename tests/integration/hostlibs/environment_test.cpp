#include <gtest/gtest.h>
#include <windows.h>

#include <atomic>
#include <regex>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "base/text/code_page.h"
#include "base/text/narrow_path.h"
#include "src/host/vc64_tx.h"
#include "tests/support/temp_directory.h"

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

// The 8-bit call of the system cuts some of these.
TEST(Environment, LettersBeyondAsciiComeBackWholeOrNotAtAll) {
  const wchar_t* const values[] = {L"C:\\stra\u00DFe \u20AC Test\\user",
                                   L"C:\\\u00DCN\u00CF \u0414\u0418\u0420 Test\\user",
                                   L"D:\\\u30E2\u30C7\u30EB\\no such folder", L"pl\u0101n", L"\uFF41"};
  for (const wchar_t* const value : values) {
    SetEnvironmentVariableW(L"HOSTLIBS_WIDE", value);
    const char* const text = Tx_Inquire_Environment("HOSTLIBS_WIDE");
    const auto exact = base::ExactNarrow(value);
    EXPECT_EQ(text != nullptr, exact.has_value()) << base::DisplayNarrow(value);
    if (text != nullptr && exact) {
      EXPECT_EQ(text, *exact);
    }
  }
  SetEnvironmentVariableW(L"HOSTLIBS_WIDE", nullptr);
}

TEST(Environment, APathThatCantBeExpressedGoesByItsShortForm) {
  const test_support::TempDirectory directory;
  const std::wstring folder = directory.AddFolder(L"\u00DCN\u00CF \u0414\u0418\u0420 Test\\user");
  SetEnvironmentVariableW(L"HOSTLIBS_WIDE", folder.c_str());
  const char* const text = Tx_Inquire_Environment("HOSTLIBS_WIDE");
  ASSERT_NE(text, nullptr);
  EXPECT_TRUE(base::IsSameObject(base::WideFromNarrow(text), folder)) << text;
  SetEnvironmentVariableW(L"HOSTLIBS_WIDE", nullptr);
}

TEST(Environment, AVariableOfAnyLengthWithAnyLetterComesBackWhole) {
  for (const size_t length : {254u, 255u, 256u, 257u, 3000u}) {
    const std::wstring value(length, L'\u00DC');
    SetEnvironmentVariableW(L"HOSTLIBS_LONG", value.c_str());
    const char* const text = Tx_Inquire_Environment("HOSTLIBS_LONG");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(base::WideFromNarrow(text), value) << length;
  }
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
