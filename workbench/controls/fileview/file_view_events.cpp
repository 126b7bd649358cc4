// The events that the file view raises.
#include "workbench/controls/com/event_arguments.h"
#include "workbench/controls/fileview/container_sort.h"
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
constexpr size_t kComparisonsAtOnce = 100000;
constexpr ULONGLONG kFirstPartMs = 120;
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
  if (!switches_.hiddenItems && listing->IsHidden(id)) return false;
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
long FileView::FireCompare(ContainerSort& sort, ItemId first, ItemId second) {
  const auto itemOf = [&](ItemId id) {
    ComRef<IDispatch>& item = sort.items[id];
    if (!item) {
      item = ComRef<IDispatch>::Attach(ComObject<ListingItem>::Create(itemOwner_, sort.listing, id).detach());
    }
    return item.get();
  };
  long order = 0;
  EventArguments<3> arguments;
  arguments.Object(itemOf(first)).Object(itemOf(second)).LongByReference(&order);
  events().Fire(kCompare, arguments.values(), arguments.count());
  return order;
}

void FileView::SortBy(SortRule rule) {
  sort_.reset();
  pane_.ShowSort(rule);
  if (FireBeforeSort(static_cast<int>(rule.column))) {
    BeginContainerSort(rule);
  } else if (!closed()) {
    model_.SortByOwnRule(rule);
  }
  if (!closed()) FireContentChanged();
}

void FileView::BeginContainerSort(SortRule rule) {
  // Items that the container holds for equal keep our order.
  sort_ = std::make_unique<ContainerSort>(rule, model_.shown());
  ContinueContainerSort(true);
}

void FileView::StopSortTimer() {
  if (sortTimerRuns_ && pane_.hwnd()) KillTimer(pane_.hwnd(), kSortTimer);
  sortTimerRuns_ = false;
}

// A part of the sort; a long one goes on at the next timer message, which comes after input and painting.
void FileView::ContinueContainerSort(bool first) {
  if (!sort_ || closed()) return StopSortTimer();
  // Set before the work, the timer is due when the work is done.
  sortTimerRuns_ = SetTimer(pane_.hwnd(), kSortTimer, USER_TIMER_MINIMUM, nullptr) != 0;
  // The part works on a sort of its own: a sink may start another one or leave the folder.
  std::unique_ptr<ContainerSort> sort = std::move(sort_);
  const bool done = SortPart(*sort, first);
  if (closed() || sort_ || sort->listing != model_.shown()) return;
  if (done) {
    StopSortTimer();
    return FinishContainerSort(*sort);
  }
  sort_ = std::move(sort);
  if (!sortTimerRuns_) {
    sortTimerRuns_ = SetTimer(pane_.hwnd(), kSortTimer, USER_TIMER_MINIMUM, nullptr) != 0;
  }
}

// True when everything is in order.
bool FileView::SortPart(ContainerSort& sort, bool first) {
  const auto less = [&](ItemId a, ItemId b) {
    if (closed()) return false;
    const long order = FireCompare(sort, a, b);
    // Folders stay in front in both directions.
    const bool mayTurn = sort.listing->IsFolder(a) == sort.listing->IsFolder(b);
    return sort.rule.descending && mayTurn ? order > 0 : order < 0;
  };
  const ULONGLONG start = GetTickCount64();
  size_t comparisons = 0;
  for (;;) {
    if (sort.sorter.Step(kComparisonsBetweenClockReads, less)) return true;
    if (closed() || sort_ || sort.listing != model_.shown()) return false;
    comparisons += kComparisonsBetweenClockReads;
    const ULONGLONG time = GetTickCount64() - start;
    const bool mayGoOn = first && comparisons < kComparisonsAtOnce && time < kFirstPartMs;
    if (time >= kSliceMs && !mayGoOn) return false;
  }
}

void FileView::FinishContainerSort(ContainerSort& sort) {
  std::vector<ItemId> sorted = sort.sorter.TakeItems();
  // Rows that came or went meanwhile: begin again with what is there now.
  if (sorted.size() != sort.listing->rows.size()) return BeginContainerSort(sort.rule);
  model_.AssignOrder(sort.rule, std::move(sorted));
  FireContentChanged();
}

}  // namespace controls
