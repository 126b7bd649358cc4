#include "workbench/controls/folderview/tree_pane.h"

#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <cstring>

#include "workbench/controls/com/com_object.h"
#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/selection_look.h"

namespace controls {
namespace {

constexpr wchar_t kClassName[] = L"SswareShellFolderView";
constexpr UINT kFirstOwnerMessage = WM_APP + 10;
constexpr UINT_PTR kHoverTimer = 1;
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
  const bool contentsDiffer =
      options.files != options_.files || options.virtualFolders != options_.virtualFolders;
  options_ = options;
  if (!tree_) return;
  const auto style = static_cast<DWORD>(GetWindowLongPtrW(tree_, GWL_STYLE));
  const DWORD wanted = (style & ~kOwnStyleMask) | OwnStyleBits();
  if (style != wanted) SetWindowLongPtrW(tree_, GWL_STYLE, static_cast<LONG_PTR>(wanted));
  InvalidateRect(tree_, nullptr, TRUE);
  if (!contentsDiffer) return;
  // What is shown changes: the tree is built anew around the selected folder.
  const Location place = selected();
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
  SetFocus(tree_);
  return SendMessageW(tree_, TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(item)) != 0;
}

void TreePane::EditNewFolder(const Location& folder) {
  const HTREEITEM parent = FolderItem();
  if (!parent) return;
  const HTREEITEM item = EnsureChild(parent, folder);
  SendMessageW(tree_, TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(parent));
  SendMessageW(tree_, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
  SetFocus(tree_);
  SendMessageW(tree_, TVM_EDITLABELW, 0, reinterpret_cast<LPARAM>(item));
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

void TreePane::RenameNode(const Location& from, const Location& to) {
  const auto item = reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_CARET, 0));
  HTREEITEM found = nullptr;
  const Node* caret = NodeOf(item);
  if (caret && caret->location == from) found = item;
  if (!found && item) found = FindChild(item, from);
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

// Messages

LRESULT TreePane::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (tree_) MoveWindow(tree_, 0, 0, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam), TRUE);
      return 0;
    case WM_ERASEBKGND:
      return 1;
    case WM_NOTIFY:
      return OnNotify(reinterpret_cast<NMHDR*>(lParam));
    case WM_NOTIFYFORMAT:
      return NFR_UNICODE;
    case WM_SETFOCUS:
      if (tree_) SetFocus(tree_);
      return 0;
    case WM_CONTEXTMENU:
      OnContext(lParam);
      return 0;
    case kTreeReaderMessage:
      OnReaderMessage();
      return 0;
    case kTreeWatcherMessage:
      OnWatcherMessage();
      return 0;
    case WM_TIMER:
      if (wParam == kHoverTimer) OnHoverTimer();
      return 0;
    case WM_DESTROY: {
      const QuietScope quiet(quiet_);
      readings_.clear();
      watches_.clear();
      // The nodes come back through notifications, which end with this window.
      SendMessageW(tree_, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(TVI_ROOT));
      tree_ = nullptr;
      owner_.OnTreeDestroyed();
      return 0;
    }
    default:
      break;
  }
  if (message < kFirstOwnerMessage || message >= 0xC000) return Default(message, wParam, lParam);
  owner_.OnTreeMessage(message);
  return 0;
}

LRESULT TreePane::OnNotify(NMHDR* header) {
  static constexpr Handler kHandlers[] = {
      {static_cast<UINT>(TVN_GETDISPINFOW), &TreePane::OnGetDispInfo},
      {static_cast<UINT>(TVN_ITEMEXPANDINGW), &TreePane::OnExpanding},
      {static_cast<UINT>(TVN_ITEMEXPANDEDW), &TreePane::OnExpanded},
      {static_cast<UINT>(TVN_SELCHANGEDW), &TreePane::OnSelChanged},
      {static_cast<UINT>(TVN_BEGINDRAGW), &TreePane::OnBeginDrag},
      {static_cast<UINT>(TVN_BEGINRDRAGW), &TreePane::OnBeginRightDrag},
      {static_cast<UINT>(NM_DBLCLK), &TreePane::OnDoubleClick},
      {static_cast<UINT>(NM_RETURN), &TreePane::OnReturn},
      {static_cast<UINT>(TVN_DELETEITEMW), &TreePane::OnDeleteItem},
      {static_cast<UINT>(TVN_BEGINLABELEDITW), &TreePane::OnBeginLabelEdit},
      {static_cast<UINT>(TVN_ENDLABELEDITW), &TreePane::OnEndLabelEdit},
      {static_cast<UINT>(TVN_KEYDOWN), &TreePane::OnKeyDown},
      {static_cast<UINT>(NM_SETFOCUS), &TreePane::OnSetFocus},
      {static_cast<UINT>(NM_CLICK), &TreePane::OnClick},
      {static_cast<UINT>(NM_RCLICK), &TreePane::OnRightClick},
      {static_cast<UINT>(NM_CUSTOMDRAW), &TreePane::OnCustomDraw},
  };
  if (!tree_ || header->hwndFrom != tree_) return 0;
  for (const Handler& row : kHandlers) {
    if (row.code == header->code) return (this->*row.handler)(header);
  }
  return 0;
}

