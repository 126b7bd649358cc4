// The tree's nodes: reading folders, keeping the nodes in step with the disk.
#include <windows.h>

#include <algorithm>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/folderview/tree_pane.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

// Each watch is a thread that waits; folders beyond these are read again when they are opened.
constexpr size_t kMostWatches = 48;

}  // namespace

void TreePane::Populate(HTREEITEM item) {
  Node* node = NodeOf(item);
  if (!node || node->populated) return;
  if (node->location.IsFileSystem()) {
    StartReading(item);
  } else {
    PopulateVirtual(item);
  }
}

void TreePane::PopulateVirtual(HTREEITEM item) {
  Node* node = NodeOf(item);
  node->populated = true;
  ComRef<IShellFolder> folder;
  SHGetDesktopFolder(folder.put());
  if (folder && !node->location.IsDesktop()) {
    const ComRef<IShellFolder> desktop = folder;
    desktop->BindToObject(node->location.pidl(), nullptr, IID_IShellFolder, folder.put_void());
  }
  ComRef<IEnumIDList> list;
  if (!folder || FAILED(folder->EnumObjects(hwnd(), SHCONTF_FOLDERS | SHCONTF_INCLUDEHIDDEN, list.put())) ||
      !list) {
    if (!ChildOf(item)) SetChildCount(item, 0);
    return;
  }
  LPITEMIDLIST next = nullptr;
  while (list->Next(1, &next, nullptr) == S_OK) {
    const UniquePidl child(next);
    const UniquePidl whole(ILCombine(node->location.pidl(), child.get()));
    const Location location = Location::FromPidl(whole.get());
    LPCITEMIDLIST children[] = {child.get()};
    ULONG attributes = SFGAO_FILESYSTEM | SFGAO_FILESYSANCESTOR | SFGAO_FOLDER | SFGAO_HIDDEN;
    folder->GetAttributesOf(1, children, &attributes);
    const bool onDisk = (attributes & (SFGAO_FILESYSTEM | SFGAO_FILESYSANCESTOR)) != 0;
    if (!(attributes & SFGAO_FOLDER) || (!onDisk && !options_.virtualFolders) || FindChild(item, location))
      continue;
    // Drives may bear the mark too, and are wanted all the same.
    const bool marked = (attributes & SFGAO_HIDDEN) != 0 && !IsRootPath(location.path());
    if (marked && !options_.hiddenItems) continue;
    auto made = std::make_unique<Node>();
    made->location = location;
    made->name = DisplayNameOf(whole.get());
    if (made->name.empty()) made->name = location.Name();
    Insert(item, TVI_LAST, std::move(made), true);
  }
  SetChildCount(item, ChildOf(item) ? 1 : 0);
}

void TreePane::StartReading(HTREEITEM item) {
  for (const auto& reading : readings_) {
    if (reading->item == item) return;
  }
  auto reading = std::make_unique<Reading>();
  reading->item = item;
  reading->reader.Start(NodeOf(item)->location.path(), !options_.files, hwnd(), kTreeReaderMessage);
  readings_.push_back(std::move(reading));
}

void TreePane::ForgetReading(HTREEITEM item) {
  std::erase_if(readings_, [item](const std::unique_ptr<Reading>& reading) { return reading->item == item; });
}

void TreePane::OnReaderMessage() {
  const QuietScope quiet(quiet_);
  const bool inView = SelectionIsInView();
  bool ofItsParents = false;
  for (size_t i = 0; i < readings_.size();) {
    if (ContinueReading(*readings_[i])) {
      ofItsParents = ofItsParents || HoldsSelection(readings_[i]->item);
      readings_.erase(readings_.begin() + static_cast<std::ptrdiff_t>(i));
    } else {
      ++i;
    }
  }
  if (inView && ofItsParents) ShowSelection();
}

bool TreePane::HoldsSelection(HTREEITEM folder) const {
  for (HTREEITEM item = Caret(); item;
       item = reinterpret_cast<HTREEITEM>(
           SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_PARENT, reinterpret_cast<LPARAM>(item)))) {
    if (item == folder) return true;
  }
  return false;
}

// Hidden folders that the tree was led to have their nodes all the same, and keep them.
bool TreePane::ShowsItem(const ItemFacts& facts) const {
  return options_.hiddenItems || (facts.attributes & kAttributeHidden) == 0;
}

