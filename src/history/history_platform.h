// The history list's platform: shell, clock and profile file.
#pragma once

#include <windows.h>

#include <string>
#include <string_view>

#include "src/history/history_list.h"
#include "src/history/history_store.h"

namespace file_explorer {

class ShellHistoryPlatform final : public HistoryPlatform {
 public:
  ItemId ParseItem(const std::string& name) override;
  std::string ParsingName(const ItemId& item) override;
  bool MayHang(const std::string& name) override;
  std::string BaseName(const std::string& path) override;
  HistoryTime Now() override;
};

// The moment in the user's time zone; false, with *local unchanged, when it is no date.
bool ToLocalTime(const HistoryTime& utc, HistoryTime* local);

// "history.dat" in a folder, through the profile calls.
class ProfileHistoryFile final : public HistoryFile {
 public:
  explicit ProfileHistoryFile(std::string path);
  ProfileHistoryFile(const ProfileHistoryFile&) = delete;
  ProfileHistoryFile& operator=(const ProfileHistoryFile&) = delete;

  std::string ReadText(const char* key) override;
  bool ReadTime(const char* key, HistoryTime* time) override;
  bool WriteText(const char* key, const std::string& text) override;
  bool WriteTime(const char* key, const HistoryTime& time) override;
  void Forget() override;
  bool Exists() override;
  void RemoveBackup() override;
  bool MoveToBackup() override;
  void Remove() override;
  bool RestoreBackup() override;

 private:
  const char* file() const { return path_.c_str(); }

  const std::string path_;
  std::string backup_;  // empty when its name does not fit
};

// Full path of history.dat in the user's directory of the host; empty when the host gives none.
std::string HistoryFilePath(HWND mainWindow);

}  // namespace file_explorer
