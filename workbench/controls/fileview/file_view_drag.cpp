// Files that are dragged out of the file view and dropped onto it.
#include "workbench/controls/fileview/file_view.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/file_commands.h"
#include "workbench/controls/shell/file_drag.h"

namespace controls {

// Drags the selected items out of the view; who receives them copies or moves them.
void FileView::OnDrag(bool rightButton) {
  if (!switches_.dragAndDrop) return;
  const ComRef<IOleObject> self(this);
  ClearError();
  if (listing().folder.InArchive()) return ShowError(L"Items of an archive cannot be dragged.");
  const std::vector<std::wstring> paths = SelectedPaths();
  if (static_cast<int>(paths.size()) != pane_.SelectedCount()) {
    return ShowError(L"Items that are not files on a disk cannot be dragged.");
  }
  DragFiles(paths, DROPEFFECT_COPY | DROPEFFECT_MOVE | DROPEFFECT_LINK, rightButton);
}

// Whether files can be put into the row's item.
bool FileView::IsDropRow(int row) const {
  const ItemId id = IdOfRow(row);
  if (id == kNoItem) return false;
  if (!listing().IsVirtual()) return listing().IsFolder(id);
  const std::wstring path = listing().PathOf(id);
  const DWORD attributes =
      path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(ExtendedPath(path).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY);
}

std::wstring FileView::DropFolderAt(POINT screen) {
  if (listing().folder.InArchive()) return {};
  const int row = pane_.RowAt(screen);
  if (IsDropRow(row)) return listing().PathOf(IdOfRow(row));
  return listing().IsVirtual() ? std::wstring() : listing().folder.path();
}

void FileView::ShowDropTarget(POINT screen, bool taken) {
  ScrollNearEdge(pane_.list(), screen);
  const int row = taken ? pane_.RowAt(screen) : -1;
  pane_.SetDropRow(IsDropRow(row) ? row : -1);
}

void FileView::OnFilesDropped(DroppedFiles files) {
  dropped_.push_back(std::move(files));
  PostMessageW(pane_.hwnd(), kDropMessage, 0, 0);
}

void FileView::CarryOutDrop() {
  if (dropped_.empty()) return;
  const DroppedFiles files = std::move(dropped_.front());
  dropped_.erase(dropped_.begin());
  ClearError();
  DropAction action = files.action;
  if (files.ask) action = AskDropAction(pane_.hwnd(), files.point, action == DropAction::kMove);
  if (action == DropAction::kNone || closed()) return;
  CopyInto(files.paths, files.folder, action == DropAction::kMove, nullptr);
}

}  // namespace controls