// True when the folder is read completely and its children stand in the tree.
bool TreePane::ContinueReading(Reading& reading) {
  reading.reader.Received();
  const FolderReader::Progress progress = reading.reader.progress();
  ItemBatch batch;
  while (reading.reader.TakeBatch(batch)) {
    for (const ItemBatch::Entry& entry : batch.entries) {
      const bool isFile = (entry.facts.attributes & kAttributeDirectory) == 0;
      if ((isFile && !options_.files) || !ShowsItem(entry.facts)) continue;
      reading.children.push_back({std::wstring(batch.name(entry)), isFile});
    }
  }
  if (progress == FolderReader::Progress::kOpening || progress == FolderReader::Progress::kReading)
    return false;
  Node* node = NodeOf(reading.item);
  if (!node) return true;
  node->populated = true;
  // What could not be read keeps its nodes.
  if (progress == FolderReader::Progress::kFinished) MergeChildren(reading.item, reading.children);
  SetChildCount(reading.item, ChildOf(reading.item) ? 1 : 0);
  if (node->expandWhenRead && ChildOf(reading.item)) {
    SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(reading.item));
  }
  node->expandWhenRead = false;
  return true;
}

// Folders stand before files, each by name.
int TreePane::Compare(const Node& node, const Child& child) {
  if (node.isFile != child.isFile) return node.isFile ? 1 : -1;
  return CompareNatural(node.name, child.name);
}

HTREEITEM TreePane::InsertChild(HTREEITEM parent, HTREEITEM after, const Child& child) {
  auto node = std::make_unique<Node>();
  node->location = Location::FromPath(PathInFolder(NodeOf(parent)->location.path(), child.name));
  node->name = child.name;
  node->isFile = child.isFile;
  return Insert(parent, after, std::move(node), !child.isFile);
}

HTREEITEM TreePane::InsertSorted(HTREEITEM parent, const Child& child) {
  HTREEITEM after = TVI_FIRST;
  for (HTREEITEM item = ChildOf(parent); item; item = NextOf(item)) {
    const Node* node = NodeOf(item);
    if (!node || Compare(*node, child) > 0) break;
    after = item;
  }
  return InsertChild(parent, after, child);
}

// The node of exactly this name, else of one that differs in case only.
HTREEITEM TreePane::FindName(HTREEITEM parent, const std::wstring& name) const {
  HTREEITEM similar = nullptr;
  for (HTREEITEM item = ChildOf(parent); item; item = NextOf(item)) {
    const Node* node = NodeOf(item);
    if (!node) continue;
    if (node->name == name) return item;
    if (EqualsIgnoringCase(node->name, name)) similar = item;
  }
  return similar;
}

// Takes a node out whose folder or file has gone.
void TreePane::RemoveNode(HTREEITEM item) {
  const Node* node = NodeOf(item);
  if (!node) return;
  const Location gone = node->location;
  {
    // The tree selects another node by itself; where to go is the owner's choice.
    const QuietScope quiet(quiet_);
    SendMessageW(tree_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item));
  }
  owner_.OnNodeGone(gone);
}

// children: in the order of their names.
void TreePane::RemoveMissing(HTREEITEM parent, const std::vector<Child>& children) {
  std::vector<HTREEITEM> missing;
  const auto byName = [](const Child& child, const std::wstring& name) { return child.name < name; };
  for (HTREEITEM item = ChildOf(parent); item; item = NextOf(item)) {
    const Node* node = NodeOf(item);
    if (!node) continue;
    const auto found = std::lower_bound(children.begin(), children.end(), node->name, byName);
    if (found != children.end() && found->name == node->name && found->isFile == node->isFile) continue;
    const bool similar = std::any_of(children.begin(), children.end(), [&](const Child& child) {
      return child.isFile == node->isFile && EqualsIgnoringCase(child.name, node->name);
    });
    // Not every folder that is there is listed: those that one must know by name stay.
    const DWORD attributes = similar ? 0 : GetFileAttributesW(ExtendedPath(node->location.path()).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) missing.push_back(item);
  }
  for (const HTREEITEM item : missing) RemoveNode(item);
}

