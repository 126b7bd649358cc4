// The history list's platform: shell, clock and profile file.
#pragma once

#include <windows.h>

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "src/history/history_list.h"

namespace file_explorer {

class ShellHistoryPlatform final : public HistoryPlatform {
 public:
  ItemId ParseItem(const std::string& name) override;
  std::string ParsingName(const ItemId& item) override;
  std::string BaseName(const std::string& path) override;
  HistoryTime Now() override;
};

// The moment in the user's time zone; false, with *local unchanged, when it is no date.
bool ToLocalTime(const HistoryTime& utc, HistoryTime* local);

// "history.dat" in a folder, through the profile calls. The entries far down in a list that is much longer
// than what is ever saved are read from short copies of their part of the file, in the temporary folder.
class ProfileHistoryFile final : public HistoryFile {
 public:
  explicit ProfileHistoryFile(std::string path);
  ~ProfileHistoryFile() override;
  ProfileHistoryFile(const ProfileHistoryFile&) = delete;
  ProfileHistoryFile& operator=(const ProfileHistoryFile&) = delete;

  std::string ReadText(const char* key) override;
  bool ReadTime(const char* key, HistoryTime* time) override;
  bool WriteText(const char* key, const std::string& text) override;
  bool WriteTime(const char* key, const HistoryTime& time) override;
  bool Exists() override;
  void RemoveBackup() override;
  bool MoveToBackup() override;
  void Remove() override;
  void RestoreBackup() override;

 private:
  // Makes the system forget what it keeps of the file in memory.
  void Flush() const;
  const char* file() const { return path_.c_str(); }
  // The file to read a key from.
  const char* FileOf(const char* key);
  void ReadSlices();
  void WriteSlice(std::size_t index);
  void RemoveSlice();

  const std::string path_;
  std::string backup_;                              // empty when its name does not fit
  std::optional<std::vector<std::string>> slices_;  // once they are needed
  std::size_t slice_ = 0;                           // the one that lies in slicePath_
  std::string slicePath_;                           // empty when there is none
};

// Full path of history.dat in the user's directory of the host; empty when the host gives none.
std::string HistoryFilePath(HWND mainWindow);

}  // namespace file_explorer
