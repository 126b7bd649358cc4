#include "workbench/controls/fileview/file_view.h"
#include "workbench/controls/fileview/container_sort.h"

#include <algorithm>
#include <iterator>

#include "workbench/controls/com/class_server.h"
#include "workbench/controls/com/event_arguments.h"
#include "workbench/controls/model/display_text.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/shell/display_format.h"
#include "workbench/controls/shell/item_menu.h"

namespace controls {

// What the user sees of the rows, kept over a change of rows. Items are known by id while the listing stays,
// by name when it is replaced.
struct FileView::SavedView {
  std::vector<ItemId> selected;
  std::vector<std::wstring> selectedNames;
  ItemId focused = kNoItem;
  std::wstring focusedName;
  ItemId top = kNoItem;
  std::wstring topName;
  int topRow = 0;
  bool all = false;
  std::vector<ItemId> order;  // of the rows before, when one of them had the focus
};

FileView::FileView() : pane_(*this), model_(*this) {
  itemOwner_->view = this;
}

FileView::~FileView() {
  CloseOnce();
}

void* FileView::Interface(REFIID iid) {
  if (IsEqualIID(iid, kIidLocationPeer)) return static_cast<ILocationPeer*>(this);
  return OleControl::Interface(iid);
}

HWND FileView::CreateControlWindow(HWND parent, const RECT& rect) {
  if (!pane_.CreatePane(parent, rect)) return nullptr;
  pane_.SetOptions(options_);
  pane_.SetFont(font_.handle());
  pane_.SetView(view_);
  pane_.ShowSort(model_.sortRule());
  model_.SetWindow(pane_.hwnd());
  drops_.Register(pane_.list(), *this);
  if (!wanted_.empty()) {
    // Not from inside the activation: the container's site is not ready for events yet.
    PostMessageW(pane_.hwnd(), kReaderMessage, 1, 0);
  }
  return pane_.hwnd();
}

void FileView::DestroyControlWindow() {
  drops_.Revoke();
  model_.SetWindow(nullptr);
  pane_.Destroy();
}

void FileView::OnPaneDestroyed() {
  drops_.Revoke();
  model_.SetWindow(nullptr);
  sort_.reset();
  ForgetWindow();
}

// Lets go of everybody who knows this control, before its window goes.
void FileView::OnClose() {
  drops_.Revoke();
  dropped_.clear();
  operations_.Close();
  itemOwner_->view = nullptr;
  followers_.AnnounceClosing();
  model_.SetWindow(nullptr);
  sort_.reset();
  askedItem_.reset();
  events().RemoveAll();
}

// ILocationPeer

STDMETHODIMP FileView::GetKind(PeerKind* kind) {
  if (!kind) return E_POINTER;
  *kind = PeerKind::kFileView;
  return S_OK;
}

STDMETHODIMP FileView::TellLocation(ILocationSink* sink) {
  return Guarded([&] {
    if (!sink) return E_POINTER;
    controls::TellLocation(*sink, listing().folder);
    return S_OK;
  });
}

STDMETHODIMP FileView::GoTo(const wchar_t* path, const ITEMIDLIST* pidl, UINT archiveLength) {
  return Guarded([&] {
    if (closed()) return E_UNEXPECTED;
    const ComRef<IOleObject> self(this);
    const Location location = LocationFromCall(path, pidl, archiveLength);
    if (location.empty()) return E_INVALIDARG;
    if (!(location == listing().folder)) {
      Navigate(location);
    } else if (!error_.empty()) {
      ClearError();
    }
    return S_OK;
  });
}

STDMETHODIMP FileView::AdviseLocation(ILocationSink* sink) {
  return Guarded([&] {
    followers_.Add(sink);
    return S_OK;
  });
}

STDMETHODIMP FileView::UnadviseLocation(ILocationSink* sink) {
  followers_.Remove(sink);
  return S_OK;
}

void FileView::Navigate(const Location& location) {
  if (closed() || location.empty()) return;
  if (!window()) {
    wanted_ = location;
    return;
  }
  wanted_ = Location();
  model_.Open(location);
  UpdateStatus();
}

void FileView::GoUp() {
  const Location parent = listing().folder.Parent();
  if (!parent.empty()) Navigate(parent);
}

void FileView::OnPaneMessage(UINT message, WPARAM wParam, LPARAM) {
  const ComRef<IOleObject> self(this);
  if (message == kReaderMessage && wParam == 1) {
    const Location wanted = wanted_;
    Navigate(wanted);
  } else if (message == kReaderMessage) {
    model_.OnReaderMessage();
  } else if (message == kDropMessage) {
    CarryOutDrop();
  } else if (message == kEditAgainMessage) {
    OnEditAgain();
  } else if (message == kWatcherMessage) {
    model_.OnWatcherMessage();
  } else if (message == WM_TIMER && wParam == kSliceTimer) {
    model_.OnSliceTimer();
  } else if (message == WM_TIMER && wParam == kSortTimer) {
    ContinueContainerSort(false);
  }
}

// FolderModelEvents

void FileView::FolderOpened() {
  sort_.reset();
  saved_.reset();
  error_.clear();
  selectWhenShown_.clear();
  nextSelected_ = -1;
  pane_.thumbnails().OnFolderLeft();
  {
    const ListPane::Quiet quiet(pane_);
    pane_.SelectAll(false);
    pane_.SetRowCount(0);
  }
  UpdateStatus();
  followers_.Announce(listing().folder);
  FireFolderChanged();
}

void FileView::FolderFailed(const Location& folder, DWORD error) {
  ShowError(FolderErrorText(error, folder.Text(), SystemErrorText(error, folder.Name())));
  // Whoever asked for the folder goes back to the one that stays.
  if (!listing().folder.empty()) followers_.Announce(listing().folder);
  FireContentChanged();
}

void FileView::RowsAboutToChange(bool replaced) {
  saved_ = std::make_unique<SavedView>();
  const Listing& rows = listing();
  const int count = RowCount();
  const int selected = pane_.SelectedCount();
  saved_->all = count > 0 && selected == count && !replaced;
  if (!saved_->all) {
    for (const int row : pane_.SelectedRows()) {
      const ItemId id = IdOfRow(row);
      if (id == kNoItem) continue;
      if (replaced) {
        saved_->selectedNames.emplace_back(rows.store.name(id));
      } else {
        saved_->selected.push_back(id);
      }
    }
  } else {
    saved_->selected = rows.rows.rows();
  }
  saved_->focused = IdOfRow(pane_.FocusedRow());
  if (saved_->focused != kNoItem && !replaced) saved_->order = rows.rows.rows();
  saved_->topRow = count > 0 ? pane_.TopRow() : 0;
  if (saved_->topRow > 0) saved_->top = IdOfRow(saved_->topRow);
  if (!replaced) return;
  if (saved_->focused != kNoItem) saved_->focusedName = rows.store.name(saved_->focused);
  if (saved_->top != kNoItem) saved_->topName = rows.store.name(saved_->top);
}

// Turns names into the new listing's ids.
void FileView::RestoreByName() {
  ItemStore& store = model_.shown()->store;
  for (const std::wstring& name : saved_->selectedNames) {
    const ItemId id = store.Find(name);
    if (id != kNoItem) saved_->selected.push_back(id);
  }
  saved_->focused = saved_->focusedName.empty() ? kNoItem : store.Find(saved_->focusedName);
  saved_->top = saved_->topName.empty() ? kNoItem : store.Find(saved_->topName);
}

// The item with the focus has gone: the one after it takes over, or else the one before, so that the keys go on there.
void FileView::FocusNear(const SavedView& saved) {
  const auto gone = std::find(saved.order.begin(), saved.order.end(), saved.focused);
  const auto stays = [&](ItemId id) { return model_.rows().RowOf(id) >= 0; };
  auto next = std::find_if(gone, saved.order.end(), stays);
  if (next == saved.order.end()) {
    const auto before = std::find_if(std::make_reverse_iterator(gone), saved.order.rend(), stays);
    if (before == saved.order.rend()) return;
    next = before.base() - 1;
  }
  pane_.Focus(model_.rows().RowOf(*next));
}

void FileView::RowsChanged(bool replaced) {
  if (!pane_.list() || !saved_) return;
  const std::unique_ptr<SavedView> saved = std::move(saved_);
  if (replaced) {
    saved_ = std::make_unique<SavedView>(*saved);
    RestoreByName();
    error_.clear();  // what was wrong with the folder no longer is
    *saved = *saved_;
    saved_.reset();
  }
  const RowOrder& rows = model_.rows();
  const ListPane::Quiet quiet(pane_);
  pane_.SelectAll(false);
  pane_.SetRowCount(RowCount());
  for (const ItemId id : saved->selected) {
    const int row = rows.RowOf(id);
    if (row >= 0) pane_.Select(row, true);
  }
  const int focused = saved->focused != kNoItem ? rows.RowOf(saved->focused) : -1;
  if (focused >= 0) pane_.Focus(focused);
  if (focused < 0 && !replaced) FocusNear(*saved);
  if (saved->topRow > 0) {
    const int top = saved->top != kNoItem ? rows.RowOf(saved->top) : -1;
    pane_.ScrollTo(top >= 0 ? top : saved->topRow);
  }
  nextSelected_ = -1;
  UpdateStatus();
}

void FileView::FactsChanged() {
  pane_.Redraw();
  UpdateStatus();
}

void FileView::FillFinished() {
  UpdateStatus();
  pane_.Redraw();
  EventArguments<1> none;
  events().Fire(17, none.values(), 0);
  if (closed()) return;
  if (FireBeforeSort(static_cast<int>(model_.sortRule().column))) BeginContainerSort(model_.sortRule());
  FireContentChanged();
  if (!closed()) FireSelectionChanged();
}

void FileView::ChangesApplied() {
  // A sort that is under way knows nothing of what has come and gone.
  if ((sort_ || model_.sortedByContainer()) && FireBeforeSort(static_cast<int>(model_.sortRule().column))) {
    BeginContainerSort(model_.sortRule());
  }
  SelectShown();
  FireContentChanged();
  // The selected item may be one of those that went.
  if (!closed()) FireSelectionChanged();
}

// ListPaneOwner: texts

ItemId FileView::IdOfRow(int row) const {
  return row >= 0 && row < RowCount() ? model_.rows()[static_cast<size_t>(row)] : kNoItem;
}

std::wstring FileView::CellText(int row, int column) {
  const ItemId id = IdOfRow(row);
  if (id == kNoItem) return {};
  const Listing& rows = listing();
  const ItemRecord& record = rows.store.at(id);
  switch (static_cast<SortColumn>(column)) {
    case SortColumn::kName:
      return std::wstring(rows.store.name(id));
    case SortColumn::kSize:
      return rows.IsFolder(id) || (rows.IsVirtual() && record.modified == 0) ? std::wstring()
                                                                             : SizeInKilobytes(record.size);
    case SortColumn::kType:
      return rows.IsVirtual() && !(rows.AttributesOf(id) & SFGAO_FILESYSTEM)
                 ? L"System Folder"
                 : model_.types().NameOf(record.type) +
                       (record.attributes & kAttributeDamaged ? L" (damaged)" : L"");
    case SortColumn::kModified:
      return LocalDateTime(record.modified);
  }
  return {};
}

int FileView::CellImage(int row) {
  const ItemId id = IdOfRow(row);
  if (id == kNoItem) return 0;
  const std::shared_ptr<Listing>& rows = model_.shown();
  if (id >= rows->entries.size()) return model_.types().IconOf(rows->store.at(id).type);
  VirtualEntry& entry = rows->entries[id];
  if (entry.icon < 0) entry.icon = IconOfPidl(entry.pidl.get());
  return entry.icon;
}

bool FileView::RowDimmed(int row) {
  const ItemId id = IdOfRow(row);
  return id != kNoItem && listing().store.IsDimmed(id);
}

std::optional<ThumbnailSubject> FileView::Thumbnail(int row) {
  const ItemId id = IdOfRow(row);
  if (id == kNoItem || listing().IsFolder(id)) return std::nullopt;
  const ItemRecord& record = listing().store.at(id);
  const std::wstring path = listing().PathOf(id);
  if (path.empty()) return std::nullopt;
  return ThumbnailSubject{path, record.modified * 31 + record.size + 1};
}

int FileView::FindRow(int start, const std::wstring& prefix, bool partial, bool wrap) {
  const int count = RowCount();
  if (count == 0 || prefix.empty()) return -1;
  const int first = start < 0 || start >= count ? 0 : start;
  for (int step = 0; step < count; ++step) {
    const int row = first + step;
    if (row >= count && !wrap) return -1;
    const std::wstring_view name = listing().store.name(IdOfRow(row % count));
    const std::wstring_view compared = partial ? name.substr(0, prefix.size()) : name;
    if (EqualsIgnoringCase(compared, prefix)) return row % count;
  }
  return -1;
}

void FileView::UpdateStatus() {
  statusStale_ = true;
  pane_.RedrawStatus();
}

std::wstring FileView::StatusText(bool& isError) {
  isError = !error_.empty();
  if (isError) return error_;
  if (!statusStale_) return statusText_;
  if (listing().folder.empty()) return {};
  StatusFacts facts;
  facts.items = model_.rows().size();
  facts.selected = static_cast<size_t>(pane_.SelectedCount());
  facts.reading = model_.reading();
  const auto add = [&](ItemId id) {
    if (listing().IsFolder(id)) return;
    facts.selectionHasFiles = true;
    facts.selectedBytes += listing().store.at(id).size;
  };
  if (facts.selected == facts.items) {
    for (const ItemId id : model_.rows().rows()) add(id);
  } else {
    for (const int row : pane_.SelectedRows()) add(IdOfRow(row));
  }
  statusText_ = controls::StatusText(facts);
  statusStale_ = false;
  return statusText_;
}

std::wstring FileView::EmptyText() {
  if (model_.reading()) return L"Reading the folder\u2026";
  if (listing().folder.empty()) return error_;
  if (!error_.empty()) return error_;
  const Location& folder = listing().folder;
  return folder.InArchive() && !folder.IsInsideArchive() ? L"This archive is empty."
                                                         : L"This folder is empty.";
}

void FileView::ShowError(const std::wstring& text) {
  error_ = text;
  UpdateStatus();
  pane_.Redraw();
}

void FileView::ClearError() {
  if (error_.empty()) return;
  error_.clear();
  UpdateStatus();
}

}  // namespace controls
