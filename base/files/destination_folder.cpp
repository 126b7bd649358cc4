#include "base/files/destination_folder.h"

#include <algorithm>

#include "base/files/name_case.h"
#include "base/files/paths.h"
#include "base/files/temporary_name.h"

namespace base {

DestinationFolder::DestinationFolder(std::wstring path, const FileIdentity& identity)
    : path_(std::move(path)), identity_(identity) {}

SystemError DestinationFolder::Read(FileSystem& files) {
  std::vector<FileEntry> entries;
  const SystemError error = files.List(path_, &entries);
  if (error != kNoError) return error;
  for (FileEntry& entry : entries) {
    const std::optional<std::wstring> token = TokenOfTemporaryName(entry.name);
    if (token && entry.status.kind == FileKind::kFile && files.ProcessHasEnded(*token) &&
        files.RemoveFile(PathInFolder(path_, entry.name)) == kNoError) {
      continue;
    }
    std::wstring folded = FoldedName(entry.name);
    entries_.emplace(std::move(folded), Entry{std::move(entry.name), entry.status, false});
  }
  return kNoError;
}

const DestinationFolder::Entry* DestinationFolder::Find(std::wstring_view name) const {
  const auto [begin, end] = entries_.equal_range(FoldedName(name));
  for (auto at = begin; at != end; ++at) {
    if (at->second.name == name) return &at->second;
  }
  return begin == end ? nullptr : &begin->second;
}

std::wstring DestinationFolder::FreeName(std::wstring_view name) const {
  for (int number = 1;; ++number) {
    std::wstring candidate = NameOfCopy(name, number);
    if (!Find(candidate)) return candidate;
  }
}

void DestinationFolder::Add(const std::wstring& name, const FileStatus& status) {
  Remove(name);
  entries_.emplace(FoldedName(name), Entry{name, status, true});
}

void DestinationFolder::Claim(const std::wstring& name) {
  const auto [begin, end] = entries_.equal_range(FoldedName(name));
  for (auto at = begin; at != end; ++at) at->second.made = at->second.made || at->second.name == name;
}

void DestinationFolder::Refresh(const std::wstring& name, FileSystem& files) {
  Remove(name);
  FileStatus status;
  if (files.Status(PathInFolder(path_, name), &status) != kNoError) return;
  // A file system may take names for one that are two for us: it may be what came just before.
  const bool made = std::any_of(entries_.begin(), entries_.end(), [&](const auto& entry) {
    return entry.second.made && entry.second.status.identity == status.identity;
  });
  entries_.emplace(FoldedName(name), Entry{name, status, made});
}

void DestinationFolder::Remove(const std::wstring& name) {
  const auto [begin, end] = entries_.equal_range(FoldedName(name));
  for (auto at = begin; at != end; ++at) {
    if (at->second.name != name) continue;
    entries_.erase(at);
    return;
  }
}

}  // namespace base