// Brings a folder's nodes in step with what was read of it.
void TreePane::MergeChildren(HTREEITEM parent, std::vector<Child>& children) {
  std::sort(children.begin(), children.end(), [](const Child& a, const Child& b) { return a.name < b.name; });
  RemoveMissing(parent, children);
  std::sort(children.begin(), children.end(), [](const Child& a, const Child& b) {
    return a.isFile != b.isFile ? b.isFile : CompareNatural(a.name, b.name) < 0;
  });
  SendMessageW(tree_, WM_SETREDRAW, FALSE, 0);
  HTREEITEM after = TVI_FIRST;
  HTREEITEM next = ChildOf(parent);
  for (const Child& child : children) {
    // Both lists are in order: the nodes that exist are passed over as they come.
    const Node* present = next ? NodeOf(next) : nullptr;
    while (present && Compare(*present, child) < 0 && !EqualsIgnoringCase(present->name, child.name)) {
      after = next;
      next = NextOf(next);
      present = next ? NodeOf(next) : nullptr;
    }
    if (present && present->isFile == child.isFile && EqualsIgnoringCase(present->name, child.name)) {
      after = next;
      next = NextOf(next);
      continue;
    }
    after = InsertChild(parent, after, child);
  }
  SendMessageW(tree_, WM_SETREDRAW, TRUE, 0);
  InvalidateRect(tree_, nullptr, TRUE);
}

// Watching

bool TreePane::IsWatched(HTREEITEM item) const {
  return std::any_of(watches_.begin(), watches_.end(),
                     [item](const std::unique_ptr<Watch>& watch) { return watch->item == item; });
}

void TreePane::WatchItem(HTREEITEM item) {
  const Node* node = NodeOf(item);
  if (!node || node->isFile || !node->location.IsFileSystem() || IsWatched(item)) return;
  if (watches_.size() >= kMostWatches) return;
  auto watch = std::make_unique<Watch>();
  watch->item = item;
  watch->watcher.Start(node->location.path(), hwnd(), kTreeWatcherMessage);
  watches_.push_back(std::move(watch));
}

void TreePane::UnwatchItem(HTREEITEM item) {
  std::erase_if(watches_, [item](const std::unique_ptr<Watch>& watch) { return watch->item == item; });
}

void TreePane::OnWatcherMessage() {
  // All first: taking changes over may end watches.
  std::vector<std::pair<HTREEITEM, ChangeSet>> changed;
  for (const auto& watch : watches_) {
    ChangeSet set;
    if (watch->watcher.Take(set)) changed.emplace_back(watch->item, std::move(set));
  }
  for (const auto& [item, set] : changed) {
    if (tree_ && IsWatched(item)) ApplyChanges(item, set);
  }
}

void TreePane::ApplyChanges(HTREEITEM item, const ChangeSet& set) {
  if (set.ended) {
    UnwatchItem(item);
    const DWORD attributes = GetFileAttributesW(ExtendedPath(NodeOf(item)->location.path()).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) RemoveNode(item);
    return;
  }
  const Node* node = NodeOf(item);
  if (!node->populated) {
    SetChildCount(item, 1);
    // The reading that runs may have passed the change already.
    ForgetReading(item);
    if (node->expandWhenRead || IsExpanded(item)) StartReading(item);
    return;
  }
  if (set.tooMany) return StartReading(item);
  for (const ItemChange& change : set.changes) {
    if (!tree_ || !IsWatched(item)) return;
    ApplyChange(item, change);
  }
  if (tree_ && IsWatched(item)) SetChildCount(item, ChildOf(item) ? 1 : 0);
}

void TreePane::ApplyChange(HTREEITEM item, const ItemChange& change) {
  HTREEITEM present = FindName(item, change.name);
  const Node* node = NodeOf(present);
  const bool exact = node && node->name == change.name;
  if (!change.exists) {
    if (exact) RemoveNode(present);
    return;
  }
  const Child child = {change.name, (change.facts.attributes & kAttributeDirectory) == 0};
  if (node && node->isFile != child.isFile) {
    RemoveNode(present);
    node = nullptr;
  }
  if (child.isFile && !options_.files) return;
  if (!ShowsItem(change.facts)) {
    if (node && !HoldsSelection(present)) RemoveNode(present);
    return;
  }
  if (!node) {
    InsertSorted(item, child);
  } else if (!node->isFile && node->populated && !IsWatched(present) && !ChildOf(present)) {
    // Something happened in a folder that was empty when it was read.
    NodeOf(present)->populated = false;
    SetChildCount(present, 1);
  }
}

}  // namespace controls
