#include "workbench/controls/shell/location.h"

#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

SharedPidl SpecialFolder(int id) {
  LPITEMIDLIST pidl = nullptr;
  if (FAILED(SHGetSpecialFolderLocation(nullptr, id, &pidl))) return nullptr;
  return SharedPidl(UniquePidl(pidl));
}

bool SamePidl(const ITEMIDLIST* first, const ITEMIDLIST* second) {
  if (first == second) return true;
  return first && second && ILIsEqual(first, second);
}

}  // namespace

Location Location::FromPath(std::wstring path, size_t archiveLength) {
  Location location;
  location.archiveLength_ = archiveLength <= path.size() ? archiveLength : 0;
  location.path_ = std::move(path);
  return location;
}

Location Location::FromPidl(const ITEMIDLIST* pidl) {
  Location location;
  if (!pidl) return location;
  location.pidl_ = SharedPidl(ClonePidl(pidl));
  location.pidlTried_ = true;
  if (!ILIsEmpty(pidl)) location.path_ = TidyTypedPath(PathFromPidl(pidl));
  return location;
}

Location Location::Desktop() {
  Location location;
  location.pidl_ = SpecialFolder(CSIDL_DESKTOP);
  location.pidlTried_ = true;
  return location;
}

Location Location::Computer() {
  Location location;
  location.pidl_ = SpecialFolder(CSIDL_DRIVES);
  location.pidlTried_ = true;
  return location;
}

bool Location::IsComputer() const {
  if (!path_.empty() || !pidl_ || ILIsEmpty(pidl_.get())) return false;
  const SharedPidl computer = SpecialFolder(CSIDL_DRIVES);
  return SamePidl(pidl_.get(), computer.get());
}

const ITEMIDLIST* Location::pidl() const {
  if (!pidlTried_) {
    pidlTried_ = true;
    if (!IsInsideArchive()) pidl_ = SharedPidl(PidlFromPath(path_));
  }
  return pidl_.get();
}

std::wstring Location::Text() const {
  return path_.empty() ? DisplayNameOf(pidl_.get()) : path_;
}

std::wstring Location::Name() const {
  return path_.empty() ? DisplayNameOf(pidl_.get()) : std::wstring(NameOfPath(path_));
}

Location Location::Archive() const {
  return InArchive() ? FromPath(path_.substr(0, archiveLength_), archiveLength_) : Location();
}

Location Location::Parent() const {
  if (empty() || IsDesktop()) return {};
  if (IsFileSystem()) {
    std::wstring parent = ParentOfPath(path_);
    return parent.empty() ? Computer() : FromPath(std::move(parent), archiveLength_);
  }
  const UniquePidl parent = ClonePidl(pidl_.get());
  if (!parent || !ILRemoveLastID(parent.get())) return {};
  return FromPidl(parent.get());
}

bool operator==(const Location& first, const Location& second) {
  if (first.IsFileSystem() != second.IsFileSystem()) return false;
  if (first.IsFileSystem()) return SamePath(first.path_, second.path_);
  return SamePidl(first.pidl_.get(), second.pidl_.get());
}

}  // namespace controls
