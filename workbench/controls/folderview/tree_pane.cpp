#include "workbench/controls/folderview/tree_pane.h"

#include <windows.h>

#include <cstring>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

constexpr wchar_t kClassName[] = L"SswareShellFolderView";
constexpr UINT kHoverMs = 700;
constexpr DWORD kOwnStyleMask = TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS |
                                TVS_EDITLABELS | TVS_DISABLEDRAGDROP;

std::wstring NodeName(const Location& location) {
  if (location.IsFileSystem() && IsRootPath(location.path()) && location.pidl()) {
    const std::wstring drive = DisplayNameOf(location.pidl());
    if (!drive.empty()) return drive;
  }
  return location.Name();
}

}  // namespace

bool TreePane::CreatePane(HWND parent, const RECT& rect) {
  return Create(kClassName, parent, rect) && CreateTree();
}

DWORD TreePane::OwnStyleBits() const {
  DWORD bits = 0;
  if (options_.lines) bits |= TVS_HASLINES;
  if (options_.buttons) bits |= TVS_HASBUTTONS | TVS_LINESATROOT;
  if (options_.showSelectionAlways) bits |= TVS_SHOWSELALWAYS;
  if (options_.inPlaceRename) bits |= TVS_EDITLABELS;
  if (!dragging_) bits |= TVS_DISABLEDRAGDROP;
  return bits;
}

bool TreePane::CreateTree() {
  const DWORD style = WS_CHILD | WS_VISIBLE | WS_TABSTOP | WS_CLIPSIBLINGS | OwnStyleBits();
  tree_ = CreateWindowExW(0, WC_TREEVIEWW, L"", style, 0, 0, 0, 0, hwnd(), reinterpret_cast<HMENU>(1),
                          nullptr, nullptr);
  if (!tree_) return false;
  treePart_.Attach(tree_);
  SendMessageW(tree_, TVM_SETUNICODEFORMAT, TRUE, 0);
  SendMessageW(tree_, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(SystemImages(false)));
  if (font_) SetFont(font_);
  RECT client;
  GetClientRect(hwnd(), &client);
  MoveWindow(tree_, 0, 0, client.right, client.bottom, TRUE);
  auto root = std::make_unique<Node>();
  root->location = Location::Desktop();
  root->name = root->location.Name();
  const QuietScope quiet(quiet_);
  const HTREEITEM desktop = Insert(TVI_ROOT, TVI_LAST, std::move(root), true);
  SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(desktop));
  return true;
}

void TreePane::SetFont(HFONT font) {
  font_ = font;
  if (tree_) SendMessageW(tree_, WM_SETFONT, reinterpret_cast<WPARAM>(font), TRUE);
}

void TreePane::SetDragging(bool on) {
  dragging_ = on;
  SetOptions(options_);
}

void TreePane::SetOptions(const Options& options) {
  const bool contentsDiffer = options.files != options_.files ||
                              options.virtualFolders != options_.virtualFolders ||
                              options.hiddenItems != options_.hiddenItems;
  options_ = options;
  if (!tree_) return;
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(tree_, GWL_STYLE));
  const DWORD wanted = (style & ~kOwnStyleMask) | OwnStyleBits();
  if (style != wanted) SetWindowLongPtrW(tree_, GWL_STYLE, static_cast<LONG_PTR>(wanted));
  InvalidateRect(tree_, nullptr, TRUE);
  if (!contentsDiffer) return;
  // What is shown changes: the tree is built anew around the selected folder.
  const Location place = selectedFolder();
  const QuietScope quiet(quiet_);
  readings_.clear();
  watches_.clear();
  SendMessageW(tree_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
  auto root = std::make_unique<Node>();
  root->location = Location::Desktop();
  root->name = root->location.Name();
  const HTREEITEM desktop = Insert(TVI_ROOT, TVI_LAST, std::move(root), true);
  SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(desktop));
  if (!place.empty()) SelectLocation(place);
}

TreePane::Node* TreePane::NodeOf(HTREEITEM item) const {
  TVITEMW data = {};
  data.mask = TVIF_PARAM | TVIF_HANDLE;
  data.hItem = item;
  if (!item || !SendMessageW(tree_, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&data))) return nullptr;
  return reinterpret_cast<Node*>(data.lParam);
}

HTREEITEM TreePane::ChildOf(HTREEITEM item) const {
  return reinterpret_cast<HTREEITEM>(
      SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_CHILD, reinterpret_cast<LPARAM>(item)));
}

HTREEITEM TreePane::NextOf(HTREEITEM item) const {
  return reinterpret_cast<HTREEITEM>(
      SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item)));
}

