// Messages of the file view's window and notifications of its list.
#include <windows.h>

#include <windowsx.h>

#include <algorithm>
#include <utility>

#include "workbench/controls/fileview/list_pane.h"
#include "workbench/controls/shell/selection_look.h"

namespace controls {
namespace {

constexpr UINT kSelectionMessage = WM_APP + 20;

bool KeyDown(int key) {
  return GetKeyState(key) < 0;
}

void CopyText(const std::wstring& text, wchar_t* to, int capacity) {
  if (!to || capacity <= 0) return;
  const size_t length = std::min(text.size(), static_cast<size_t>(capacity - 1));
  std::copy_n(text.begin(), length, to);
  to[length] = L'\0';
}

}  // namespace

struct ListPane::Notification {
  UINT code;
  LRESULT (ListPane::*handler)(NMHDR*);
};

LRESULT ListPane::HandleMessage(UINT message, WPARAM wParam, LPARAM lParam) {
  switch (message) {
    case WM_SIZE:
      if (list_) Layout();
      return 0;
    case WM_PAINT:
      Paint();
      return 0;
    case WM_ERASEBKGND:
      return 1;  // the list and the status line cover everything
    case WM_NOTIFY:
      return OnNotify(reinterpret_cast<NMHDR*>(lParam));
    case WM_NOTIFYFORMAT:
      return NFR_UNICODE;
    case WM_SETFOCUS:
      if (list_) SetFocus(list_);
      return 0;
    case WM_CONTEXTMENU:
      OnContext(lParam);
      return 0;
    case kFocusMessage:
      ApplyFocus();
      return 0;
    case ThumbnailView::kMadeMessage:
      thumbnails_.OnMade();
      return 0;
    case kSelectionMessage:
      selectionPosted_ = false;
      owner_.OnSelectionChanged();
      return 0;
    case WM_DESTROY:
      listPart_.Detach();
      thumbnails_.Detach();
      owner_.OnPaneDestroyed();
      list_ = nullptr;
      return 0;
    default:
      break;
  }
  if (message == WM_TIMER || (message >= WM_APP && message < 0xC000)) {
    owner_.OnPaneMessage(message, wParam, lParam);
    return 0;
  }
  return Default(message, wParam, lParam);
}

LRESULT ListPane::OnNotify(NMHDR* header) {
  static constexpr Notification kNotifications[] = {
      {static_cast<UINT>(LVN_GETDISPINFOW), &ListPane::OnGetDispInfo},
      {static_cast<UINT>(LVN_ITEMCHANGED), &ListPane::OnItemChanged},
      {static_cast<UINT>(LVN_ODSTATECHANGED), &ListPane::OnItemChanged},
      {static_cast<UINT>(LVN_ODFINDITEMW), &ListPane::OnFindItem},
      {static_cast<UINT>(NM_CLICK), &ListPane::OnClick},
      {static_cast<UINT>(NM_DBLCLK), &ListPane::OnDoubleClick},
      {static_cast<UINT>(LVN_COLUMNCLICK), &ListPane::OnColumnClick},
      {static_cast<UINT>(LVN_KEYDOWN), &ListPane::OnKeyDown},
      {static_cast<UINT>(LVN_BEGINLABELEDITW), &ListPane::OnBeginLabelEdit},
      {static_cast<UINT>(LVN_ENDLABELEDITW), &ListPane::OnEndLabelEdit},
      {static_cast<UINT>(NM_CUSTOMDRAW), &ListPane::OnCustomDraw},
      {static_cast<UINT>(LVN_BEGINDRAG), &ListPane::OnBeginDrag},
      {static_cast<UINT>(LVN_BEGINRDRAG), &ListPane::OnBeginRightDrag},
      {static_cast<UINT>(NM_SETFOCUS), &ListPane::OnSetFocus},
      {static_cast<UINT>(NM_HOVER), &ListPane::OnHover},
  };
  if (!list_ || header->hwndFrom != list_) return 0;
  for (const Notification& row : kNotifications) {
    if (row.code == header->code) return (this->*row.handler)(header);
  }
  return 0;
}

LRESULT ListPane::OnGetDispInfo(NMHDR* header) {
  LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
  if (item.mask & LVIF_TEXT)
    CopyText(owner_.CellText(item.iItem, item.iSubItem), item.pszText, item.cchTextMax);
  if (item.mask & LVIF_IMAGE) {
    const int image = owner_.CellImage(item.iItem);
    const bool own = view_ == ViewStyle::kThumbnails && thumbnails_.images();
    item.iImage = own ? ThumbnailImage(item.iItem, image) : image;
  }
  if (item.mask & LVIF_STATE) item.state = owner_.RowDimmed(item.iItem) ? LVIS_CUT : 0u;
  return 0;
}

LRESULT ListPane::OnItemChanged(NMHDR* header) {
  if (quiet_ != 0 || selectionPosted_) return 0;
  if (header->code == static_cast<UINT>(LVN_ITEMCHANGED)) {
    const auto* change = reinterpret_cast<NMLISTVIEW*>(header);
    if (((change->uOldState ^ change->uNewState) & LVIS_SELECTED) == 0) return 0;
  }
  selectionPosted_ = PostMessageW(hwnd(), kSelectionMessage, 0, 0) != FALSE;
  return 0;
}

LRESULT ListPane::OnFindItem(NMHDR* header) {
  const auto* find = reinterpret_cast<NMLVFINDITEMW*>(header);
  constexpr UINT kSubstring = 0x0004;  // LVFI_SUBSTRING, another word for LVFI_PARTIAL that not every header has
  constexpr UINT kBeginning = LVFI_PARTIAL | kSubstring;
  if (!(find->lvfi.flags & (LVFI_STRING | kBeginning)) || !find->lvfi.psz) return -1;
  return owner_.FindRow(find->iStart, find->lvfi.psz, (find->lvfi.flags & kBeginning) != 0,
                        (find->lvfi.flags & LVFI_WRAP) != 0);
}

LRESULT ListPane::OnClick(NMHDR* header) {
  const auto* click = reinterpret_cast<NMITEMACTIVATE*>(header);
  if (click->iItem >= 0) owner_.OnRowClicked(click->iItem, click->ptAction);
  return 0;
}

LRESULT ListPane::OnDoubleClick(NMHDR* header) {
  const auto* click = reinterpret_cast<NMITEMACTIVATE*>(header);
  if (click->iItem >= 0) owner_.OnRowActivated(click->iItem, click->ptAction);
  return 0;
}

LRESULT ListPane::OnColumnClick(NMHDR* header) {
  owner_.OnColumnClicked(reinterpret_cast<NMLISTVIEW*>(header)->iSubItem);
  return 0;
}

LRESULT ListPane::OnKeyDown(NMHDR* header) {
  const UINT key = reinterpret_cast<NMLVKEYDOWN*>(header)->wVKey;
  return owner_.OnKey(key, KeyDown(VK_CONTROL), KeyDown(VK_SHIFT)) ? 1 : 0;
}

bool ListPane::EditLabel(int row) {
  SetFocus(list_);
  return SendMessageW(list_, LVM_EDITLABELW, static_cast<WPARAM>(row), 0) != 0;
}

void ListPane::SetEditText(const std::wstring& text) {
  const auto edit = reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETEDITCONTROL, 0, 0));
  if (!edit) return;
  SetWindowTextW(edit, text.c_str());
  SendMessageW(edit, EM_SETSEL, 0, -1);
}

