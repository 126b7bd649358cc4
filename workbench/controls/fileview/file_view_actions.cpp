// What the user does in the file view.
#include <windows.h>

#include <shellapi.h>

#include "workbench/controls/com/event_arguments.h"
#include "workbench/controls/fileview/file_view.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/display_format.h"
#include "workbench/controls/shell/file_commands.h"
#include "workbench/controls/shell/item_menu.h"

namespace controls {
namespace {

constexpr long kCommandCut = 3;
constexpr long kCommandCopy = 4;
constexpr long kCommandPaste = 5;
constexpr long kCommandDelete = 6;
constexpr long kCommandRename = 10;

constexpr DISPID kMenuCommand = 14;
constexpr DISPID kMenuBuilding = 15;

}  // namespace

void FileView::OnRowClicked(int row, POINT point) {
  const ComRef<IOleObject> self(this);
  FireClick(row, point);
}

void FileView::OnRowActivated(int row, POINT point) {
  const ComRef<IOleObject> self(this);
  Activate(row, point);
}

void FileView::Activate(int row, POINT point) {
  const std::shared_ptr<Listing> rows = model_.shown();
  const ItemId id = IdOfRow(row);
  if (id == kNoItem || FireDoubleClick(row, point) || closed() || rows != model_.shown()) return;
  OpenRow(*rows, id);
}

HRESULT FileView::OpenRow(const Listing& from, ItemId id) {
  ClearError();
  if (from.AttributesOf(id) & SFGAO_FOLDER) {
    Navigate(from.LocationOf(id));
    return S_OK;
  }
  const Location file = from.LocationOf(id);
  if (file.InArchive()) {
    ShowError(L"\u201C" + file.Name() + L"\u201D lies in an archive and cannot be opened from there.");
    return S_OK;
  }
  OpenFile(file.path(), file.pidl());
  return S_OK;
}

// The shell's default verb.
void FileView::OpenFile(const std::wstring& path, const ITEMIDLIST* pidl) {
  if (!path.empty() && !ShellCanExpress(path)) {
    ShowError(L"\u201C" + path + L"\u201D cannot be opened: its path is too long or its name is reserved.");
    return;
  }
  const std::wstring folder = ParentOfPath(path);
  SHELLEXECUTEINFOW request = {};
  request.cbSize = sizeof(request);
  request.fMask = SEE_MASK_FLAG_NO_UI | (path.empty() ? SEE_MASK_IDLIST : 0u);
  request.hwnd = pane_.hwnd();
  request.lpFile = path.empty() ? nullptr : path.c_str();
  request.lpIDList = path.empty() ? const_cast<ITEMIDLIST*>(pidl) : nullptr;
  request.lpDirectory = folder.empty() ? nullptr : folder.c_str();  // a program looks for its files beside this one
  request.nShow = SW_SHOWNORMAL;
  if (ShellExecuteExW(&request)) return;
  const DWORD error = GetLastError();
  const std::wstring name(NameOfPath(path));
  ShowError(error == ERROR_NO_ASSOCIATION
                ? L"No program is set up to open \u201C" + name + L"\u201D."
                : L"\u201C" + name + L"\u201D cannot be opened: " + SystemErrorText(error, name));
}

// ListingItemView: an item's default action, its selection.

HRESULT FileView::OpenItem(const std::shared_ptr<Listing>& from, ItemId id) {
  if (asking_) {
    leftOut_ = true;
    return S_OK;
  }
  return OpenRow(*std::shared_ptr<Listing>(from), id);
}

bool FileView::IsItemSelected(const std::shared_ptr<Listing>& from, ItemId id) const {
  if (from != model_.shown()) return false;
  const int row = model_.rows().RowOf(id);
  return row >= 0 && pane_.IsSelected(row);
}

HRESULT FileView::SelectItem(const std::shared_ptr<Listing>& from, ItemId id, bool selected) {
  const int row = from == model_.shown() ? model_.rows().RowOf(id) : -1;
  if (row < 0 || !pane_.list()) return E_UNEXPECTED;
  if (pane_.IsSelected(row) != selected) pane_.Select(row, selected);
  return S_OK;
}

void FileView::OnSelectionChanged() {
  const ComRef<IOleObject> self(this);
  selectWhenShown_.clear();  // the user looks elsewhere by now
  if (!pane_.editing()) ClearError();  // a name that was refused is edited again, and the reason stays
  UpdateStatus();
  FireSelectionChanged();
}

void FileView::OnColumnClicked(int column) {
  if (!options_.headerSort || column < 0 || column >= kColumnCount) return;
  const ComRef<IOleObject> self(this);
  const SortRule old = model_.sortRule();
  SortRule rule;
  rule.column = static_cast<SortColumn>(column);
  rule.descending = rule.column == old.column && !old.descending;
  SortBy(rule);
}

bool FileView::OnKey(UINT key, bool control, bool shift) {
  if (!switches_.keyboard) return false;
  const ComRef<IOleObject> self(this);
  if (control) {
    switch (key) {
      case 'A':
        if (!options_.singleSelection) pane_.SelectAll(true);
        return true;
      case 'C':
        return SUCCEEDED(Execute(kCommandCopy, true));
      case 'X':
        return SUCCEEDED(Execute(kCommandCut, true));
      case 'V':
        return SUCCEEDED(Execute(kCommandPaste, false));
      case 'Z':
        Undo();
        return true;
      default:
        return false;
    }
  }
  switch (key) {
    case VK_RETURN:
      if (pane_.FocusedRow() >= 0) Activate(pane_.FocusedRow(), pane_.RowPoint(pane_.FocusedRow()));
      return true;
    case VK_BACK:
      GoUp();
      return true;
    case VK_F2:
      BeginRename();
      return true;
    case VK_F5:
      ClearError();
      model_.Refresh();
      return true;
    case VK_DELETE:
      DeleteSelection(shift);
      return true;
    default:
      return false;
  }
}

HRESULT FileView::Execute(long command, bool onSelection) {
  if (!pane_.list()) return E_UNEXPECTED;
  switch (command) {
    case kCommandCut:
    case kCommandCopy:
      if (onSelection) CopySelection(command == kCommandCut);
      return S_OK;
    case kCommandPaste:
      Paste(listing().folder.path());
      return S_OK;
    case kCommandDelete:
      if (onSelection) DeleteSelection(false);
      return S_OK;
    case kCommandRename:
      if (onSelection) BeginRename();
      return S_OK;
    default:
      return E_INVALIDARG;
  }
}

// Context menu

void FileView::OnContextMenu(int row, POINT point) {
  const ComRef<IOleObject> self(this);
  if (row >= 0 && !pane_.IsSelected(row)) {
    pane_.SelectAll(false);
    pane_.Select(row, true);
    pane_.Focus(row);
  } else if (row < 0) {
    pane_.SelectAll(false);
  }
  RunMenu(row, point);
}

namespace {

// The shell's entries for the selected rows; false when it has none (no list for the path, nothing selected).
bool AddShellMenu(ItemMenu& menu, HWND owner, const Listing& listing, const std::vector<ItemId>& ids) {
  if (ids.empty() || !listing.folder.pidl()) return false;
  std::vector<UniquePidl> owned;
  std::vector<LPCITEMIDLIST> children;
  ComRef<IShellFolder> folder;
  for (const ItemId id : ids) {
    const Location item = listing.LocationOf(id);
    if (!item.pidl()) return false;
    owned.push_back(ClonePidl(item.pidl()));
    children.push_back(ILFindLastID(owned.back().get()));
  }
  LPCITEMIDLIST child = nullptr;
  if (FAILED(SHBindToParent(owned.front().get(), IID_IShellFolder, folder.put_void(), &child))) return false;
  return menu.AddShellEntries(owner, *folder.get(), static_cast<UINT>(children.size()), children.data(),
                              listing.IsChangeable());
}

void AddPlainItemMenu(ItemMenu& menu, bool changeable, bool isFolder) {
  menu.AddOwn(L"&Open", "open", true, true);
  if (!changeable) return;
  menu.AddSeparator();
  menu.AddOwn(L"Cu&t", "cut");
  menu.AddOwn(L"&Copy", "copy");
  if (isFolder) menu.AddOwn(L"&Paste", "paste", ClipboardHasFiles());
  menu.AddSeparator();
  menu.AddOwn(L"&Delete", "delete");
  menu.AddOwn(L"Rena&me", "rename");
}

void AddBackgroundMenu(ItemMenu& menu, bool changeable, const std::wstring& undoName) {
  menu.AddOwn(L"R&efresh", "refresh");
  menu.AddSeparator();
  menu.AddUndo(undoName);
  if (!changeable) return;
  menu.AddOwn(L"&Paste", "paste", ClipboardHasFiles());
  menu.AddSeparator();
  menu.AddOwn(L"Ne&w Folder", "newfolder");
}

}  // namespace

void FileView::RunMenu(int row, POINT point) {
  ItemMenu menu;
  const std::shared_ptr<Listing> rows = model_.shown();
  const bool changeable = rows->IsChangeable();
  // Where a paste from this menu goes: into the one folder that it was opened for, or into the folder on show.
  const std::wstring target = row >= 0 && pane_.SelectedCount() == 1 && IsDropRow(row) ? rows->PathOf(IdOfRow(row))
                                                                                       : std::wstring();
  if (row < 0) {
    AddBackgroundMenu(menu, changeable, operations_.UndoName());
  } else {
    std::vector<ItemId> ids;
    for (const int selected : pane_.SelectedRows()) ids.push_back(IdOfRow(selected));
    const bool shell = switches_.shellContextMenu && AddShellMenu(menu, pane_.hwnd(), *rows, ids);
    if (!shell) AddPlainItemMenu(menu, changeable, !target.empty());
  }
  const ComRef<IDispatch> item = row >= 0 ? ItemOfRow(row) : EmptyItem();
  menu_ = &menu;
  EventArguments<1> building;
  building.Object(item.get());
  events().Fire(kMenuBuilding, building.values(), building.count());
  menu_ = nullptr;
  const ItemMenu::Choice choice = closed() ? ItemMenu::Choice() : menu.Track(pane_.hwnd(), point);
  if (choice.command == 0 || closed()) return;
  if (choice.added) {
    EventArguments<2> chosen;
    chosen.Object(item.get()).Long(static_cast<long>(choice.command));
    events().Fire(kMenuCommand, chosen.values(), chosen.count());
    return;
  }
  if (choice.verb == "paste" && !target.empty()) return Paste(target);
  if (!RunOwnVerb(choice.verb)) menu.InvokeShell(pane_.hwnd(), choice.command, rows->folder.path());
}

// Verbs that this view carries out itself, whoever offered them. False for the shell's own.
bool FileView::RunOwnVerb(const std::string& verb) {
  struct Verb {
    const char* name;
    void (*run)(FileView&);
  };
  static constexpr Verb kVerbs[] = {
      {"open",
       [](FileView& view) {
         const int row = view.pane_.NextSelected(-1);
         if (row >= 0) view.Activate(row, view.pane_.RowPoint(row));
       }},
      {"cut", [](FileView& view) { view.CopySelection(true); }},
      {"copy", [](FileView& view) { view.CopySelection(false); }},
      {"paste", [](FileView& view) { view.Paste(view.listing().folder.path()); }},
      {"undo", [](FileView& view) { view.Undo(); }},
      {"delete", [](FileView& view) { view.DeleteSelection(false); }},
      {"rename", [](FileView& view) { view.BeginRename(); }},
      {"refresh", [](FileView& view) { view.model_.Refresh(); }},
      {"newfolder", [](FileView& view) { view.CreateNewFolder(true); }},
  };
  for (const Verb& row : kVerbs) {
    if (verb != row.name) continue;
    row.run(*this);
    return true;
  }
  return false;
}

}  // namespace controls