HTREEITEM TreePane::Insert(HTREEITEM parent, HTREEITEM after, std::unique_ptr<Node> node,
                           bool mayHaveChildren) {
  TVINSERTSTRUCTW insert = {};
  insert.hParent = parent;
  insert.hInsertAfter = after;
  insert.item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_CHILDREN | TVIF_PARAM;
  insert.item.pszText = LPSTR_TEXTCALLBACKW;
  insert.item.iImage = I_IMAGECALLBACK;
  insert.item.iSelectedImage = I_IMAGECALLBACK;
  insert.item.cChildren = mayHaveChildren ? 1 : 0;
  insert.item.lParam = reinterpret_cast<LPARAM>(node.get());
  const auto item =
      reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insert)));
  if (item) node.release();  // the tree gives it back with TVN_DELETEITEM
  return item;
}

void TreePane::SetChildCount(HTREEITEM item, int count) {
  TVITEMW data = {};
  data.mask = TVIF_CHILDREN | TVIF_HANDLE;
  data.hItem = item;
  data.cChildren = count;
  SendMessageW(tree_, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&data));
}

HTREEITEM TreePane::FindChild(HTREEITEM parent, const Location& location) const {
  for (HTREEITEM child = ChildOf(parent); child; child = NextOf(child)) {
    const Node* node = NodeOf(child);
    if (node && node->location == location) return child;
  }
  return nullptr;
}

// The child's node, made when the folder has not been read yet (or does not list it).
HTREEITEM TreePane::EnsureChild(HTREEITEM parent, const Location& location) {
  if (const HTREEITEM known = FindChild(parent, location)) return known;
  auto node = std::make_unique<Node>();
  node->location = location;
  node->name = NodeName(location);
  HTREEITEM after = TVI_FIRST;
  for (HTREEITEM child = ChildOf(parent); child; child = NextOf(child)) {
    const Node* other = NodeOf(child);
    if (!other || other->isFile || CompareNatural(other->name, node->name) > 0) break;
    after = child;
  }
  SetChildCount(parent, 1);
  return Insert(parent, after, std::move(node), true);
}

HTREEITEM TreePane::EnsureItem(const Location& location) {
  if (location.empty()) return nullptr;
  if (location.IsDesktop()) return ChildOf(TVI_ROOT);
  const HTREEITEM parent = EnsureItem(location.Parent());
  if (!parent) return nullptr;
  Node* node = NodeOf(parent);
  // Virtual folders are small and read at once, so that their children get the shell's own nodes.
  if (node && !node->populated && !node->location.IsFileSystem()) PopulateVirtual(parent);
  return EnsureChild(parent, location);
}

void TreePane::SelectLocation(const Location& location) {
  if (!tree_) return;
  if (selected() == location) return;
  // A selected file stays when its folder is meant.
  if (SelectedIsFile() && selectedFolder() == location) return;
  const QuietScope quiet(quiet_);
  const HTREEITEM item = EnsureItem(location);
  if (!item) return;
  // Opening the parents reads them, so that the brothers of the folder appear too.
  SendMessageW(tree_, TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
  SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
}

HTREEITEM TreePane::Caret() const {
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_CARET, 0));
}

bool TreePane::SelectionIsInView() const {
  RECT client = {};
  if (!tree_ || !GetClientRect(tree_, &client)) return false;
  RECT row = {};
  const HTREEITEM item = Caret();
  std::memcpy(&row, &item, sizeof(item));
  if (!item || !SendMessageW(tree_, TVM_GETITEMRECT, FALSE, reinterpret_cast<LPARAM>(&row))) return false;
  // Before the window has its first size nobody can have scrolled away.
  return client.bottom == 0 || (row.top < client.bottom && row.bottom > 0);
}

void TreePane::ShowSelection() {
  const HTREEITEM item = Caret();
  if (item) SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
}

HTREEITEM TreePane::FolderItem() const {
  const HTREEITEM item = Caret();
  const Node* node = NodeOf(item);
  if (!node || !node->isFile) return item;
  return reinterpret_cast<HTREEITEM>(
      SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_PARENT, reinterpret_cast<LPARAM>(item)));
}

Location TreePane::selected() const {
  const Node* node = tree_ ? NodeOf(Caret()) : nullptr;
  return node ? node->location : Location();
}

Location TreePane::selectedFolder() const {
  const Node* node = tree_ ? NodeOf(FolderItem()) : nullptr;
  return node ? node->location : Location();
}

bool TreePane::SelectedIsFile() const {
  const Node* node = tree_ ? NodeOf(Caret()) : nullptr;
  return node && node->isFile;
}

