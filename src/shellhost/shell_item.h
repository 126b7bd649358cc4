// An item of the file view or a folder of the folder view, as the controls hand them out.
#pragma once

#include <windows.h>

#include <oaidl.h>
#include <shtypes.h>

#include <optional>
#include <string>

#include "src/framework/com/com_owners.h"

namespace file_explorer {

// Holds a reference to an item object; may be empty. Every call on an empty item gives nothing; a call that
// the object fails raises _com_error.
class ShellItem {
 public:
  ShellItem() = default;
  explicit ShellItem(ComPtr<IDispatch> object) : object_(std::move(object)) {}
  // Shares an object that is borrowed, as those of events are.
  explicit ShellItem(IDispatch* object) : object_(object) {}

  explicit operator bool() const noexcept { return object_ != nullptr; }
  IDispatch* get() const noexcept { return object_.Get(); }

  // The item's shell attribute bits among those of mask (SFGAO_...).
  ULONG HasAttributes(ULONG mask) const;
  // The grouping key; an empty variant when there is none.
  OwnedVariant GetSortKey() const;
  void SetSortKey(const VARIANT& key) const;
  // The item's own identifier list; whoever keeps it clones it.
  PCIDLIST_ABSOLUTE GetPidl() const;
  // The shell's default action; called during ControlEvent::kAskDefaultAction it leaves the item out of the
  // view.
  void InvokeDefault() const;
  // The path by which the item is matched, sorted and shown, in the ANSI code page with "?" for what that
  // lacks: not to open anything by. Nothing for a null or over-long text.
  std::optional<std::string> GetName() const;
  // The item's path for 8-bit calls, by its short (8.3) name where the code page lacks a letter. Nothing also
  // when the path can't be expressed; then the user is told (refused_path.h).
  std::optional<std::string> GetNameAsPath() const;
  std::optional<std::string> GetFullPath() const;
  // The path as the control gives it; empty when it gives none.
  std::wstring GetWidePath() const;
  // Of a folder of the folder view; to be shown.
  std::optional<std::string> GetFolderText() const;
  // Of an item of the file view.
  bool IsSelected() const;
  void SetSelected(bool selected) const;
  // Parent of a folder of the folder view; empty at the root.
  ShellItem GetParent() const;

 private:
  UniqueBstr GetText(DISPID id) const;
  std::optional<std::string> GetPath(DISPID id) const;

  ComPtr<IDispatch> object_;
};

}  // namespace file_explorer
