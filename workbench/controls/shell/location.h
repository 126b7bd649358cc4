// A place that a view can show: a file-system folder, a place of a ZIP archive or a virtual folder of the
// shell.
#pragma once

#include <string>

#include "workbench/controls/shell/pidl.h"

namespace controls {

class Location {
 public:
  Location() = default;

  // path: tidy and absolute. The folder need not exist. archiveLength: how many characters of it name the ZIP
  // archive that the place lies in or is; 0, or more than the path has, outside of archives.
  static Location FromPath(std::wstring path, size_t archiveLength = 0);
  // The list is copied. The desktop and other folders that the shell makes itself stay virtual even where a
  // directory stands behind them. Empty for null.
  static Location FromPidl(const ITEMIDLIST* pidl);
  static Location Desktop();
  static Location Computer();

  bool empty() const { return path_.empty() && !pidl_; }
  // Named by a path: a folder on disk or a place of an archive.
  bool IsFileSystem() const { return !path_.empty(); }
  // An archive, or a folder inside one.
  bool InArchive() const { return archiveLength_ != 0; }
  bool IsInsideArchive() const { return InArchive() && path_.size() > archiveLength_; }
  size_t archiveLength() const { return archiveLength_; }
  // The archive itself; empty outside of archives.
  Location Archive() const;
  // The folder on disk that holds the archive; outside of archives the place itself.
  Location Holder() const { return InArchive() ? Archive().Parent() : *this; }
  bool IsDesktop() const { return path_.empty() && pidl_ && ILIsEmpty(pidl_.get()); }
  bool IsComputer() const;

  // Empty for a virtual folder.
  const std::wstring& path() const { return path_; }
  // Null when the shell has no name for a path (too long, odd names, inside an archive). Made at the first
  // use; it lives as long as this location or a copy of it made afterwards.
  const ITEMIDLIST* pidl() const;

  // The path, or a virtual folder's name as the user sees it.
  std::wstring Text() const;
  // The last part of the path, or the name as the user sees it.
  std::wstring Name() const;

  // The containing place; empty for the desktop.
  Location Parent() const;

  friend bool operator==(const Location& first, const Location& second);

 private:
  std::wstring path_;
  size_t archiveLength_ = 0;
  mutable SharedPidl pidl_;
  mutable bool pidlTried_ = false;
};

}  // namespace controls