LRESULT TreePane::OnCustomDraw(NMHDR* header) {
  auto* const draw = reinterpret_cast<NMTVCUSTOMDRAW*>(header);
  if (draw->nmcd.dwDrawStage == CDDS_PREPAINT) return CDRF_NOTIFYITEMDRAW;
  const bool inactive = (draw->nmcd.uItemState & CDIS_SELECTED) != 0 && GetFocus() != tree_;
  if (draw->nmcd.dwDrawStage == CDDS_ITEMPREPAINT && inactive) {
    draw->clrText = InactiveSelectionTextColor();
    draw->clrTextBk = InactiveSelectionColor();
  }
  return CDRF_DODEFAULT;
}

LRESULT TreePane::OnGetDispInfo(NMHDR* header) {
  TVITEMW& item = reinterpret_cast<NMTVDISPINFOW*>(header)->item;
  auto* node = reinterpret_cast<Node*>(item.lParam);
  if (!node) return 0;
  if ((item.mask & TVIF_TEXT) && item.pszText && item.cchTextMax > 0) {
    const size_t length = std::min(node->name.size(), static_cast<size_t>(item.cchTextMax - 1));
    std::copy_n(node->name.begin(), length, item.pszText);
    item.pszText[length] = L'\0';
  }
  if (item.mask & (TVIF_IMAGE | TVIF_SELECTEDIMAGE)) {
    if (node->icon < 0) {
      // Plain folders share one icon; only the few special places ask the shell for theirs.
      const bool special = !node->location.IsFileSystem() || IsRootPath(node->location.path());
      node->icon = special
                       ? IconOfPidl(node->location.pidl())
                       : types_.IconOf(node->isFile ? types_.TypeOf(node->name, false) : TypeCache::kFolder);
    }
    item.iImage = node->icon;
    item.iSelectedImage = node->icon;
  }
  return 0;
}

LRESULT TreePane::OnExpanding(NMHDR* header) {
  const auto* change = reinterpret_cast<NMTREEVIEWW*>(header);
  if (change->action != TVE_EXPAND) return FALSE;
  const HTREEITEM item = change->itemNew.hItem;
  Node* node = NodeOf(item);
  if (!node) return FALSE;
  if (node->populated) {
    // While it was closed nobody watched it.
    if (node->location.IsFileSystem() && !IsWatched(item)) StartReading(item);
    return FALSE;
  }
  Populate(item);
  if (node->populated || ChildOf(item)) return FALSE;
  // Nothing to show yet: the node opens when its children have arrived.
  node->expandWhenRead = true;
  return TRUE;
}

LRESULT TreePane::OnExpanded(NMHDR* header) {
  const HTREEITEM item = reinterpret_cast<NMTREEVIEWW*>(header)->itemNew.hItem;
  if (IsExpanded(item)) {
    WatchItem(item);
  } else if (item != Caret()) {
    UnwatchItem(item);
  }
  return 0;
}

LRESULT TreePane::OnSelChanged(NMHDR* header) {
  const auto* change = reinterpret_cast<NMTREEVIEWW*>(header);
  if (!IsExpanded(change->itemOld.hItem)) UnwatchItem(change->itemOld.hItem);
  WatchItem(change->itemNew.hItem);
  const Node* node = NodeOf(change->itemNew.hItem);
  if (quiet_ != 0 || !node) return 0;
  // A copy: the node may go while the owner moves.
  const Location location = node->isFile ? node->location.Parent() : node->location;
  owner_.OnNodeSelected(location);
  return 0;
}

LRESULT TreePane::OnDoubleClick(NMHDR*) {
  // Also for clicks beside the nodes, which leave the selection alone.
  const DWORD position = GetMessagePos();
  const Node* node = NodeOf(ItemAt({GET_X_LPARAM(position), GET_Y_LPARAM(position)}));
  if (!node || !node->isFile) return FALSE;
  const Location location = node->location;
  owner_.OnFileOpened(location);
  return TRUE;
}

