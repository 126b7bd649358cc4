// What the host library is told of each handler, argument by argument.
#include "src/plugin/handler_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdarg>
#include <string>
#include <vector>

namespace {

std::vector<std::string> keywords;  // a keyword's token is its number from 1
std::vector<std::vector<std::string>> calls;

std::int64_t VerifyHeader() {
  return -5;
}
std::int64_t Execute(std::int16_t, const char*, const char*) {
  return 0;
}

std::string Keyword(TxToken token) {
  return keywords.at(static_cast<size_t>(token - 1));
}

}  // namespace

extern "C" TxToken Tx_Inquire_Token(const char* keyword) {
  keywords.push_back(keyword);
  return static_cast<TxToken>(keywords.size());
}

extern "C" int Tx_FileFormatHandler(const char* guid, ...) {
  va_list arguments;
  va_start(arguments, guid);
  std::vector<std::string> call = {guid};
  const auto token = [&] { call.push_back(Keyword(va_arg(arguments, TxToken))); };
  const auto number = [&] { call.push_back(std::to_string(va_arg(arguments, int))); };
  const auto text = [&] { call.push_back(va_arg(arguments, const char*)); };
  for (int group = 0; group < 2; ++group) {
    token();
    token();
    number();
  }
  token();
  call.push_back("type " + std::to_string(*va_arg(arguments, const std::int64_t*)));
  number();
  for (int group = 0; group < 2; ++group) {
    token();
    text();
    number();
  }
  token();
  token();
  call.push_back(va_arg(arguments, TxVerifyHeaderCallback) == &VerifyHeader ? "header callback" : "?");
  token();
  call.push_back(va_arg(arguments, TxExecuteCallback) == &Execute ? "execute callback" : "?");
  number();
  number();
  va_end(arguments);
  calls.push_back(call);
  return 1;
}

namespace {

using file_explorer::HandlerRow;
using testing::ElementsAre;

class HandlerTable : public testing::Test {
 protected:
  void SetUp() override {
    keywords.clear();
    calls.clear();
  }
};

TEST_F(HandlerTable, EachRowIsAnEnabledViewer) {
  const HandlerRow rows[] = {{"{1}", ".zip", "ZIP Archive", 32}, {"{2}", ".a;.b", "Other", 1LL << 40}, {}};
  file_explorer::RegisterViewers(rows, &VerifyHeader, &Execute);
  ASSERT_EQ(calls.size(), 2u);
  EXPECT_THAT(calls[0], ElementsAre("{1}", "enabled", "on", "1", "function", "viewer", "1", "type", "type 32",
                                    "1", "filetypes", ".zip", "1", "descriptivename", "ZIP Archive", "1",
                                    "viewer", "verifyheadercallback", "header callback", "executecallback",
                                    "execute callback", "1", "0"));
  EXPECT_EQ(calls[1].front(), "{2}");
  EXPECT_EQ(calls[1][8], "type 1099511627776");
}

TEST_F(HandlerTable, TokensAreLookedUpAfreshForEachRow) {
  const HandlerRow rows[] = {{"{1}", ".a", "A", 1}, {"{2}", ".b", "B", 2}, {}};
  file_explorer::RegisterViewers(rows, &VerifyHeader, &Execute);
  EXPECT_EQ(keywords.size(), 20u);
}

TEST_F(HandlerTable, ATableWhoseFirstRowIsTheTerminatorRegistersNothing) {
  const HandlerRow rows[] = {{nullptr, ".zip", "ZIP Archive", 32}, {"{2}", ".b", "B", 2}};
  file_explorer::RegisterViewers(rows, &VerifyHeader, &Execute);
  EXPECT_TRUE(calls.empty());
  EXPECT_TRUE(keywords.empty());
}

}  // namespace
