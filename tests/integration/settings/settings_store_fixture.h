// A settings store over a profile and a per-user directory of the test's own.
#pragma once

#include <gmock/gmock.h>

#include <windows.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "src/host/vc64_imp.h"
#include "src/settings/settings_store.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {

class SettingsStoreTest : public testing::Test {
 protected:
  void SetUp() override {
    CoInitialize(nullptr);
    userDirectory_ = directory_.Join(std::string_view("user"));
    SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", userDirectory_.c_str());
    Tx_Set_Environment("TS_WORKING_DIR", nullptr);
    profile_ = directory_.Join(std::string_view("profile.ini"));
  }
  void TearDown() override {
    settings_ = ExplorerSettings();
    SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", nullptr);
    CoUninitialize();
  }

  // The profile path, asked afresh for each access; the access number failAt_ gets a path in a missing
  // directory.
  std::string NextProfilePath() {
    ++accesses_;
    if (accesses_ == failAt_) return directory_.Join(std::string_view("missing\\profile.ini"));
    return profile_;
  }

  SettingsStore Store() {
    return SettingsStore([this] { return NextProfilePath(); }, [] { return HWND(nullptr); });
  }

  void WriteProfile(const std::string& content) { directory_.AddFile(L"profile.ini", content); }

  std::string ProfileText() const {
    std::ifstream file(profile_, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
  }

  std::vector<std::string> ProfileKeys() const {
    std::vector<std::string> keys;
    std::istringstream lines(ProfileText());
    for (std::string line; std::getline(lines, line);) {
      if (line.find('=') != std::string::npos) keys.push_back(line.substr(0, line.find('=')));
    }
    return keys;
  }

  std::string ProfileValue(const char* key) const {
    std::array<char, 8192> text = {};
    GetPrivateProfileStringA("Explore", key, "<missing>", text.data(), text.size(), profile_.c_str());
    return text.data();
  }

  static std::string Text(const unique_host_text& text) { return text ? text.get() : "<none>"; }

  test_support::TempDirectory directory_;
  std::string userDirectory_;
  std::string profile_;
  int accesses_ = 0;
  int failAt_ = 0;
  ExplorerSettings settings_;
};

}  // namespace file_explorer
