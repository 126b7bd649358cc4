// The user's directory of the host and a profile file, both in a folder that goes when the test ends.
#pragma once

#include <windows.h>

#include <fstream>
#include <sstream>
#include <string>

#include "tests/support/temp_directory.h"

namespace file_explorer {

class HistoryTestFolder {
 public:
  HistoryTestFolder() { SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", folder_.narrow().c_str()); }
  ~HistoryTestFolder() { SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", nullptr); }

  std::string Folder() const { return folder_.narrow(); }
  std::string Path(const char* name) const { return folder_.Join(std::string_view(name)); }
  std::string history() const { return Path("history.dat"); }
  std::string profile() const { return Path("host.ini"); }

  void Put(const char* name, const std::string& text) const {
    std::ofstream(Path(name), std::ios::binary) << text;
  }
  std::string Get(const char* name) const {
    std::ifstream file(Path(name), std::ios::binary);
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
  }
  bool Exists(const char* name) const {
    return GetFileAttributesA(Path(name).c_str()) != INVALID_FILE_ATTRIBUTES;
  }

 private:
  test_support::TempDirectory folder_;
};

}  // namespace file_explorer
