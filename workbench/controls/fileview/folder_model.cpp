#include "workbench/controls/fileview/folder_model.h"

#include <algorithm>

#include "workbench/controls/fileview/virtual_folder.h"
#include "workbench/controls/model/display_text.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/item_object.h"

namespace controls {
namespace {

// A slice of work leaves the window free for input and painting after this time.
constexpr ULONGLONG kSliceMs = 12;
// Most folders answer within this time; then a navigation is complete when the call returns.
constexpr DWORD kOpenWaitMs = 60;
constexpr ULONGLONG kMergeEveryMs = 120;

}  // namespace

std::wstring Listing::PathOf(ItemId id) const {
  if (id < entries.size()) return entries[id].path;
  return folder.InArchive() ? JoinPath(folder.path(), store.name(id)) : PathInFolder(folder.path(), store.name(id));
}

Location Listing::LocationOf(ItemId id) const {
  if (id < entries.size()) return Location::FromPidl(entries[id].pidl.get());
  return Location::FromPath(PathOf(id), folder.archiveLength());
}

bool Listing::IsHidden(ItemId id) const {
  const bool isDrive = id < entries.size() && IsRootPath(entries[id].path);
  return !isDrive && (store.at(id).attributes & kAttributeHidden) != 0;
}

ULONG Listing::AttributesOf(ItemId id) const {
  const ItemRecord& record = store.at(id);
  if (folder.InArchive()) return ArchiveItemAttributes(record.attributes);
  if (id >= entries.size()) return ShellAttributes(record.attributes, store.name(id), zipFolders);
  const bool isFile = (entries[id].attributes & (SFGAO_FILESYSTEM | SFGAO_FOLDER)) == SFGAO_FILESYSTEM;
  const bool isArchive = isFile && zipFolders && EqualsIgnoringCase(ExtensionOf(entries[id].path), L"zip");
  return entries[id].attributes | (isArchive ? SFGAO_FOLDER | SFGAO_STREAM : 0u);
}

void FolderModel::SetWindow(HWND window) {
  if (!window) Stop();
  window_ = window;
}

void FolderModel::Stop() {
  reader_.Cancel();
  watcher_.Stop();
  StopTimer();
  filling_.reset();
  added_.clear();
  batch_ = ItemBatch();
  batchAt_ = 0;
}

void FolderModel::StartTimer() {
  if (timerRuns_ || !window_) return;
  timerRuns_ = SetTimer(window_, kSliceTimer, USER_TIMER_MINIMUM, nullptr) != 0;
}

void FolderModel::StopTimer() {
  if (timerRuns_) KillTimer(window_, kSliceTimer);
  timerRuns_ = false;
}

void FolderModel::Open(const Location& folder) {
  if (!window_ || folder.empty()) return;
  StartReading(folder, false);
}

void FolderModel::Refresh() {
  if (!window_ || shown_->folder.empty()) return;
  if (filling_ && !refreshing_) {
    readAgain_ = true;  // the first reading goes on; nothing that it found is lost
    return;
  }
  StartReading(shown_->folder, true);
}

void FolderModel::StartReading(const Location& folder, bool refresh) {
  // A navigation that replaces another one leaves the rows of the old folder as they are.
  reader_.Cancel();
  StopTimer();
  batch_ = ItemBatch();
  batchAt_ = 0;
  added_.clear();
  readAgain_ = false;
  opened_ = false;
  refreshing_ = refresh;
  mergePause_ = 0;
  filling_ = std::make_shared<Listing>();
  filling_->folder = folder;
  filling_->zipFolders = zipFolders_;
  if (!folder.IsFileSystem()) {
    OpenVirtual(folder, refresh);
    return;
  }
  reader_.Start(folder.path(), false, window_, kReaderMessage, {zipFolders_, shown_->archive});
  reader_.WaitUntilOpened(kOpenWaitMs);
  if (reader_.progress() != FolderReader::Progress::kOpening) OnReaderMessage();
}

void FolderModel::OpenVirtual(const Location& folder, bool) {
  std::vector<VirtualItem> items;
  const HRESULT read = ReadVirtualFolder(folder, window_, items);
  if (FAILED(read)) {
    const Location failed = filling_->folder;
    filling_.reset();
    events_.FolderFailed(failed, HRESULT_CODE(read));
    return;
  }
  opened_ = true;
  if (!refreshing_ && !CommitOpened()) return;
  const std::shared_ptr<Listing> mine = filling_;
  for (VirtualItem& item : items) {
    mine->entries.push_back(std::move(item.entry));
    AddEntry(item.name, item.facts);
    if (filling_ != mine) return;
  }
  FinishFilling();
}

// What the reader found the path to be.
void FolderModel::TakeArchive() {
  const size_t length = reader_.archiveLength();
  filling_->archive = reader_.archive();
  if (length != filling_->folder.archiveLength()) {
    filling_->folder = Location::FromPath(filling_->folder.path(), length);
  }
}

// Changes of an archive are changes in the folder that holds it.
void FolderModel::Watch() {
  const Location& folder = shown_->folder;
  if (folder.IsFileSystem()) watcher_.Start(folder.Holder().path(), window_, kWatcherMessage);
}

void FolderModel::SetZipFolders(bool zipFolders) {
  zipFolders_ = zipFolders;
  shown_->zipFolders = zipFolders;
  if (filling_) filling_->zipFolders = zipFolders;
}

// The folder can be read: from now on it is the one that is shown. False when an event handler went
// elsewhere.
bool FolderModel::CommitOpened() {
  opened_ = true;
  const std::shared_ptr<Listing> mine = filling_;
  watcher_.Stop();
  shown_ = mine;
  sortedByContainer_ = false;
  Watch();
  events_.FolderOpened();
  return filling_ == mine;
}

void FolderModel::Fail() {
  const DWORD error = reader_.error();
  const Location folder = filling_->folder;
  reader_.Cancel();
  StopTimer();
  const bool wasOpen = opened_ && !refreshing_;
  filling_.reset();
  const bool gone = error == ERROR_PATH_NOT_FOUND || error == ERROR_FILE_NOT_FOUND || IsArchiveError(error);
  if (refreshing_ && gone) {
    // The folder that is shown has gone, or its archive is none any more: its rows go too.
    events_.RowsAboutToChange(false);
    shown_->rows.Clear();
    events_.RowsChanged(false);
  }
  if (wasOpen) events_.FillFinished();
  events_.FolderFailed(folder, error);
  // An archive that is being written can be read when its writer is done.
  if (refreshing_ && readAgain_ && !filling_) Refresh();
}

void FolderModel::OnReaderMessage() {
  reader_.Received();
  if (!filling_) return;
  if (!opened_) {
    const FolderReader::Progress progress = reader_.progress();
    if (progress == FolderReader::Progress::kOpening) return;
    if (progress == FolderReader::Progress::kFailed && !reader_.opened()) return Fail();
    TakeArchive();
    if (refreshing_) {
      opened_ = true;
    } else if (!CommitOpened()) {
      return;
    }
  }
  // The work is done by a timer, whose messages come after input and painting.
  StartTimer();
}

void FolderModel::OnSliceTimer() {
  if (!filling_ || !opened_) return StopTimer();
  // Set again before the work, the timer is due when the work is done.
  SetTimer(window_, kSliceTimer, USER_TIMER_MINIMUM, nullptr);
  const std::shared_ptr<Listing> mine = filling_;
  const ULONGLONG start = GetTickCount64();
  const FolderReader::Progress progress = reader_.progress();  // before the batches: none comes after the end
  const bool drained = FillUntil(start + kSliceMs);
  if (filling_ != mine) return;
  if (!drained) return MergeAdded(false);
  if (progress == FolderReader::Progress::kFinished) return FinishFilling();
  if (progress == FolderReader::Progress::kFailed) {
    MergeAdded(true);
    if (filling_ == mine) Fail();
    return;
  }
  MergeAdded(false);
  if (filling_ == mine && added_.empty()) StopTimer();  // the reader's next message starts it again
}

// True when no batch is waiting any more; stops early when the time is up or an event handler went elsewhere.
bool FolderModel::FillUntil(ULONGLONG deadline) {
  const std::shared_ptr<Listing> mine = filling_;
  for (;;) {
    if (batchAt_ == batch_.entries.size()) {
      batchAt_ = 0;
      batch_ = ItemBatch();
      if (!reader_.TakeBatch(batch_)) return true;
    }
    while (batchAt_ < batch_.entries.size()) {
      const ItemBatch::Entry& entry = batch_.entries[batchAt_++];
      AddEntry(batch_.name(entry), entry.facts);
      if (filling_ != mine) return false;
      if ((batchAt_ & 15) == 0 && GetTickCount64() >= deadline) return false;
    }
  }
}

void FolderModel::AddEntry(std::wstring_view name, const ItemFacts& facts) {
  const std::shared_ptr<Listing> mine = filling_;
  const ItemId id = mine->store.Add(name, facts);
  mine->store.at(id).type = types_.TypeOf(name, mine->store.IsFolder(id));
  const bool accepted = events_.AcceptItem(mine, id);
  if (filling_ != mine) return;
  if (accepted) {
    added_.push_back(id);
  } else {
    mine->store.at(id).flags |= kItemLeftOut;
  }
}

OwnOrder FolderModel::Order(const Listing& listing) {
  if (rule_.column == SortColumn::kType) typeRanks_ = types_.Ranks();
  return OwnOrder(listing.store, rule_, &typeRanks_);
}

// Shows what was found since the last time. The first rows go up at once; later merges keep a distance that
// grows with what they cost.
void FolderModel::MergeAdded(bool last) {
  const ULONGLONG now = GetTickCount64();
  if (added_.empty()) return;
  if (!last && filling_->rows.size() != 0 && now - lastMerge_ < mergePause_) return;
  const bool visible = filling_ == shown_;
  if (visible) events_.RowsAboutToChange(false);
  filling_->rows.Merge(std::move(added_), Order(*filling_));
  added_.clear();
  if (visible) events_.RowsChanged(false);
  lastMerge_ = GetTickCount64();
  mergePause_ = std::max(kMergeEveryMs, (lastMerge_ - now) * 8);
}

void FolderModel::FinishFilling() {
  StopTimer();
  MergeAdded(true);
  reader_.Cancel();
  const bool replace = refreshing_;
  if (replace) {
    events_.RowsAboutToChange(true);
    shown_ = filling_;
    sortedByContainer_ = false;
  }
  filling_.reset();
  if (replace) events_.RowsChanged(true);
  events_.FillFinished();
  if (readAgain_ && !filling_) Refresh();
}

void FolderModel::OnWatcherMessage() {
  ChangeSet set;
  if (!watcher_.Take(set)) return;
  if (shown_->folder.InArchive()) {
    if (!ArchiveChanged(set)) return;
    if (filling_) {
      readAgain_ = true;
    } else {
      Refresh();
    }
    return;
  }
  if (set.tooMany || set.ended || refreshing_) {
    if (filling_) {
      readAgain_ = true;
    } else {
      Refresh();
    }
    if (!refreshing_ || set.changes.empty()) return;
  }
  ApplyChanges(set);
}

bool FolderModel::ArchiveChanged(const ChangeSet& set) const {
  if (set.tooMany || set.ended) return true;
  const Location archive = shown_->folder.Archive();
  const std::wstring_view name = NameOfPath(archive.path());
  return std::any_of(set.changes.begin(), set.changes.end(),
                     [&](const ItemChange& change) { return EqualsIgnoringCase(change.name, name); });
}

void FolderModel::ApplyChanges(const ChangeSet& set) {
  RowChanges rows;
  for (const ItemChange& change : set.changes) {
    if (!ApplyChange(change, rows)) return;
  }
  if (rows.removed || !rows.moved.empty()) return ApplyRowChanges(std::move(rows));
  if (rows.factsChanged) events_.FactsChanged();
}

// False when an event handler went elsewhere.
bool FolderModel::ApplyChange(const ItemChange& change, RowChanges& rows) {
  const std::shared_ptr<Listing> mine = shown_;
  const ItemId found = mine->store.Find(change.name);
  const bool exact = found != kNoItem && mine->store.name(found) == change.name;
  if (!change.exists) {
    if (exact) mine->store.at(found).flags |= kItemGone;
    rows.removed |= exact;
    return true;
  }
  if (exact) return UpdateItem(found, change.facts, rows);
  const ItemId id = mine->store.Add(change.name, change.facts);
  mine->store.at(id).type = types_.TypeOf(change.name, mine->store.IsFolder(id));
  const bool accepted = events_.AcceptItem(mine, id);
  if (shown_ != mine) return false;
  if (accepted) rows.moved.push_back(id);
  return true;
}

bool FolderModel::UpdateItem(ItemId id, const ItemFacts& facts, RowChanges& rows) {
  const std::shared_ptr<Listing> mine = shown_;
  const bool folderChanged = mine->store.IsFolder(id) != ((facts.attributes & kAttributeDirectory) != 0);
  const bool wasHidden = mine->IsHidden(id);
  mine->store.Update(id, facts);
  mine->store.at(id).type = types_.TypeOf(mine->store.name(id), mine->store.IsFolder(id));
  rows.factsChanged = true;
  bool appears = false;
  if (mine->IsHidden(id) != wasHidden) {
    // The view may show hidden items or not: it is asked as for a new one.
    const bool accepted = events_.AcceptItem(mine, id);
    if (shown_ != mine) return false;
    uint16_t& flags = mine->store.at(id).flags;
    flags = static_cast<uint16_t>(accepted ? flags & ~kItemLeftOut : flags | kItemLeftOut);
    rows.removed |= !accepted;
    if (!accepted) return true;
    appears = mine->rows.RowOf(id) < 0;
  }
  // A file that grows keeps its row unless the order depends on it.
  const bool orderDepends = rule_.column == SortColumn::kSize || rule_.column == SortColumn::kModified;
  if (appears || ((orderDepends || folderChanged) && mine->rows.RowOf(id) >= 0)) rows.moved.push_back(id);
  return true;
}

void FolderModel::ApplyRowChanges(RowChanges rows) {
  const std::shared_ptr<Listing> mine = shown_;
  constexpr uint16_t kNotHere = kItemGone | kItemLeftOut | kItemMarked;
  const auto goes = [&](ItemId id) { return (mine->store.at(id).flags & kNotHere) != 0; };
  events_.RowsAboutToChange(false);
  // What came and went within one set of changes is not there, and what changed twice moves once.
  std::erase_if(rows.moved, [&](ItemId id) {
    if (goes(id)) return true;
    mine->store.at(id).flags |= kItemMarked;
    return false;
  });
  mine->rows.RemoveIf(goes);
  std::erase_if(added_, goes);
  for (const ItemId id : rows.moved) mine->store.at(id).flags &= static_cast<uint16_t>(~kItemMarked);
  if (sortedByContainer_) {
    for (const ItemId id : rows.moved) mine->rows.Append(id);
  } else {
    mine->rows.Merge(std::move(rows.moved), Order(*mine));
  }
  events_.RowsChanged(false);
  events_.ChangesApplied();
}

void FolderModel::SortByOwnRule(SortRule rule) {
  events_.RowsAboutToChange(false);
  rule_ = rule;
  sortedByContainer_ = false;
  shown_->rows.Sort(Order(*shown_));
  events_.RowsChanged(false);
}

void FolderModel::AssignOrder(SortRule rule, std::vector<ItemId> rows) {
  events_.RowsAboutToChange(false);
  rule_ = rule;
  sortedByContainer_ = true;
  shown_->rows.Assign(std::move(rows));
  events_.RowsChanged(false);
}

ItemId FolderModel::AddNow(const std::wstring& name, const ItemFacts& facts) {
  const std::shared_ptr<Listing> mine = shown_;
  ItemId known = mine->store.Find(name);
  if (known != kNoItem && mine->store.name(known) == name) return known;
  ChangeSet set;
  set.changes.push_back({name, true, facts});
  ApplyChanges(set);
  return mine == shown_ ? mine->store.Find(name) : kNoItem;
}

void FolderModel::RenameNow(ItemId id, const std::wstring& name) {
  const ItemRecord& record = shown_->store.at(id);
  ChangeSet set;
  set.changes.push_back({std::wstring(shown_->store.name(id)), false, {}});
  set.changes.push_back({name, true, {record.size, record.modified, record.attributes}});
  ApplyChanges(set);
}

}  // namespace controls
