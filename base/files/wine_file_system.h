// Only for Wine: files by the calls of the machine below (wine_calls.h says why). Letter case tells files
// apart, as it does there: only Spell ignores it. Pure: what it needs of Windows is handed to it, so the
// tests drive it on Linux itself.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <mutex>
#include <string>

#include "base/files/file_system.h"
#include "base/files/wine_calls.h"
#include "base/files/wine_open_files.h"

namespace base::wine {

struct WineSurroundings {
  // The path of the machine for a drive or share ("C:", "\\server\share"), without a slash at its end.
  std::function<std::string(const std::wstring& root)> pathOfRoot;
  // What Windows says to opening a file to read it, or to delete it: kSharingViolation when a program of Wine
  // has it open and does not share it. Null when there is no Wine.
  std::function<SystemError(const std::wstring& path, bool toDelete)> tryToOpen;
};

class WineFileSystem final : public FileSystem {
 public:
  explicit WineFileSystem(WineSurroundings surroundings) : surroundings_(std::move(surroundings)) {}

  void BeginOperation() override;
  SystemError Spell(const std::wstring& path, std::wstring* exact) override;
  SystemError Status(const std::wstring& path, FileStatus* status) override;
  SystemError TargetStatus(const std::wstring& path, FileStatus* status) override;
  SystemError PhysicalChain(const std::wstring& path, std::vector<FileIdentity>* chain) override;
  SystemError List(const std::wstring& folder, std::vector<FileEntry>* entries) override;
  SystemError MakeFolder(const std::wstring& path) override;
  SystemError CopyBytes(const std::wstring& source, const std::wstring& target,
                        const CopyProgress& progress) override;
  SystemError CopyLink(const std::wstring& source, const std::wstring& target) override;
  SystemError CopyFolderAttributes(const std::wstring& source, const std::wstring& target) override;
  SystemError Rename(const std::wstring& from, const std::wstring& to) override;
  SystemError Replace(const std::wstring& from, const std::wstring& to) override;
  SystemError RemoveFile(const std::wstring& path) override;
  SystemError RemoveFolder(const std::wstring& path) override;
  SystemError RemoveLink(const std::wstring& path) override;
  SystemError Flush(const std::wstring& folder, const std::vector<std::wstring>& files) override;
  std::wstring ProcessToken() override;
  bool ProcessHasEnded(const std::wstring& token) override;

 private:
  // The path of the machine.
  SystemError Locate(const std::wstring& path, std::string* located);
  SystemError Append(std::wstring_view rest, std::string* located);
  bool Recall(std::wstring_view folder, std::string* located);
  void Remember(std::wstring_view folder, const std::string& located);
  SystemError LocateRoot(const std::wstring& path, std::string* located);
  SystemError InUse(const std::wstring& path, const std::string& located, bool toDelete);
  SystemError InUse(const std::wstring& path, const wine::Status& status, bool toDelete);

  WineSurroundings surroundings_;
  std::mutex mutex_;                                            // of what follows
  std::map<std::wstring, std::string> roots_;                   // of the machine, by drive or share
  std::array<std::pair<std::wstring, std::string>, 4> recent_;  // folders and their paths of the machine
  size_t nextRecent_ = 0;
  OpenFiles openFiles_;
  std::wstring token_;
};

}  // namespace base::wine
