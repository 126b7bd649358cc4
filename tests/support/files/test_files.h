// A real file system whose calls a test can watch, refuse, spoil or die in.
#pragma once

#include <functional>
#include <set>
#include <string>

#include "base/files/file_system.h"

namespace test_support {

struct FileCall {
  std::string name;    // of the function of FileSystem
  std::wstring path;   // its first path
  std::wstring other;  // its second path, if it has one
};

// Thrown by a hook: the process ends here.
struct Killed {};

class TestFiles final : public base::FileSystem {
 public:
  explicit TestFiles(base::FileSystem& inner) : inner_(inner) {}

  // Before a call: an error is its result, and it is not made. May throw Killed.
  std::function<base::SystemError(const FileCall& call)> before;
  // After a call that went well: an error becomes its result. May throw Killed.
  std::function<base::SystemError(const FileCall& call)> after;
  // Everything below this folder counts as another volume.
  std::wstring otherVolume;
  std::wstring token = L"00000000000000000000aaaa";
  std::set<std::wstring> endedTokens;
  size_t calls = 0;

  void BeginOperation() override { inner_.BeginOperation(); }
  base::SystemError Spell(const std::wstring& path, std::wstring* exact) override;
  base::SystemError Status(const std::wstring& path, base::FileStatus* status) override;
  base::SystemError TargetStatus(const std::wstring& path, base::FileStatus* status) override;
  base::SystemError PhysicalChain(const std::wstring& path, std::vector<base::FileIdentity>* chain) override;
  base::SystemError List(const std::wstring& folder, std::vector<base::FileEntry>* entries) override;
  base::SystemError MakeFolder(const std::wstring& path) override;
  base::SystemError CopyBytes(const std::wstring& source, const std::wstring& target,
                              const CopyProgress& progress) override;
  base::SystemError CopyLink(const std::wstring& source, const std::wstring& target) override;
  base::SystemError CopyFolderAttributes(const std::wstring& source, const std::wstring& target) override;
  base::SystemError Rename(const std::wstring& from, const std::wstring& to) override;
  base::SystemError Replace(const std::wstring& from, const std::wstring& to) override;
  base::SystemError RemoveFile(const std::wstring& path) override;
  base::SystemError RemoveFolder(const std::wstring& path) override;
  base::SystemError RemoveLink(const std::wstring& path) override;
  base::SystemError Flush(const std::wstring& folder, const std::vector<std::wstring>& files) override;
  std::wstring ProcessToken() override { return token; }
  bool ProcessHasEnded(const std::wstring& ended) override { return endedTokens.contains(ended); }

 private:
  template <typename Deed>
  base::SystemError Do(const FileCall& call, Deed&& deed);
  bool IsOnOtherVolume(const std::wstring& path) const;
  void Mark(const std::wstring& path, base::FileIdentity* identity) const;

  base::FileSystem& inner_;
};

}  // namespace test_support
