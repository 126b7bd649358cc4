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

// The one name in a folder that differs in letter case only; nothing when several do.
std::optional<std::string> FindName(const std::string& folder, const std::string& name) {
  std::vector<std::string> names;
  if (ListFolder(folder, &names) < 0) return std::nullopt;
  const std::wstring wanted = FoldedName(WideFromName(name));
  std::optional<std::string> found;
  for (std::string& candidate : names) {
    if (FoldedName(WideFromName(candidate)) != wanted) continue;
    if (found) return std::nullopt;
    found = std::move(candidate);
  }
  return found;
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
  roots_.clear();
  recent_ = {};
  openFiles_.Forget();
}

SystemError WineFileSystem::LocateRoot(const std::wstring& path, std::string* located) {
  std::wstring root(RootOfPath(path));
  while (!root.empty() && root.back() == L'\\') root.pop_back();
  const std::lock_guard lock(mutex_);
  std::string& known = roots_[root];
  if (known.empty()) known = surroundings_.pathOfRoot(root);
  *located = known;
  return known.empty() ? kPathNotFound : kNoError;
}

SystemError WineFileSystem::Locate(const std::wstring& path, std::string* located) {
  if (!IsAbsolutePath(path)) return kInvalidName;
  // Nearly all calls are about what lies in the same two folders.
  const size_t folderLength = std::max(path.rfind(L'\\'), RootOfPath(path).size());
  const std::wstring_view folder = std::wstring_view(path).substr(0, folderLength);
  std::wstring_view rest = std::wstring_view(path).substr(folderLength);
  const bool hasFolder = folder.size() < path.size() && folder.size() > RootOfPath(path).size();
  if (!hasFolder || !Recall(folder, located)) {
    SystemError error = LocateRoot(path, located);
    if (error == kNoError) error = Append(folder.substr(RootOfPath(path).size()), located);
    if (error != kNoError) return error;
    if (hasFolder) Remember(folder, *located);
  }
  return Append(rest, located);
}

bool WineFileSystem::Recall(std::wstring_view folder, std::string* located) {
  const std::lock_guard lock(mutex_);
  for (const auto& [known, place] : recent_) {
    if (known != folder) continue;
    *located = place;
    return true;
  }
  return false;
}

void WineFileSystem::Remember(std::wstring_view folder, const std::string& located) {
  // Which file such a name means can change from one call to the next.
  if (folder.find(kBackslashInName) != std::wstring_view::npos) return;
  const std::lock_guard lock(mutex_);
  recent_[nextRecent_++ % recent_.size()] = {std::wstring(folder), located};
}

// The parts of a path, after what is located already.
SystemError WineFileSystem::Append(std::wstring_view rest, std::string* located) {
  SystemError error = kNoError;
  while (!rest.empty()) {
    const size_t end = std::min(rest.find(L'\\'), rest.size());
    const std::wstring_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (part.empty()) continue;
    std::optional<std::string> name = NameFromWide(part);
    if (!name || *name == "." || *name == "..") return kInvalidName;
    if (part.find(kBackslashInName) != std::wstring_view::npos) error = ChooseMeaning(*located, &*name);
    if (error != kNoError) return error;
    *located += '/';
    *located += *name;
  }
  return kNoError;
}

SystemError WineFileSystem::Spell(const std::wstring& path, std::wstring* exact) {
  exact->clear();
  for (const std::wstring& step : PathChain(path)) {
    if (exact->empty()) {
      *exact = step;
      continue;
    }
    std::string folder;
    std::string located;
    const std::wstring written = PathInFolder(*exact, NameOfPath(step));
    SystemError error = Locate(*exact, &folder);
    if (error == kNoError) error = Locate(written, &located);
    if (error != kNoError) return error;
    wine::Status status;
    const int there = GetStatus(located, false, &status);
    if (there == 0) {
      *exact = written;
      continue;
    }
    const std::optional<std::string> found = FindName(folder, located.substr(located.rfind('/') + 1));
    if (!found) return ErrorOf(there);
    *exact = PathInFolder(*exact, WideFromName(*found));
  }
  return exact->empty() ? kInvalidName : kNoError;
}

SystemError WineFileSystem::InUse(const std::wstring& path, const std::string& located, bool toDelete) {
  // Nobody else opens what an operation is just making.
  if (!surroundings_.tryToOpen || TokenOfTemporaryName(NameOfPath(path))) return kNoError;
  wine::Status status;
  return GetStatus(located, false, &status) < 0 ? kNoError : InUse(path, status, toDelete);
}

SystemError WineFileSystem::InUse(const std::wstring& path, const wine::Status& status, bool toDelete) {
  if (!surroundings_.tryToOpen || !status.IsFile()) return kNoError;
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
  std::string located;
  const SystemError error = Locate(path, &located);
  return error == kNoError ? StatusOfPath(located, IsRootPath(path), status) : error;
}

SystemError WineFileSystem::TargetStatus(const std::wstring& path, FileStatus* status) {
  *status = {};
  std::string located;
  const SystemError error = Locate(path, &located);
  return error == kNoError ? StatusOfPath(located, true, status) : error;
}

SystemError WineFileSystem::PhysicalChain(const std::wstring& path, std::vector<FileIdentity>* chain) {
  std::string located;
  const SystemError error = Locate(path, &located);
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
  SystemError error = Locate(folder, &located);
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
  SystemError error = Locate(source, &from);
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
  SystemError error = Locate(source, &from);
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
  SystemError error = Locate(from, &source);
  if (error == kNoError) error = Locate(to, &target);
  if (error == kNoError) error = InUse(from, source, true);
  return error == kNoError ? ErrorOf(RenameWithoutReplacing(source, target)) : error;
}

SystemError WineFileSystem::Replace(const std::wstring& from, const std::wstring& to) {
  std::string source;
  std::string target;
  SystemError error = Locate(from, &source);
  if (error == kNoError) error = Locate(to, &target);
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
  SystemError error = Locate(path, &located);
  if (error == kNoError) error = InUse(path, located, true);
  return error == kNoError ? ErrorOf(Unlink(located)) : error;
}

SystemError WineFileSystem::RemoveFolder(const std::wstring& path) {
  std::string located;
  const SystemError error = Locate(path, &located);
  return error == kNoError ? ErrorOf(RemoveDirectory(located)) : error;
}

SystemError WineFileSystem::RemoveLink(const std::wstring& path) {
  std::string located;
  const SystemError error = Locate(path, &located);
  if (error != kNoError) return error;
  wine::Status status;
  const int result = GetStatus(located, false, &status);
  if (result < 0) return ErrorOf(result);
  // The kernel refuses to remove a folder in which another file system shows.
  return ErrorOf(status.IsFolder() ? RemoveDirectory(located) : Unlink(located));
}

SystemError WineFileSystem::Flush(const std::wstring& folder, const std::vector<std::wstring>&) {
  std::string located;
  const SystemError error = Locate(folder, &located);
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
