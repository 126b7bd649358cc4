// Messages of the folder view's window and notifications of its tree.
#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <cstring>

#include "workbench/controls/folderview/tree_pane.h"
#include "workbench/controls/model/path_logic.h"
#include "workbench/controls/shell/selection_look.h"

namespace controls {
namespace {

constexpr UINT kFirstOwnerMessage = WM_APP + 10;
// A click that brings the focus to the tree is no wish to edit the selected name.
constexpr UINT kFocusingClickMs = 300;

}  // namespace

LRESULT TreePane::TreePart::HandleSubclassed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
  // Not every system's tree opens its menu with these keys by itself.
  if (message == WM_SYSKEYDOWN && wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0) {
    pane_.OnContext(-1);
    return 0;
  }
  return Original(window, message, wParam, lParam);
}

LRESULT TreePane::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE: {
      const bool inView = SelectionIsInView();
      if (tree_) MoveWindow(tree_, 0, 0, GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam), TRUE);
      if (inView) ShowSelection();
      return 0;
    }
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
    case kTreeEditAgainMessage:
      OnEditAgain();
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
      treePart_.Detach();
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
      {static_cast<UINT>(NM_CUSTOMDRAW), &TreePane::OnCustomDraw},
      {static_cast<UINT>(NM_SETFOCUS), &TreePane::OnSetFocus},
      {static_cast<UINT>(NM_CLICK), &TreePane::OnClick},
      {static_cast<UINT>(NM_RCLICK), &TreePane::OnRightClick},
  };
  if (!tree_ || header->hwndFrom != tree_) return 0;
  for (const Handler& row : kHandlers) {
    if (row.code == header->code) return (this->*row.handler)(header);
  }
  return 0;
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
  if (!editWanted_ && GetTickCount64() - focusedAt_ < GetDoubleClickTime() + kFocusingClickMs) return TRUE;
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

LRESULT TreePane::OnSetFocus(NMHDR*) {
  focusedAt_ = GetTickCount64();
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