LRESULT ListPane::OnBeginLabelEdit(NMHDR* header) {
  const int row = reinterpret_cast<NMLVDISPINFOW*>(header)->item.iItem;
  if (!owner_.MayRename(row)) return TRUE;
  const auto edit = reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETEDITCONTROL, 0, 0));
  if (edit) SendMessageW(edit, EM_LIMITTEXT, 255, 0);
  return FALSE;
}

LRESULT ListPane::OnEndLabelEdit(NMHDR* header) {
  const LVITEMW& item = reinterpret_cast<NMLVDISPINFOW*>(header)->item;
  // The text that the list shows comes from the model, so the list has nothing to store.
  if (item.pszText) owner_.OnRenamed(item.iItem, item.pszText);
  // The edit box of the first row reaches into the header, which nobody paints when it goes.
  const auto columns = reinterpret_cast<HWND>(SendMessageW(list_, LVM_GETHEADER, 0, 0));
  if (columns) InvalidateRect(columns, nullptr, TRUE);
  return FALSE;
}

// Without the mark of a selected item the list takes our colours.
void ListPane::DrawUnfocusedSelection(NMLVCUSTOMDRAW* draw) {
  draw->nmcd.uItemState &= ~static_cast<UINT>(CDIS_SELECTED);
  draw->clrText = InactiveSelectionTextColor();
  draw->clrTextBk = InactiveSelectionColor();
}

