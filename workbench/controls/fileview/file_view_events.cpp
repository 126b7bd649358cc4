// The events that the file view raises.
#include "workbench/controls/com/event_arguments.h"
#include "workbench/controls/fileview/file_view.h"

namespace controls {
namespace {

constexpr DISPID kClick = 1;
constexpr DISPID kDoubleClick = 2;
constexpr DISPID kFolderChanged = 3;
constexpr DISPID kSelectionChanged = 10;
constexpr DISPID kItemFound = 12;
constexpr DISPID kContentChanged = 18;
constexpr DISPID kBeforeSort = 19;
constexpr DISPID kCompare = 20;

constexpr long kSortByComparison = 3;
constexpr const wchar_t* kColumnNames[kColumnCount] = {L"Name", L"Size", L"Type", L"Modified"};

// A list that is sorted within this many comparisons is sorted before anybody sees it unsorted.
constexpr size_t kComparisonsAtOnce = 20000;
constexpr size_t kComparisonsBetweenClockReads = 64;
constexpr ULONGLONG kSliceMs = 12;

}  // namespace

ComRef<IDispatch> FileView::ItemOfRow(int row) {
  const ItemId id = IdOfRow(row);
  if (id == kNoItem) return nullptr;
  return ComRef<IDispatch>::Attach(ComObject<ListingItem>::Create(itemOwner_, model_.shown(), id).detach());
}

ComRef<IDispatch> FileView::EmptyItem() {
  return ComRef<IDispatch>::Attach(ComObject<LocationItem>::Create(Location()).detach());
}

// Runs for each item of a folder: one object serves all of them as long as no sink keeps it.
bool FileView::AcceptItem(const std::shared_ptr<Listing>& listing, ItemId id) {
  const ULONG attributes = listing->AttributesOf(id);
  // Archives stay in a view without folders: they are files too.
  if (!switches_.folders && listing->IsFolder(id)) return false;
  if (!switches_.virtualFolders && !listing->folder.InArchive() &&
      !(attributes & (SFGAO_FILESYSTEM | SFGAO_FILESYSANCESTOR)))
    return false;
  if (!events().HasSinks() || eventsFrozen()) return true;
  if (askedItem_) {
    askedItem_->AddRef();
    if (askedItem_->Release() != 1) askedItem_.reset();
  }
  if (askedItem_) {
    askedItem_->Become(listing, id);
  } else {
    askedItem_ = ComObject<ListingItem>::Create(itemOwner_, listing, id);
  }
  const ComRef<ComObject<ListingItem>> item = askedItem_;
  asking_ = true;
  leftOut_ = false;
  EventArguments<1> arguments;
  arguments.Object(item.get());
  events().Fire(kItemFound, arguments.values(), arguments.count());
  asking_ = false;
  return !leftOut_;
}

void FileView::FireClick(int row, POINT point) {
  const ComRef<IDispatch> item = ItemOfRow(row);
  if (!item || eventsFrozen()) return;
  EventArguments<3> arguments;
  arguments.Object(item.get()).Long(point.x).Long(point.y);
  events().Fire(kClick, arguments.values(), arguments.count());
}

// True when the container did what is to be done.
bool FileView::FireDoubleClick(int row, POINT point) {
  const ComRef<IDispatch> item = ItemOfRow(row);
  if (!item || eventsFrozen()) return false;
  VARIANT_BOOL cancel = VARIANT_FALSE;
  EventArguments<4> arguments;
  arguments.Object(item.get()).Long(point.x).Long(point.y).BoolByReference(&cancel);
  events().Fire(kDoubleClick, arguments.values(), arguments.count());
  return cancel != VARIANT_FALSE;
}

void FileView::FireFolderChanged() {
  if (eventsFrozen()) return;
  EventArguments<1> arguments;
  arguments.Text(listing().folder.Text());
  events().Fire(kFolderChanged, arguments.values(), arguments.count());
}

void FileView::FireSelectionChanged() {
  if (eventsFrozen()) return;
  const int row = pane_.NextSelected(-1);
  const ComRef<IDispatch> item = row >= 0 ? ItemOfRow(row) : EmptyItem();
  EventArguments<2> arguments;
  arguments.Object(item.get()).Bool(row >= 0);
  events().Fire(kSelectionChanged, arguments.values(), arguments.count());
}

void FileView::FireContentChanged() {
  if (eventsFrozen()) return;
  EventArguments<1> none;
  events().Fire(kContentChanged, none.values(), 0);
}

// True when the container wants to be asked for each comparison.
bool FileView::FireBeforeSort(int column) {
  if (eventsFrozen()) return false;
  long answer = 0;
  EventArguments<3> arguments;
  arguments.Text(kColumnNames[column]).Long(column).LongByReference(&answer);
  events().Fire(kBeforeSort, arguments.values(), arguments.count());
  return answer == kSortByComparison && !closed();
}

// The container's order of two items; our own where it does not decide.
long FileView::FireCompare(const std::shared_ptr<Listing>& rows, ItemId first, ItemId second) {
  const ComRef<IDispatch> a =
      ComRef<IDispatch>::Attach(ComObject<ListingItem>::Create(itemOwner_, rows, first).detach());
  const ComRef<IDispatch> b =
      ComRef<IDispatch>::Attach(ComObject<ListingItem>::Create(itemOwner_, rows, second).detach());
  long order = 0;
  EventArguments<3> arguments;
  arguments.Object(a.get()).Object(b.get()).LongByReference(&order);
  events().Fire(kCompare, arguments.values(), arguments.count());
  return order;
}

void FileView::SortBy(SortRule rule) {
  sorter_.reset();
  pane_.ShowSort(rule);
  if (FireBeforeSort(static_cast<int>(rule.column))) {
    BeginContainerSort(rule);
  } else if (!closed()) {
    model_.SortByOwnRule(rule);
  }
  if (!closed()) FireContentChanged();
}

void FileView::BeginContainerSort(SortRule rule) {
  sorterRule_ = rule;
  sorterListing_ = model_.shown();
  // Items that the container holds for equal keep our order.
  std::vector<ItemId> rows = sorterListing_->rows.rows();
  sorter_.emplace(std::move(rows));
  ContinueContainerSort();
}

// A part of the sort; a long one goes on at the next timer message, so that the window stays alive.
void FileView::ContinueContainerSort() {
  if (pane_.hwnd()) KillTimer(pane_.hwnd(), kSortTimer);
  if (!sorter_ || closed()) return;
  const std::shared_ptr<Listing> rows = sorterListing_;
  const auto less = [&](ItemId first, ItemId second) {
    if (closed()) return false;
    const long order = FireCompare(rows, first, second);
    // Folders stay in front in both directions.
    const bool mayTurn = rows->IsFolder(first) == rows->IsFolder(second);
    return sorterRule_.descending && mayTurn ? order > 0 : order < 0;
  };
  // The sorter works outside the member: a sink may start another sort or leave the folder.
  MergeSorter<ItemId> sorter = std::move(*sorter_);
  sorter_.reset();
  const ULONGLONG start = GetTickCount64();
  size_t comparisons = 0;
  bool done = false;
  do {
    done = sorter.Step(kComparisonsBetweenClockReads, less);
    comparisons += kComparisonsBetweenClockReads;
    if (closed() || sorter_ || rows != model_.shown()) return;
  } while (!done && (GetTickCount64() - start < kSliceMs ||
                     (comparisons < kComparisonsAtOnce && GetTickCount64() - start < 10 * kSliceMs)));
  if (!done) {
    sorter_.emplace(std::move(sorter));
    SetTimer(pane_.hwnd(), kSortTimer, USER_TIMER_MINIMUM, nullptr);
    return;
  }
  std::vector<ItemId> sorted = sorter.TakeItems();
  // Rows that came or went meanwhile: begin again with what is there now.
  if (sorted.size() != rows->rows.size()) return BeginContainerSort(sorterRule_);
  model_.AssignOrder(sorterRule_, std::move(sorted));
  sorterListing_.reset();
  FireContentChanged();
}

}  // namespace controls
