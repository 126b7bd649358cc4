// Dropping files onto a view.
#pragma once

#include <windows.h>

#include <objidl.h>
#include <oleidl.h>

#include <string>
#include <vector>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/model/drop_rules.h"

namespace controls {

// Files that were dropped and wait for their operation.
struct DroppedFiles {
  std::vector<std::wstring> paths;
  std::wstring folder;
  DropAction action = DropAction::kNone;
  bool ask = false;  // dragged with the right button: the user chooses
  POINT point = {};  // where, on the screen
};

// The view onto which files are dropped.
class DropView {
 public:
  // Whether drops are taken at all now.
  virtual bool TakesDrops() = 0;
  // The folder that files would go to at a point of the screen; empty for none.
  virtual std::wstring DropFolderAt(POINT screen) = 0;
  // Files hover there and would be taken (or not): shows the target.
  virtual void ShowDropTarget(POINT screen, bool taken) = 0;
  // They left, or were dropped.
  virtual void HideDropTarget() = 0;
  // Called inside the drag: the operation itself must wait until the drag is over.
  virtual void OnFilesDropped(DroppedFiles files) = 0;

 protected:
  ~DropView() = default;
};

class FileDropTarget;

// A view's window that takes drops while this lives (OLE is kept initialised meanwhile).
class DropRegistration {
 public:
  DropRegistration() = default;
  ~DropRegistration() { Revoke(); }
  DropRegistration(const DropRegistration&) = delete;
  DropRegistration& operator=(const DropRegistration&) = delete;

  void Register(HWND window, DropView& view);
  void Revoke();

 private:
  HWND window_ = nullptr;
  ComRef<IDropTarget> reference_;
  FileDropTarget* target_ = nullptr;  // the same object
};

// Lets the user choose for files that were dragged with the right button; kNone when nothing is chosen.
DropAction AskDropAction(HWND owner, POINT screen, bool move);

// Scrolls a list or tree when the pointer is near its upper or lower edge.
void ScrollNearEdge(HWND view, POINT screen);

}  // namespace controls
