// A place that a view can show: a file-system folder or a virtual folder of the shell.
#pragma once

#include <string>

#include "workbench/controls/shell/pidl.h"

namespace controls {

class Location {
 public:
  Location() = default;

  // path: tidy and absolute. The folder need not exist.
  static Location FromPath(std::wstring path);
  // The list is copied. The desktop and other folders that the shell makes itself stay virtual even where a
  // directory stands behind them. Empty for null.
  static Location FromPidl(const ITEMIDLIST* pidl);
  static Location Desktop();
  static Location Computer();

  bool empty() const { return path_.empty() && !pidl_; }
  bool IsFileSystem() const { return !path_.empty(); }
  bool IsDesktop() const { return path_.empty() && pidl_ && ILIsEmpty(pidl_.get()); }
  bool IsComputer() const;

  // Empty for a virtual folder.
  const std::wstring& path() const { return path_; }
  // Null when the shell has no name for a path (too long, odd names). Made at the first use; it lives as long
  // as this location or a copy of it made afterwards.
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
  mutable SharedPidl pidl_;
  mutable bool pidlTried_ = false;
};

}  // namespace controls
