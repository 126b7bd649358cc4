// Only for Wine: see the header.
#include "base/files/wine_file_system.h"

#include <memory>

#include "base/files/name_case.h"
#include "base/files/paths.h"
#include "base/files/temporary_name.h"
#include "base/files/wine_names.h"
#include "base/files/wine_status.h"

namespace base::wine {
namespace {

constexpr size_t kKnownFolders = 512;

// The name in a folder that is written so, else one that differs in letter case only.
int FindName(const std::string& folder, const std::string& name, std::string* found) {
  std::vector<std::string> names;
  const int result = ListFolder(folder, &names);
  if (result < 0) return result;
  const std::wstring wanted = FoldedName(WideFromName(name));
  for (std::string& candidate : names) {
    if (FoldedName(WideFromName(candidate)) != wanted) continue;
    *found = std::move(candidate);
    return 0;
  }
  return -kEnoent;
}

// A listing of Windows gives the character that stands for a backslash as it is when a name really has it.
SystemError ChooseMeaning(const std::string& folder, std::string* name) {
  const std::wstring plain = WideFromName(*name);
  if (plain.find(kBackslashInName) == std::wstring::npos) return kNoError;
  std::string literal;
  for (const char c : *name) literal += c == '\\' ? std::string("\xEF\x81\x9C") : std::string(1, c);
  wine::Status status;
  if (GetStatus(folder + "/" + literal, false, &status) < 0) return kNoError;
  if (GetStatus(folder + "/" + *name, false, &status) == 0) return kInvalidName;
  *name = literal;
  return kNoError;
}

}  // namespace

void WineFileSystem::BeginOperation() {
  const std::lock_guard lock(mutex_);
  folders_.clear();
  openFiles_.Forget();
}

SystemError WineFileSystem::LocateFolder(const std::wstring& folder, std::string* located) {
  {
    const std::lock_guard lock(mutex_);
    const auto known = folders_.find(folder);
    if (known != folders_.end()) {
      *located = known->second;
      return kNoError;
    }
  }
  if (IsRootPath(folder)) {
    std::wstring root = folder;
    while (!root.empty() && root.back() == L'\\') root.pop_back();
    *located = surroundings_.pathOfRoot(root);
    if (located->empty()) return kPathNotFound;
  } else {
    const SystemError error = LocateExisting(folder, located);
    if (error != kNoError) return IsNotFound(error) ? kPathNotFound : error;
  }
  const std::lock_guard lock(mutex_);
  if (folders_.size() >= kKnownFolders) folders_.clear();
  folders_[folder] = *located;
  return kNoError;
}

SystemError WineFileSystem::Locate(const std::wstring& path, std::string* located) {
  if (IsRootPath(path)) return LocateFolder(path, located);
  const std::wstring folder = ParentOfPath(path);
  if (folder.empty()) return kInvalidName;
  const SystemError error = LocateFolder(folder, located);
  if (error != kNoError) return error;
  std::optional<std::string> name = NameFromWide(NameOfPath(path));
  if (!name || name->empty() || *name == "." || *name == "..") return kInvalidName;
  const SystemError meaning = ChooseMeaning(*located, &*name);
  if (meaning != kNoError) return meaning;
  *located += '/';
  *located += *name;
  return kNoError;
}

SystemError WineFileSystem::LocateExisting(const std::wstring& path, std::string* located) {
  const SystemError error = Locate(path, located);
  if (error != kNoError) return error;
  wine::Status status;
  const int there = GetStatus(*located, false, &status);
  if (there != -kEnoent) return ErrorOf(there);
  const size_t slash = located->rfind('/');
  std::string name;
  const int found = FindName(located->substr(0, slash), located->substr(slash + 1), &name);
  if (found < 0) return ErrorOf(found);
  located->replace(slash + 1, std::string::npos, name);
  return kNoError;
}

SystemError WineFileSystem::InUse(const std::wstring& path, const std::string& located, bool toDelete) {
  if (!surroundings_.tryToOpen) return kNoError;
  wine::Status status;
  if (GetStatus(located, false, &status) < 0 || !status.IsFile()) return kNoError;
  {
    const std::lock_guard lock(mutex_);
    if (!openFiles_.MayContain({status.device, status.inode})) return kNoError;
  }
  // A name that Windows cannot open is open nowhere; only what a program does not share counts.
  const SystemError error = surroundings_.tryToOpen(path, toDelete);
  return error == kSharingViolation ? error : kNoError;
}

SystemError WineFileSystem::Status(const std::wstring& path, FileStatus* status) {
  *status = {};
  if (IsRootPath(path)) return TargetStatus(path, status);
  std::string located;
  SystemError error = Locate(path, &located);
  if (error != kNoError) return error;
  error = StatusOfPath(located, false, status);
  if (error != kFileNotFound) return error;
  error = LocateExisting(path, &located);
  return error == kNoError ? StatusOfPath(located, false, status) : error;
}

SystemError WineFileSystem::TargetStatus(const std::wstring& path, FileStatus* status) {
  *status = {};
  std::string located;
  const SystemError error = IsRootPath(path) ? LocateFolder(path, &located) : LocateExisting(path, &located);
  return error == kNoError ? StatusOfPath(located, true, status) : error;
}

SystemError WineFileSystem::PhysicalChain(const std::wstring& path, std::vector<FileIdentity>* chain) {
  std::string located;
  const SystemError error = IsRootPath(path) ? LocateFolder(path, &located) : LocateExisting(path, &located);
  if (error != kNoError) return error;
  chain->clear();
  while (true) {
    wine::Status status;
    const int result = GetStatus(located, true, &status);
    if (result < 0) return ErrorOf(result);
    const FileIdentity identity = {status.device, status.inode};
    if (!chain->empty() && chain->back() == identity) return kNoError;  // the root contains itself
    chain->push_back(identity);
    located += "/..";
  }
}

SystemError WineFileSystem::List(const std::wstring& folder, std::vector<FileEntry>* entries) {
  entries->clear();
  std::string located;
  SystemError error = LocateFolder(folder, &located);
  if (error != kNoError) return error;
  std::vector<std::string> names;
  const int listed = ListFolder(located, &names);
  if (listed < 0) return ErrorOf(listed);
  entries->reserve(names.size());
  std::string path = located + "/";
  const size_t length = path.size();
  for (const std::string& name : names) {
    path.replace(length, std::string::npos, name);
    FileEntry entry;
    entry.name = WideFromName(name);
    error = StatusOfPath(path, false, &entry.status);
    if (IsNotFound(error)) continue;
    if (error != kNoError) return error;
    entries->push_back(std::move(entry));
  }
  return kNoError;
}

SystemError WineFileSystem::MakeFolder(const std::wstring& path) {
  std::string located;
  const SystemError error = Locate(path, &located);
  return error == kNoError ? ErrorOf(MakeDirectory(located, 0777)) : error;
}

SystemError WineFileSystem::CopyLink(const std::wstring& source, const std::wstring& target) {
  std::string from;
  std::string to;
  SystemError error = LocateExisting(source, &from);
  if (error == kNoError) error = Locate(target, &to);
  if (error != kNoError) return error;
  std::string text;
  wine::Status status;
  int result = ReadLinkText(from, &text);
  if (result == 0) result = MakeLink(text, to);
  if (result == 0 && GetStatus(from, false, &status) == 0) SetTime(to, status.seconds, status.nanoseconds);
  return ErrorOf(result);
}

SystemError WineFileSystem::CopyFolderAttributes(const std::wstring& source, const std::wstring& target) {
  std::string from;
  std::string to;
  SystemError error = LocateExisting(source, &from);
  if (error == kNoError) error = Locate(target, &to);
  if (error != kNoError) return error;
  wine::Status status;
  int result = GetStatus(from, false, &status);
  if (result == 0) result = SetMode(to, status.mode);
  if (result == 0) result = SetTime(to, status.seconds, status.nanoseconds);
  return ErrorOf(result);
}

SystemError WineFileSystem::Rename(const std::wstring& from, const std::wstring& to) {
  std::string source;
  std::string target;
  SystemError error = LocateExisting(from, &source);
  if (error == kNoError) error = Locate(to, &target);
  if (error == kNoError) error = InUse(from, source, true);
  return error == kNoError ? ErrorOf(RenameWithoutReplacing(source, target)) : error;
}

SystemError WineFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
  std::string source;
  std::string target;
  SystemError error = LocateExisting(from, &source);
  if (error == kNoError) error = LocateExisting(to, &target);
  if (error == kNoError) error = InUse(from, source, true);
  if (error == kNoError) error = InUse(to, target, true);
  if (error != kNoError) return error;
  wine::Status status;
  int result = GetStatus(source, false, &status);
  if (result == 0 && status.IsFolder()) result = -kEisdir;
  return ErrorOf(result == 0 ? wine::Rename(source, target) : result);
}

