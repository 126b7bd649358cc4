#include "tests/support/files/machine_folder.h"

#include <atomic>
#include <stdexcept>

#include "base/files/paths.h"
#include "base/files/wine_calls.h"
#include "base/files/wine_names.h"

namespace test_support {
namespace {

using namespace base::wine;

void Check(int result, const std::string& what) {
  if (result < 0) throw std::runtime_error(what + ": errno " + std::to_string(-result));
}

std::string ContentsOf(const std::string& path, const Status& status) {
  std::string text;
  if (status.IsFolder()) return "folder";
  if (status.IsLink()) {
    Check(ReadLinkText(path, &text), path);
    return "link:" + text;
  }
  if (!status.IsFile()) return "other";
  Check(ReadWholeFile(path, &text), path);
  return "file:" + text;
}

void Walk(const std::string& root, const std::string& below, FolderContents* contents) {
  std::vector<std::string> names;
  Check(ListFolder(root + "/" + below, &names), root + "/" + below);
  for (const std::string& name : names) {
    const std::string relative = below.empty() ? name : below + "/" + name;
    Status status;
    Check(GetStatus(root + "/" + relative, false, &status), relative);
    (*contents)[relative] = ContentsOf(root + "/" + relative, status);
    if (status.IsFolder()) Walk(root, relative, contents);
  }
}

void RemoveTree(const std::string& path) {
  Status status;
  if (GetStatus(path, false, &status) < 0) return;
  if (!status.IsFolder()) {
    Check(Unlink(path), path);
    return;
  }
  std::vector<std::string> names;
  Check(ListFolder(path, &names), path);
  for (const std::string& name : names) RemoveTree(path + "/" + name);
  Check(RemoveDirectory(path), path);
}

}  // namespace

bool MachineFolder::TryToMake(const std::string& place) {
  static std::atomic<int> number = 0;
  path_ = place + "files-test-" + std::to_string(ProcessNumber()) + "-" + std::to_string(++number);
  return MakeDirectory(path_, 0700) == 0;
}

MachineFolder::MachineFolder() {
  if (!TryToMake("/dev/shm/") && !TryToMake("/tmp/")) throw std::runtime_error("no place for " + path_);
}

MachineFolder::MachineFolder(const std::string& place) {
  if (!TryToMake(place)) throw std::runtime_error("no place for " + path_);
}

MachineFolder::~MachineFolder() {
  try {
    RemoveTree(path_);
  } catch (const std::exception&) {
    // What a test left beyond removal stays in the machine's own place for such things.
  }
}

std::wstring MachineFolder::Windows(const std::string& name) const {
  std::wstring path = L"Z:\\";
  std::string rest = path_.substr(1) + (name.empty() ? "" : "/" + name);
  for (size_t slash = 0; slash != std::string::npos;) {
    slash = rest.find('/');
    path = base::JoinPath(path, WideFromName(rest.substr(0, slash)));
    if (slash != std::string::npos) rest.erase(0, slash + 1);
  }
  return path;
}

void MachineFolder::MakeParents(const std::string& name) const {
  for (size_t slash = name.find('/'); slash != std::string::npos; slash = name.find('/', slash + 1)) {
    MakeDirectory(path_ + "/" + name.substr(0, slash), 0700);
  }
}

void MachineFolder::Write(const std::string& name, const std::string& contents, bool readOnly) const {
  MakeParents(name);
  Unlink(path_ + "/" + name);
  File file;
  Check(file.Create(path_ + "/" + name, 0600), name);
  for (size_t at = 0; at < contents.size();) {
    const long written = file.Write(contents.data() + at, contents.size() - at);
    Check(static_cast<int>(written), name);
    at += static_cast<size_t>(written);
  }
  if (readOnly) Check(file.SetMode(0400), name);
  Check(file.Close(), name);
}

void MachineFolder::Folder(const std::string& name) const {
  MakeParents(name + "/");
}

void MachineFolder::Link(const std::string& name, const std::string& text) const {
  MakeParents(name);
  Check(MakeLink(text, path_ + "/" + name), name);
}

void MachineFolder::Remove(const std::string& name) const {
  RemoveTree(path_ + "/" + name);
}

bool MachineFolder::Exists(const std::string& name) const {
  Status status;
  return GetStatus(path_ + "/" + name, false, &status) == 0;
}

std::string MachineFolder::Read(const std::string& name) const {
  std::string contents;
  Check(ReadWholeFile(path_ + "/" + name, &contents), name);
  return contents;
}

FolderContents MachineFolder::Contents() const {
  FolderContents contents;
  Walk(path_, {}, &contents);
  return contents;
}

void MachineFolder::Clear() const {
  std::vector<std::string> names;
  Check(ListFolder(path_, &names), path_);
  for (const std::string& name : names) RemoveTree(path_ + "/" + name);
}

}  // namespace test_support
