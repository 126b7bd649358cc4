// What the file view does with files: new names, clipboard, copies, deletion, undo.
#include <windows.h>

#include <algorithm>
#include <utility>

#include "workbench/controls/fileview/file_view.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/file_commands.h"

namespace controls {

bool FileView::MayRename(int row) {
  const ItemId id = IdOfRow(row);
  return id != kNoItem && options_.inPlaceRename && listing().IsChangeable();
}

void FileView::OnRenamed(int row, const std::wstring& name) {
  const ComRef<IOleObject> self(this);
  const ItemId id = IdOfRow(row);
  if (id == kNoItem) return;
  const std::wstring path = listing().PathOf(id);
  const OperationResult result = RenameFile(path, name);
  if (result.nameRefused) return EditAgain(row, name, result.error);
  if (!result.error.empty()) return ShowError(result.error);
  if (!result.done) return;
  ClearError();
  operations_.NoteRename(path, JoinPath(ParentOfPath(path), name));
  const std::shared_ptr<Listing> rows = model_.shown();
  model_.RenameNow(id, name);
  if (closed() || rows != model_.shown()) return;
  const int newRow = model_.rows().RowOf(rows->store.Find(name));
  if (newRow < 0) return;
  pane_.Select(newRow, true);
  pane_.Focus(newRow);
  pane_.EnsureVisible(newRow);
}

// The name that was refused comes back to be mended, with the reason in the status line. Not from inside the
// end of the edit that is under way.
void FileView::EditAgain(int row, const std::wstring& name, const std::wstring& reason) {
  refusedName_ = {IdOfRow(row), name, reason};
  PostMessageW(pane_.hwnd(), kEditAgainMessage, 0, 0);
  ShowError(reason);
}

void FileView::OnEditAgain() {
  const RefusedName refused = std::exchange(refusedName_, {});
  const int row = refused.id == kNoItem ? -1 : model_.rows().RowOf(refused.id);
  if (row < 0 || !pane_.EditLabel(row)) return;
  pane_.SetEditText(refused.name);
  ShowError(refused.reason);
}

void FileView::BeginRename() {
  const int focused = pane_.FocusedRow();
  const int row = pane_.IsSelected(focused) ? focused : pane_.NextSelected(-1);
  if (row < 0) return;
  if (listing().folder.InArchive()) return ShowError(L"Items of an archive cannot be renamed.");
  if (!MayRename(row)) return ShowError(L"This item cannot be renamed here.");
  pane_.EditLabel(row);
}

std::vector<std::wstring> FileView::SelectedPaths() const {
  std::vector<std::wstring> paths;
  for (const int row : pane_.SelectedRows()) {
    std::wstring path = listing().PathOf(IdOfRow(row));
    if (!path.empty()) paths.push_back(std::move(path));
  }
  return paths;
}

void FileView::CopySelection(bool cut) {
  if (listing().folder.InArchive()) return ShowError(L"Items of an archive cannot be cut or copied.");
  const std::vector<std::wstring> paths = SelectedPaths();
  if (paths.empty()) return;
  ClearError();
  if (!PutOnClipboard(pane_.hwnd(), paths, cut)) ShowError(kClipboardInUse);
}

void FileView::Paste(const std::wstring& folder) {
  if (listing().folder.InArchive()) return ShowError(L"Files cannot be pasted into an archive.");
  if (!listing().IsChangeable()) return ShowError(L"Files cannot be pasted here.");
  const ClipboardFiles files = FilesToPaste(pane_.hwnd());
  if (!files.error.empty()) return ShowError(files.error);
  CopyInto(files.paths, folder, files.cut, [this, files](const FileOperations::Outcome& outcome) {
    if (files.cut && outcome.whole) ForgetCutFiles(pane_.hwnd(), files);
  });
}

void FileView::CopyInto(const std::vector<std::wstring>& paths, const std::wstring& folder, bool move,
                        FileOperations::Done also) {
  ClearError();
  operations_.Copy(pane_.hwnd(), paths, folder, move, [this, also](const FileOperations::Outcome& outcome) {
    const ComRef<IOleObject> self(this);  // whoever hears of the selection may let go
    SelectArrived(outcome.report.arrived);
    if (also) also(outcome);
  });
}

void FileView::DeleteSelection(bool permanently) {
  if (listing().folder.InArchive() && pane_.SelectedCount() > 0)
    return ShowError(L"Items of an archive cannot be deleted.");
  const std::vector<std::wstring> paths = SelectedPaths();
  if (paths.empty()) return;
  if (!listing().IsChangeable()) return ShowError(L"These items cannot be deleted here.");
  ClearError();
  operations_.Delete(pane_.hwnd(), paths, permanently, nullptr);
}

void FileView::Undo() {
  if (operations_.UndoName().empty()) return;
  ClearError();
  operations_.Undo(pane_.hwnd(), [this](const FileOperations::Outcome& outcome) {
    const ComRef<IOleObject> self(this);
    SelectArrived(outcome.report.arrived);
  });
}

// What an operation brought into the folder on show becomes the selection, as soon as it is listed.
void FileView::SelectArrived(const std::vector<std::wstring>& paths) {
  selectWhenShown_.clear();
  if (closed() || !listing().IsChangeable()) return;
  for (const std::wstring& path : paths) {
    if (SamePath(ParentOfPath(path), listing().folder.path())) {
      selectWhenShown_.emplace(NameOfPath(path));
    }
  }
  if (selectWhenShown_.empty()) return;
  selectsFirst_ = true;
  SelectShown();
}

void FileView::SelectShown() {
  if (selectWhenShown_.empty() || !pane_.list()) return;
  std::vector<int> found;
  ItemStore& store = model_.shown()->store;
  for (auto name = selectWhenShown_.begin(); name != selectWhenShown_.end();) {
    const ItemId id = store.Find(*name);
    const int row = id != kNoItem ? model_.rows().RowOf(id) : -1;
    if (row >= 0) found.push_back(row);
    name = row >= 0 ? selectWhenShown_.erase(name) : std::next(name);
  }
  if (found.empty()) return;
  std::sort(found.begin(), found.end());
  if (std::exchange(selectsFirst_, false)) return SelectOnly(found);
  const ListPane::Quiet quiet(pane_);
  for (const int row : found) pane_.Select(row, true);
  UpdateStatus();
}

// The first of the rows gets the focus. Rows in ascending order, at least one.
void FileView::SelectOnly(const std::vector<int>& rows) {
  {
    const ListPane::Quiet quiet(pane_);
    pane_.SelectAll(false);
    for (const int row : rows) pane_.Select(row, true);
  }
  pane_.Focus(rows.front());
  pane_.EnsureVisible(rows.front());
  UpdateStatus();
  FireSelectionChanged();
}

bool FileView::CreateNewFolder(bool edit) {
  if (!pane_.list()) return false;
  if (!listing().IsChangeable()) {
    ShowError(L"A folder cannot be made here.");
    return false;
  }
  std::wstring name;
  const OperationResult result = MakeNewFolder(listing().folder.path(), name);
  if (!result.done) {
    ShowError(result.error);
    return false;
  }
  ClearError();
  FILETIME now;
  GetSystemTimeAsFileTime(&now);
  ItemFacts facts;
  facts.attributes = kAttributeDirectory;
  facts.modified = (static_cast<uint64_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime;
  const ItemId id = model_.AddNow(name, facts);
  const int row = id != kNoItem && !closed() ? model_.rows().RowOf(id) : -1;
  if (row < 0) return true;  // the container's filter may hide it
  SelectOnly({row});
  if (edit && !closed()) pane_.EditLabel(row);
  return true;
}

}  // namespace controls
