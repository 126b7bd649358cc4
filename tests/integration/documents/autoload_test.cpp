#include "workbench/app/documents/autoload.h"

#include <gtest/gtest.h>
#include <windows.h>

#include "base/text/code_page.h"
#include "tests/support/temp_directory.h"

namespace document_tests {
namespace {

using test_support::TempDirectory;

// The hand-over lies in the temporary directory; a test has one of its own.
class AutoloadFile : public testing::Test {
 protected:
  void SetUp() override {
    wchar_t value[MAX_PATH] = L"";
    GetEnvironmentVariableW(L"TMP", value, MAX_PATH);
    previous_ = value;
    SetEnvironmentVariableW(L"TMP", folder_.path().c_str());
  }
  void TearDown() override {
    SetEnvironmentVariableW(L"TMP", previous_.empty() ? nullptr : previous_.c_str());
  }
  void Write(const std::string& content) { folder_.AddFile(L"WM_HALVO_AUTOLOAD_FILE.txt", content); }

  TempDirectory folder_;
  std::wstring previous_;
};

TEST_F(AutoloadFile, NamesTheFileToOpen) {
  Write("c:\\models\\cube.obj");
  std::wstring error;
  EXPECT_EQ(workbench::ReadAutoloadFile(&error), L"c:\\models\\cube.obj");
  EXPECT_EQ(error, L"");
}

// Never in another one: with code page 1252 these bytes are a file of another name, though they are UTF-8 too.
TEST_F(AutoloadFile, NamesAFileInTheCodePageOfTheProcess) {
  const std::string path = "c:\\sc\xC3\xA8ne.obj";
  Write(path);
  EXPECT_EQ(workbench::ReadAutoloadFile(nullptr), base::WideFromNarrow(path));
  EXPECT_EQ(base::WideFromNarrow(path) == L"c:\\sc\u00E8ne.obj", GetACP() == CP_UTF8);
}

TEST_F(AutoloadFile, BytesThatAreNoTextNameNoFile) {
  Write("c:\\gr\xFC\xDF.obj");
  if (GetACP() == CP_UTF8) {
    std::wstring error;
    EXPECT_EQ(workbench::ReadAutoloadFile(&error), std::nullopt);
    EXPECT_NE(error.find(L"code page"), std::wstring::npos);
    return;
  }
  const auto path = workbench::ReadAutoloadFile(nullptr);
  ASSERT_TRUE(path.has_value());
  EXPECT_EQ(path->substr(0, 5), L"c:\\gr");
  EXPECT_EQ(path->substr(path->size() - 4), L".obj");
}

TEST_F(AutoloadFile, SaysWhenItIsMissing) {
  std::wstring error;
  EXPECT_EQ(workbench::ReadAutoloadFile(&error), std::nullopt);
  EXPECT_NE(error.find(L"can't be read"), std::wstring::npos);
  EXPECT_EQ(workbench::ReadAutoloadFile(nullptr), std::nullopt);
}

TEST_F(AutoloadFile, SaysWhenItNamesNoFile) {
  for (const std::string& content : {std::string(), std::string("\r\n"), std::string(100000, 'x')}) {
    Write(content);
    std::wstring error;
    EXPECT_EQ(workbench::ReadAutoloadFile(&error), std::nullopt);
    EXPECT_NE(error.find(L"names no file"), std::wstring::npos);
  }
}

}  // namespace
}  // namespace document_tests
