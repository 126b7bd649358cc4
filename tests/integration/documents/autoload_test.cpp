#include "workbench/app/documents/autoload.h"

#include <gtest/gtest.h>
#include <windows.h>

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

TEST_F(AutoloadFile, MayNameAFileInUtf8) {
  Write("c:\\sc\xC3\xA8ne \xE3\x83\xA2.obj");
  EXPECT_EQ(workbench::ReadAutoloadFile(nullptr), L"c:\\sc\u00E8ne \u30E2.obj");
}

TEST_F(AutoloadFile, MayNameAFileInTheProcesssCodePage) {
  Write("c:\\gr\xFC\xDF.obj");  // no UTF-8
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
