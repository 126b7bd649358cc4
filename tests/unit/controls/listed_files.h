// A file system that can only be looked at.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "base/files/file_system.h"
#include "base/files/paths.h"

namespace controls {

class ListedFiles : public base::FileSystem {
 public:
  std::vector<std::wstring> listed;  // folders that were listed
  std::wstring unreadable;

  void Add(const std::wstring& path, base::FileKind kind) { kinds_[path] = kind; }
  // A name may contain a backslash.
  void AddNamed(const std::wstring& folder, const std::wstring& name, base::FileKind kind) {
    Add(base::PathInFolder(folder, name), kind);
  }
  void Clear() { kinds_.clear(); }

  base::SystemError Spell(const std::wstring& path, std::wstring* exact) override {
    *exact = path;
    return base::kNoError;
  }
  base::SystemError Status(const std::wstring& path, base::FileStatus* status) override {
    const auto found = kinds_.find(path);
    *status = {};
    if (found == kinds_.end()) return base::kFileNotFound;
    status->kind = found->second;
    return base::kNoError;
  }
  base::SystemError List(const std::wstring& folder, std::vector<base::FileEntry>* entries) override {
    listed.push_back(folder);
    if (folder == unreadable) return base::kAccessDenied;
    for (const auto& [path, kind] : kinds_) {
      if (path.size() <= folder.size() + 1 || !path.starts_with(folder + L"\\")) continue;
      std::wstring name = path.substr(folder.size() + 1);
      if (name.find(L'\\') != std::wstring::npos) continue;
      base::FileEntry entry;
      entry.name = std::move(name);
      entry.status.kind = kind;
      entries->push_back(std::move(entry));
    }
    return base::kNoError;
  }

  base::SystemError TargetStatus(const std::wstring&, base::FileStatus*) override {
    return base::kNotSupported;
  }
  base::SystemError PhysicalChain(const std::wstring&, std::vector<base::FileIdentity>*) override {
    return base::kNotSupported;
  }
  base::SystemError MakeFolder(const std::wstring&) override { return base::kNotSupported; }
  base::SystemError CopyBytes(const std::wstring&, const std::wstring&, const CopyProgress&) override {
    return base::kNotSupported;
  }
  base::SystemError CopyLink(const std::wstring&, const std::wstring&) override {
    return base::kNotSupported;
  }
  base::SystemError CopyFolderAttributes(const std::wstring&, const std::wstring&) override {
    return base::kNotSupported;
  }
  base::SystemError Rename(const std::wstring&, const std::wstring&) override { return base::kNotSupported; }
  base::SystemError Replace(const std::wstring&, const std::wstring&) override { return base::kNotSupported; }
  base::SystemError RemoveFile(const std::wstring&) override { return base::kNotSupported; }
  base::SystemError RemoveFolder(const std::wstring&) override { return base::kNotSupported; }
  base::SystemError RemoveLink(const std::wstring&) override { return base::kNotSupported; }
  base::SystemError Flush(const std::wstring&, const std::vector<std::wstring>&) override {
    return base::kNotSupported;
  }
  std::wstring ProcessToken() override { return L"000000000000000000000000"; }
  bool ProcessHasEnded(const std::wstring&) override { return false; }

 private:
  std::map<std::wstring, base::FileKind> kinds_;
};

}  // namespace controls