SystemError WineFileSystem::RemoveFile(const std::wstring& path) {
  std::string located;
  SystemError error = LocateExisting(path, &located);
  if (error == kNoError) error = InUse(path, located, true);
  return error == kNoError ? ErrorOf(Unlink(located)) : error;
}

SystemError WineFileSystem::RemoveFolder(const std::wstring& path) {
  std::string located;
  const SystemError error = LocateExisting(path, &located);
  return error == kNoError ? ErrorOf(RemoveDirectory(located)) : error;
}

SystemError WineFileSystem::RemoveLink(const std::wstring& path) {
  std::string located;
  const SystemError error = LocateExisting(path, &located);
  if (error != kNoError) return error;
  wine::Status status;
  const int result = GetStatus(located, false, &status);
  if (result < 0) return ErrorOf(result);
  // The kernel refuses to remove a folder in which another file system shows.
  return ErrorOf(status.IsFolder() ? RemoveDirectory(located) : Unlink(located));
}

SystemError WineFileSystem::Flush(const std::wstring& folder, const std::vector<std::wstring>&) {
  std::string located;
  const SystemError error = LocateFolder(folder, &located);
  if (error != kNoError) return error;
  File file;
  int result = file.OpenFolder(located);
  if (result == 0) result = file.SyncFileSystem();
  return ErrorOf(result);
}

std::wstring WineFileSystem::ProcessToken() {
  const std::lock_guard lock(mutex_);
  if (token_.empty()) token_ = TokenOfThisProcess();
  return token_;
}

bool WineFileSystem::ProcessHasEnded(const std::wstring& token) {
  return ProcessOfTokenHasEnded(token);
}

}  // namespace base::wine