LRESULT ListPane::OnCustomDraw(NMHDR* header) {
  auto* draw = reinterpret_cast<NMLVCUSTOMDRAW*>(header);
  switch (draw->nmcd.dwDrawStage) {
    case CDDS_PREPAINT:
      return CDRF_NOTIFYITEMDRAW;
    case CDDS_ITEMPREPAINT: {
      const int row = static_cast<int>(draw->nmcd.dwItemSpec);
      if (IsSelected(row)) {
        if (GetFocus() != list_) DrawUnfocusedSelection(draw);
      } else if (owner_.RowDimmed(row)) {
        draw->clrText = GetSysColor(COLOR_GRAYTEXT);
      }
      if (row == dropRow_) {
        draw->clrText = GetSysColor(COLOR_HIGHLIGHTTEXT);
        draw->clrTextBk = GetSysColor(COLOR_HIGHLIGHT);
      }
      return CDRF_DODEFAULT;
    }
    default:
      return CDRF_DODEFAULT;
  }
}

LRESULT ListPane::OnBeginDrag(NMHDR*) {
  owner_.OnDrag(false);
  return 0;
}

LRESULT ListPane::OnBeginRightDrag(NMHDR*) {
  owner_.OnDrag(true);
  return 0;
}

LRESULT ListPane::OnSetFocus(NMHDR*) {
  owner_.OnFocus();
  return 0;
}

// A container may switch on that rows get selected under a mouse that rests. What is selected here is what the user
// clicked on, and nothing else: the next Delete must not take a file that the mouse happened to lie on.
LRESULT ListPane::OnHover(NMHDR*) {
  return 1;
}

int ListPane::RowAt(POINT screen) const {
  if (!list_) return -1;
  LVHITTESTINFO hit = {};
  hit.pt = screen;
  ScreenToClient(list_, &hit.pt);
  const int row = static_cast<int>(SendMessageW(list_, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  return (hit.flags & LVHT_ONITEM) ? row : -1;
}

void ListPane::SetDropRow(int row) {
  if (row == dropRow_) return;
  const int old = std::exchange(dropRow_, row);
  if (!list_) return;
  for (const int changed : {old, row}) {
    if (changed >= 0) SendMessageW(list_, LVM_REDRAWITEMS, static_cast<WPARAM>(changed), changed);
  }
  UpdateWindow(list_);
}

void ListPane::OnContext(LPARAM lParam) {
  POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  if (point.x == -1 && point.y == -1) {
    // From the keyboard: at the focused row.
    const int row = IsSelected(FocusedRow()) ? FocusedRow() : NextSelected(-1);
    point = row >= 0 ? RowPoint(row) : POINT{Scale(20), Scale(30)};
    ClientToScreen(list_, &point);
    owner_.OnContextMenu(row, point);
    return;
  }
  owner_.OnContextMenu(RowAt(point), point);
}

}  // namespace controls
