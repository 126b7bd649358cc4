#include "src/explorer/autoload.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>

#include "src/host/plugin_protocol.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {
namespace {

int loads;

LRESULT CALLBACK HostProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  if (message == host::kAutoloadMessage) {
    EXPECT_EQ(wParam, 0U);
    EXPECT_EQ(lParam, 0);
    ++loads;
  }
  return DefWindowProcA(window, message, wParam, lParam);
}

class AutoloadTest : public testing::Test {
 protected:
  void SetUp() override {
    std::array<char, 2048> text = {};
    GetEnvironmentVariableA("TMP", text.data(), static_cast<DWORD>(text.size()));
    oldTemp_ = text.data();
    host_ = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    SetWindowLongPtrA(host_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&HostProcedure));
    loads = 0;
  }
  void TearDown() override {
    SetEnvironmentVariableA("TMP", oldTemp_.c_str());
    DestroyWindow(host_);
  }
  static std::string Content(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
  }

  test_support::TempDirectory directory_;
  std::string oldTemp_;
  HWND host_ = nullptr;
};

TEST_F(AutoloadTest, WritesThePathAloneAndTellsTheHost) {
  SetEnvironmentVariableA("TMP", directory_.narrow().c_str());
  AutoloadFile(host_, "c:\\a long path\\model.obj");
  AutoloadFile(host_, "c:\\b.obj");
  EXPECT_EQ(Content(directory_.Join(std::string_view("WM_HALVO_AUTOLOAD_FILE.txt"))), "c:\\b.obj");
  EXPECT_EQ(loads, 2);
}

TEST_F(AutoloadTest, MakesAMissingTemporaryDirectory) {
  const std::string temp = directory_.Join(std::string_view("new"));
  SetEnvironmentVariableA("TMP", temp.c_str());
  AutoloadFile(host_, "c:\\b.obj");
  EXPECT_EQ(Content(temp + "\\WM_HALVO_AUTOLOAD_FILE.txt"), "c:\\b.obj");
  EXPECT_EQ(loads, 1);
}

TEST_F(AutoloadTest, TakesDriveCWhenNoTemporaryDirectoryCanBeMade) {
  SetEnvironmentVariableA("TMP", directory_.Join(std::string_view("a\\b\\c")).c_str());
  AutoloadFile(host_, "c:\\b.obj");
  EXPECT_EQ(Content("c:\\WM_HALVO_AUTOLOAD_FILE.txt"), "c:\\b.obj");
  EXPECT_EQ(loads, 1);
  DeleteFileA("c:\\WM_HALVO_AUTOLOAD_FILE.txt");
}

TEST_F(AutoloadTest, SendsNothingWhenTheFileCanNotBeWritten) {
  directory_.AddFolder(L"WM_HALVO_AUTOLOAD_FILE.txt");
  SetEnvironmentVariableA("TMP", directory_.narrow().c_str());
  AutoloadFile(host_, "c:\\b.obj");
  EXPECT_EQ(loads, 0);
}

TEST_F(AutoloadTest, SendsNothingWithoutAPath) {
  AutoloadFile(host_, nullptr);
  AutoloadFile(host_, "");
  EXPECT_EQ(loads, 0);
}

}  // namespace
}  // namespace file_explorer