bool TreePane::EditSelected() {
  const auto item = reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_CARET, 0));
  if (!item) return false;
  EditLabel(item);
  return SendMessageW(tree_, TVM_GETEDITCONTROL, 0, 0) != 0;
}

void TreePane::EditAgain(const Location& location, const std::wstring& typed) {
  editAgain_ = location;
  editAgainText_ = typed;
  PostMessageW(hwnd(), kTreeEditAgainMessage, 0, 0);
}

void TreePane::OnEditAgain() {
  const HTREEITEM item = editAgain_.empty() ? nullptr : FindItem(editAgain_);
  editAgain_ = Location();
  if (!item) return;
  EditLabel(item);
  const auto edit = reinterpret_cast<HWND>(SendMessageW(tree_, TVM_GETEDITCONTROL, 0, 0));
  if (!edit) return;
  SetWindowTextW(edit, editAgainText_.c_str());
  SendMessageW(edit, EM_SETSEL, 0, -1);
}

void TreePane::EditLabel(HTREEITEM item) {
  SetFocus(tree_);
  editWanted_ = true;
  SendMessageW(tree_, TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(item));
  editWanted_ = false;
}

void TreePane::EditNewFolder(const Location& folder) {
  const HTREEITEM parent = FolderItem();
  if (!parent) return;
  const HTREEITEM item = EnsureChild(parent, folder);
  SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(parent));
  SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  EditLabel(item);
}

void TreePane::RefreshSelected() {
  const HTREEITEM item = FolderItem();
  Node* node = NodeOf(item);
  if (!node) return;
  const QuietScope quiet(quiet_);
  ForgetReading(item);
  SendMessageW(tree_, TVM_EXPAND, TVE_COLLAPSE | TVE_COLLAPSERESET, reinterpret_cast<LPARAM>(item));
  node->populated = false;
  SetChildCount(item, 1);
  SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(item));
}

HTREEITEM TreePane::FindItem(const Location& location) const {
  const HTREEITEM caret = Caret();
  const Node* node = NodeOf(caret);
  if (node && node->location == location) return caret;
  return caret ? FindChild(caret, location) : nullptr;
}

void TreePane::RenameNode(const Location& from, const Location& to) {
  const HTREEITEM found = FindItem(from);
  Node* node = NodeOf(found);
  if (!node) return;
  const QuietScope quiet(quiet_);
  // The paths of everything below are others now: the children are read again when they are wanted.
  ForgetReading(found);
  SendMessageW(tree_, TVM_EXPAND, TVE_COLLAPSE | TVE_COLLAPSERESET, reinterpret_cast<LPARAM>(found));
  node->location = to;
  node->name = NodeName(to);
  if (!node->isFile) {
    node->populated = false;
    SetChildCount(found, 1);
    if (IsWatched(found)) {
      UnwatchItem(found);
      WatchItem(found);
    }
  }
  InvalidateRect(tree_, nullptr, TRUE);
}

HTREEITEM TreePane::ItemAt(POINT screen) const {
  TVHITTESTINFO hit = {};
  hit.pt = screen;
  ScreenToClient(tree_, &hit.pt);
  return reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
}

bool TreePane::IsExpanded(HTREEITEM item) const {
  return item && (SendMessageW(tree_, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) &
                  TVIS_EXPANDED) != 0;
}

// Drops

std::wstring TreePane::FolderAt(POINT screen) const {
  const Node* node = tree_ ? NodeOf(ItemAt(screen)) : nullptr;
  return node && !node->isFile ? node->location.path() : std::wstring();
}

void TreePane::ShowDropTarget(POINT screen, bool taken) {
  if (!tree_) return;
  ScrollNearEdge(tree_, screen);
  const HTREEITEM item = ItemAt(screen);
  SendMessageW(tree_, TVM_SELECTITEM, TVGN_DROPHILITE, reinterpret_cast<LPARAM>(taken ? item : nullptr));
  if (item == dropItem_) return;
  // A node opens also when it takes nothing itself: what it holds may.
  dropItem_ = item;
  if (item) SetTimer(hwnd(), kHoverTimer, kHoverMs, nullptr);
}

void TreePane::HideDropTarget() {
  KillTimer(hwnd(), kHoverTimer);
  dropItem_ = nullptr;
  if (tree_) SendMessageW(tree_, TVM_SELECTITEM, TVGN_DROPHILITE, 0);
}

void TreePane::OnHoverTimer() {
  KillTimer(hwnd(), kHoverTimer);
  if (dropItem_ && !IsExpanded(dropItem_)) {
    SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(dropItem_));
  }
}
}  // namespace controls
