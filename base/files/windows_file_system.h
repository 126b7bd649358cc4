// Files by the calls of Windows. Paths are extended ("\\?\"), so that every name and length is taken
// literally, and no reparse point is followed unless the call says so.
#pragma once

#include "base/files/file_system.h"

namespace base {

class WindowsFileSystem final : public FileSystem {
 public:
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
};

}  // namespace base
