// The contents of the folder that a file view shows: reading in slices, order, filter, changes on disk.
#pragma once

#include <windows.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "workbench/controls/model/item_store.h"
#include "workbench/controls/model/row_order.h"
#include "workbench/controls/shell/folder_reader.h"
#include "workbench/controls/shell/folder_watcher.h"
#include "workbench/controls/shell/location.h"
#include "workbench/controls/shell/type_cache.h"

namespace controls {

// What the shell said of an item of a virtual folder.
struct VirtualEntry {
  SharedPidl pidl;    // absolute
  std::wstring path;  // empty when the item is on no file system
  ULONG attributes = 0;
  int icon = -1;  // asked when it is first shown
};

// One reading of one folder. Item objects share it, so it may outlive the view's stay in the folder.
struct Listing {
  Location folder;
  ItemStore store;
  std::vector<VirtualEntry> entries;  // by item, in virtual folders only
  RowOrder rows;
  ArchivePointer archive;   // that the folder lies in or is; null when it cannot be read
  bool zipFolders = false;  // archives in this folder count as folders

  bool IsVirtual() const { return !folder.IsFileSystem(); }
  // Files can be put here, renamed and deleted.
  bool IsChangeable() const { return folder.IsFileSystem() && !folder.InArchive(); }
  bool IsFolder(ItemId id) const { return store.IsFolder(id); }
  std::wstring PathOf(ItemId id) const;
  Location LocationOf(ItemId id) const;
  ULONG AttributesOf(ItemId id) const;
  // Marked as hidden; drives are not, whatever the system says of them.
  bool IsHidden(ItemId id) const;
};

class FolderModelEvents {
 public:
  // Whether an item that was found shall be shown.
  virtual bool AcceptItem(const std::shared_ptr<Listing>& listing, ItemId id) = 0;
  // The shown listing was replaced by one of another folder; it has no rows yet.
  virtual void FolderOpened() = 0;
  virtual void FolderFailed(const Location& folder, DWORD error) = 0;
  // Around each change of rows. replaced: the listing is another one of the same folder (refresh).
  virtual void RowsAboutToChange(bool replaced) = 0;
  virtual void RowsChanged(bool replaced) = 0;
  // Facts of shown items changed, the rows did not.
  virtual void FactsChanged() = 0;
  // Everything that there is to read has been read.
  virtual void FillFinished() = 0;
  // After a change on disk was taken over.
  virtual void ChangesApplied() = 0;

 protected:
  ~FolderModelEvents() = default;
};

// Window messages that the owner's window passes on.
inline constexpr UINT kReaderMessage = WM_APP + 1;
inline constexpr UINT kWatcherMessage = WM_APP + 2;
inline constexpr UINT kDropMessage = WM_APP + 3;
inline constexpr UINT kEditAgainMessage = WM_APP + 4;
inline constexpr UINT_PTR kSliceTimer = 1;
inline constexpr UINT_PTR kSortTimer = 2;

class FolderModel {
 public:
  explicit FolderModel(FolderModelEvents& events) : events_(events), shown_(std::make_shared<Listing>()) {}

  // The window that gets the messages; null ends all work.
  void SetWindow(HWND window);
  // Goes to a folder. The view stays where it is until the folder is known to be readable, which for most
  // folders is before this returns.
  void Open(const Location& folder);
  // Reads the folder again. The rows stay until the new ones are complete.
  void Refresh();
  void Stop();

  void OnReaderMessage();
  void OnWatcherMessage();
  void OnSliceTimer();

  // Whether ZIP archives can be opened as folders; what is shown follows.
  void SetZipFolders(bool zipFolders);

  const std::shared_ptr<Listing>& shown() const { return shown_; }
  const RowOrder& rows() const { return shown_->rows; }
  bool reading() const { return filling_ != nullptr; }
  TypeCache& types() { return types_; }
  SortRule sortRule() const { return rule_; }
  bool sortedByContainer() const { return sortedByContainer_; }

  // Sorts the rows by the control's own order.
  void SortByOwnRule(SortRule rule);
  // Takes over an order that was found by the container's comparisons.
  void AssignOrder(SortRule rule, std::vector<ItemId> rows);

  // Takes an item over that was just made or renamed by this view, before the system reports it. The new
  // item's id.
  ItemId AddNow(const std::wstring& name, const ItemFacts& facts);
  void RenameNow(ItemId id, const std::wstring& name);

 private:
  void StartReading(const Location& folder, bool refresh);
  void OpenVirtual(const Location& folder, bool refresh);
  void TakeArchive();
  bool CommitOpened();
  void Watch();
  void Fail();
  bool FillUntil(ULONGLONG deadline);
  void AddEntry(std::wstring_view name, const ItemFacts& facts);
  void MergeAdded(bool last);
  void FinishFilling();
  bool ArchiveChanged(const ChangeSet& set) const;
  // What a set of changes does to the rows.
  struct RowChanges {
    std::vector<ItemId> moved;  // new rows, and rows whose place may be another one
    bool factsChanged = false;
    bool removed = false;
  };
  void ApplyChanges(const ChangeSet& set);
  bool ApplyChange(const ItemChange& change, RowChanges& rows);
  bool UpdateItem(ItemId id, const ItemFacts& facts, RowChanges& rows);
  void ApplyRowChanges(RowChanges rows);
  OwnOrder Order(const Listing& listing);
  void StartTimer();
  void StopTimer();

  FolderModelEvents& events_;
  HWND window_ = nullptr;
  TypeCache types_;
  std::vector<uint32_t> typeRanks_;
  SortRule rule_;
  bool sortedByContainer_ = false;
  bool zipFolders_ = true;

  std::shared_ptr<Listing> shown_;
  std::shared_ptr<Listing> filling_;  // null when nothing is read; the shown one while a new folder fills
  bool refreshing_ = false;           // filling_ replaces shown_ when it is complete
  bool opened_ = false;               // the reading folder is known to be readable
  bool readAgain_ = false;            // something changed during a refresh
  bool timerRuns_ = false;
  FolderReader reader_;
  FolderWatcher watcher_;
  ItemBatch batch_;
  size_t batchAt_ = 0;
  std::vector<ItemId> added_;
  ULONGLONG lastMerge_ = 0;
  ULONGLONG mergePause_ = 0;
};

}  // namespace controls