LRESULT TreePane::OnReturn(NMHDR*) {
  if (!SelectedIsFile()) return FALSE;
  owner_.OnFileOpened(selected());
  return TRUE;
}

LRESULT TreePane::OnBeginDrag(NMHDR* header) {
  return BeginDrag(header, false);
}
LRESULT TreePane::OnBeginRightDrag(NMHDR* header) {
  return BeginDrag(header, true);
}

LRESULT TreePane::BeginDrag(NMHDR* header, bool rightButton) {
  const HTREEITEM item = reinterpret_cast<NMTREEVIEWW*>(header)->itemNew.hItem;
  const Node* node = NodeOf(item);
  if (!dragging_ || !node || !node->location.IsFileSystem() || IsRootPath(node->location.path())) return 0;
  // The shell's own folders (the user's documents, for one) can be copied, but stay where they are.
  const Node* parent = NodeOf(reinterpret_cast<HTREEITEM>(
      SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_PARENT, reinterpret_cast<LPARAM>(item))));
  const Location location = node->location;
  owner_.OnTreeDrag(location, parent && parent->location.IsFileSystem(), rightButton);
  return 0;
}

LRESULT TreePane::OnDeleteItem(NMHDR* header) {
  const TVITEMW& item = reinterpret_cast<NMTREEVIEWW*>(header)->itemOld;
  ForgetReading(item.hItem);
  UnwatchItem(item.hItem);
  if (item.hItem == dropItem_) dropItem_ = nullptr;
  delete reinterpret_cast<Node*>(item.lParam);
  return 0;
}

LRESULT TreePane::OnBeginLabelEdit(NMHDR* header) {
  const Node* node = NodeOf(reinterpret_cast<NMTVDISPINFOW*>(header)->item.hItem);
  return node && owner_.MayRenameNode(node->location) ? FALSE : TRUE;
}

LRESULT TreePane::OnEndLabelEdit(NMHDR* header) {
  const TVITEMW& item = reinterpret_cast<NMTVDISPINFOW*>(header)->item;
  const Node* node = NodeOf(item.hItem);
  if (!item.pszText || !node) return FALSE;
  const Location location = node->location;
  const std::wstring name = item.pszText;
  owner_.OnNodeRenamed(location, name);
  return FALSE;  // the text comes from the node
}

LRESULT TreePane::OnKeyDown(NMHDR* header) {
  return owner_.OnTreeKey(reinterpret_cast<NMTVKEYDOWN*>(header)->wVKey) ? TRUE : FALSE;
}

LRESULT TreePane::OnSetFocus(NMHDR*) {
  owner_.OnTreeFocus();
  return 0;
}

LRESULT TreePane::OnClick(NMHDR*) {
  TVHITTESTINFO hit = {};
  const DWORD position = GetMessagePos();
  hit.pt = {GET_X_LPARAM(position), GET_Y_LPARAM(position)};
  ScreenToClient(tree_, &hit.pt);
  SendMessageW(tree_, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
  const Location location = selected();
  const Node* node = hit.flags & TVHT_ONITEM ? NodeOf(hit.hItem) : nullptr;
  if (node && node->location == location) owner_.OnNodeClicked(location);
  return 0;
}

LRESULT TreePane::OnRightClick(NMHDR*) {
  // Without this the tree turns the click into no WM_CONTEXTMENU for the row under the pointer.
  const DWORD position = GetMessagePos();
  OnContext(static_cast<LPARAM>(position));
  return TRUE;
}

void TreePane::OnContext(LPARAM lParam) {
  POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  HTREEITEM item = nullptr;
  if (point.x == -1 && point.y == -1) {
    item = reinterpret_cast<HTREEITEM>(SendMessageW(tree_, TVM_GETNEXTITEM, TVGN_CARET, 0));
    RECT rect = {};
    std::memcpy(&rect, &item, sizeof(item));  // the message takes the item in the rectangle's place
    if (item && SendMessageW(tree_, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&rect))) {
      point = {rect.left + 2, rect.bottom - 2};
    } else {
      point = {10, 10};
    }
    ClientToScreen(tree_, &point);
  } else {
    item = ItemAt(point);
  }
  const Node* node = NodeOf(item);
  if (!node) return;
  SendMessageW(tree_, TVM_SELECTITEM, TVGN_DROPHILITE, reinterpret_cast<LPARAM>(item));
  const Location location = node->location;
  owner_.OnTreeContextMenu(location, node->isFile, point);
  if (tree_) SendMessageW(tree_, TVM_SELECTITEM, TVGN_DROPHILITE, 0);
}

}  // namespace controls
