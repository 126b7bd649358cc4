// A folder that things come to: what stands in it, by name without regard to case. Listed once; a folder that
// the operation made itself is known to be empty and never listed.
#pragma once

#include <map>
#include <string>
#include <string_view>

#include "base/files/file_system.h"

namespace base {

class DestinationFolder {
 public:
  struct Entry {
    std::wstring name;
    FileStatus status;
    bool made = false;  // came by this operation, or is one of its sources
  };

  DestinationFolder(std::wstring path, const FileIdentity& identity);

  // Lists the folder, and removes temporary files of processes that have ended.
  SystemError Read(FileSystem& files);

  const std::wstring& path() const { return path_; }
  const FileIdentity& identity() const { return identity_; }

  // What has that name, in this spelling if there is one, else in another letter case; null for none.
  const Entry* Find(std::wstring_view name) const;
  // A name for a copy of `name` that nothing has.
  std::wstring FreeName(std::wstring_view name) const;
  // Something of that name came.
  void Add(const std::wstring& name, const FileStatus& status);
  // What has that name is named by the operation itself: another source must not take its place.
  void Claim(const std::wstring& name);
  // What stands there now is another thing than the listing said.
  void Refresh(const std::wstring& name, FileSystem& files);
  void Remove(const std::wstring& name);

 private:
  std::wstring path_;
  FileIdentity identity_;
  std::multimap<std::wstring, Entry> entries_;  // by folded name
};

}  // namespace base
