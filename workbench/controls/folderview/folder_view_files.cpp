// What the folder view does with folders and files: new names, clipboard, copies, deletion, undo.
#include <windows.h>

#include "workbench/controls/folderview/folder_view.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/file_commands.h"
#include "workbench/controls/shell/file_drag.h"

namespace controls {
namespace {

constexpr UINT kDropMessage = WM_APP + 10;

}  // namespace

void FolderView::NewFolderUnder(const Location& location) {
  if (!location.IsFileSystem()) throw CallError{E_FAIL, L"A folder cannot be made here."};
  std::wstring name;
  const OperationResult made = MakeNewFolder(location.path(), name);
  if (!made.done) throw CallError{E_FAIL, made.error};
  pane_.EditNewFolder(Location::FromPath(JoinPath(location.path(), name)));
}

bool FolderView::MayRenameNode(const Location& location) {
  return options_.inPlaceRename && location.IsFileSystem() && !IsRootPath(location.path());
}

bool FolderView::OnNodeRenamed(const Location& location, const std::wstring& name) {
  const ComRef<IOleObject> self(this);
  const OperationResult result = RenameFile(location.path(), name);
  if (!result.error.empty()) Report(result.error);
  if (closed()) return false;
  if (result.nameRefused) pane_.EditAgain(location, name);
  if (!result.done) return false;
  const Location renamed = Location::FromPath(JoinPath(ParentOfPath(location.path()), name));
  operations_.NoteRename(location.path(), renamed.path());
  pane_.RenameNode(location, renamed);
  // Whoever is in the folder or below it goes along.
  if (current_.IsFileSystem() && IsWithin(current_.path(), location.path())) {
    const Location moved =
        Location::FromPath(renamed.path() + current_.path().substr(location.path().size()));
    if (!fileView_.GoTo(moved)) Arrive(moved);
  }
  return true;
}

void FolderView::Report(const std::wstring& text) {
  MessageBoxW(GetAncestor(pane_.hwnd(), GA_ROOT), text.c_str(), L"Folders", MB_OK | MB_ICONEXCLAMATION);
}

void FolderView::Delete(const Location& location, bool permanently) {
  operations_.Delete(pane_.hwnd(), {location.path()}, permanently,
                     [this, location](const FileOperations::Outcome& outcome) {
                       if (outcome.report.done != 0 && !closed()) LeaveDeleted(location);
                     });
}

// Whoever was in a deleted folder, or below it, goes to the one above.
void FolderView::LeaveDeleted(const Location& location) {
  const ComRef<IOleObject> self(this);
  const Location parent = location.Parent();
  if (current_.IsFileSystem() && IsWithin(current_.path(), location.path())) OnNodeSelected(parent);
  if (closed()) return;
  const Location selected = pane_.selected();
  if (selected.IsFileSystem() && IsWithin(selected.path(), location.path())) pane_.SelectLocation(parent);
  if (pane_.selectedFolder() == parent) pane_.RefreshSelected();
}

void FolderView::PasteInto(const Location& location) {
  const ClipboardFiles files = FilesToPaste(pane_.hwnd());
  if (!files.error.empty()) return Report(files.error);
  operations_.Copy(pane_.hwnd(), files.paths, location.path(), files.cut,
                   [this, files](const FileOperations::Outcome& outcome) {
                     if (files.cut && outcome.whole) ForgetCutFiles(pane_.hwnd(), files);
                   });
}

void FolderView::Undo() {
  if (!operations_.UndoName().empty()) operations_.Undo(pane_.hwnd(), nullptr);
}

// Drag and drop

void FolderView::OnTreeDrag(const Location& location, bool mayMove, bool rightButton) {
  const ComRef<IOleObject> self(this);
  const DWORD move = mayMove ? DROPEFFECT_MOVE : DROPEFFECT_NONE;
  DragFiles({location.path()}, DROPEFFECT_COPY | DROPEFFECT_LINK | move, rightButton);
}

void FolderView::OnFilesDropped(DroppedFiles files) {
  dropped_.push_back(std::move(files));
  PostMessageW(pane_.hwnd(), kDropMessage, 0, 0);
}

void FolderView::OnTreeMessage(UINT message) {
  if (message != kDropMessage || dropped_.empty()) return;
  const ComRef<IOleObject> self(this);
  const DroppedFiles files = std::move(dropped_.front());
  dropped_.erase(dropped_.begin());
  DropAction action = files.action;
  if (files.ask) action = AskDropAction(pane_.hwnd(), files.point, action == DropAction::kMove);
  if (action == DropAction::kNone || closed()) return;
  operations_.Copy(pane_.hwnd(), files.paths, files.folder, action == DropAction::kMove, nullptr);
}

void FolderView::RunVerb(const std::string& verb, const Location& location) {
  const HWND owner = GetAncestor(pane_.hwnd(), GA_ROOT);
  OperationResult result;
  if (verb == "open") {
    pane_.SelectLocation(location);
    OnNodeSelected(location);
  } else if (verb == "openfile") {
    OnFileOpened(location);
  } else if (verb == "refresh") {
    pane_.RefreshSelected();
  } else if (verb == "cut" || verb == "copy") {
    if (!PutOnClipboard(owner, {location.path()}, verb == "cut")) {
      result.error = kClipboardInUse;
    }
  } else if (verb == "paste") {
    PasteInto(location);
  } else if (verb == "undo") {
    Undo();
  } else if (verb == "delete" && MayRenameNode(location)) {
    Delete(location, false);
  } else if (verb == "rename") {
    pane_.SelectLocation(location);
    OnNodeSelected(pane_.selectedFolder());
    pane_.EditSelected();
  } else if (verb == "newfolder") {
    pane_.SelectLocation(location);
    OnNodeSelected(location);
    try {
      NewFolderUnder(location);
    } catch (const CallError& error) {
      result.error = error.text;
    }
  }
  if (!result.error.empty()) Report(result.error);
}

}  // namespace controls
