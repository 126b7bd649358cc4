#include "workbench/tx/handler_arguments.h"

#include <gtest/gtest.h>

namespace workbench::tx {
namespace {

int64_t Header() {
  return -5;
}
int64_t Execute(int16_t, const char*, const char*) {
  return 0;
}

class HandlerArgumentsTest : public testing::Test {
 protected:
  TxToken T(const char* keyword) { return tokens.Token(keyword); }

  bool Read(Handler* handler, ...) {
    ArgumentList arguments;
    va_start(arguments.list, handler);
    const bool result = keywords.ReadGroups(arguments, *handler);
    va_end(arguments.list);
    return result;
  }
  bool Write(const Handler* handler, ...) {
    ArgumentList arguments;
    va_start(arguments.list, handler);
    const bool result = keywords.WriteValues(*handler, arguments);
    va_end(arguments.list);
    return result;
  }

  TokenTable tokens;
  HandlerKeywords keywords{tokens};
  Handler handler;
};

TEST_F(HandlerArgumentsTest, ReadsTheRegistrationOfAnArchiveViewer) {
  const int64_t type = 32;
  ASSERT_TRUE(Read(&handler, T("enabled"), T("off"), 1, T("function"), T("viewer"), 1, T("type"), &type, 1,
                   T("filetypes"), ".zip", 1, T("descriptivename"), "ZIP Archive", 1, T("viewer"),
                   T("verifyheadercallback"), &Header, T("executecallback"), &Execute, 1, 0));
  EXPECT_FALSE(handler.enabled);
  EXPECT_EQ(handler.function, HandlerFunction::kViewer);
  EXPECT_EQ(handler.types, 32);
  EXPECT_EQ(handler.fileTypes, ".zip");
  EXPECT_EQ(handler.name, "ZIP Archive");
  EXPECT_EQ(handler.verifyHeader, &Header);
  EXPECT_EQ(handler.execute, &Execute);
}

TEST_F(HandlerArgumentsTest, NoGroupsAreTheDefaults) {
  ASSERT_TRUE(Read(&handler, 0));
  EXPECT_TRUE(handler.enabled);
  EXPECT_EQ(handler.function, HandlerFunction::kNone);
  EXPECT_FALSE(handler.fileTypes.has_value());
}

TEST_F(HandlerArgumentsTest, RefusesWhatIsOutOfPlace) {
  const int64_t* noType = nullptr;
  EXPECT_FALSE(Read(&handler, T("colour"), 1, 0)) << "unknown group";
  EXPECT_FALSE(Read(&handler, 7, 1, 0)) << "no token at all";
  EXPECT_FALSE(Read(&handler, T("enabled"), T("maybe"), 1, 0));
  EXPECT_FALSE(Read(&handler, T("function"), T("on"), 1, 0));
  EXPECT_FALSE(Read(&handler, T("function"), 0, 1, 0));
  EXPECT_FALSE(Read(&handler, T("enabled"), T("on"), 2, 0)) << "the group does not end in 1";
  EXPECT_FALSE(Read(&handler, T("type"), noType, 1, 0));
  EXPECT_FALSE(Read(&handler, T("viewer"), T("executecallback"), &Execute, 1, 0));
  EXPECT_FALSE(Read(&handler, T("viewer"), T("verifyheadercallback"), &Header, T("on"), &Execute, 1, 0));
}

TEST_F(HandlerArgumentsTest, ANullTextIsNone) {
  const char* none = nullptr;
  ASSERT_TRUE(Read(&handler, T("filetypes"), none, 1, T("descriptivename"), none, 1, 0));
  EXPECT_FALSE(handler.fileTypes.has_value());
  EXPECT_FALSE(handler.name.has_value());
}

TEST_F(HandlerArgumentsTest, WritesEveryValue) {
  handler.function = HandlerFunction::kExporter;
  handler.types = 6;
  handler.fileTypes = ".a";
  handler.execute = &Execute;
  handler.verifyHeader = &Header;
  const char* fileTypes = nullptr;
  const char* name = "unchanged";
  TxToken enabled = 0, function = 0;
  int64_t types = 0;
  TxExecuteCallback execute = nullptr;
  TxVerifyHeaderCallback header = nullptr;
  ASSERT_TRUE(Write(&handler, T("filetypes"), &fileTypes, T("descriptivename"), &name, T("enabled"), &enabled,
                    T("function"), &function, T("type"), &types, T("executecallback"), &execute,
                    T("verifyheadercallback"), &header, 0));
  EXPECT_STREQ(fileTypes, ".a");
  EXPECT_EQ(name, nullptr) << "null when there is none";
  EXPECT_EQ(enabled, T("on"));
  EXPECT_EQ(function, T("exporter"));
  EXPECT_EQ(types, 6);
  EXPECT_EQ(execute, &Execute);
  EXPECT_EQ(header, &Header);
}

TEST_F(HandlerArgumentsTest, AnUnknownTokenEndsTheWritingButKeepsWhatWasWritten) {
  handler.enabled = false;
  TxToken enabled = 0, other = 77;
  EXPECT_FALSE(Write(&handler, T("enabled"), &enabled, T("size"), &other, 0));
  EXPECT_EQ(enabled, T("off"));
  EXPECT_EQ(other, 77);
  TxToken* none = nullptr;
  EXPECT_FALSE(Write(&handler, T("enabled"), none, 0));
}

TEST_F(HandlerArgumentsTest, KnowsTheLists) {
  EXPECT_EQ(keywords.ListOf(T("import")), HandlerList::kImport);
  EXPECT_EQ(keywords.ListOf(T("export")), HandlerList::kExport);
  EXPECT_EQ(keywords.ListOf(T("viewer")), HandlerList::kViewer);
  EXPECT_EQ(keywords.ListOf(T("import_and_viewer")), HandlerList::kImportAndViewer);
  EXPECT_EQ(keywords.ListOf(T("importer")), std::nullopt);
  EXPECT_EQ(keywords.ListOf(0), std::nullopt);
}

}  // namespace
}  // namespace workbench::tx
