#include "src/favorites/tree_control.h"

namespace file_explorer {
namespace {

constexpr UINT kUncheckedImage = 1;
constexpr UINT kCheckedImage = 2;

}  // namespace

LRESULT TreeControl::Send(UINT message, WPARAM wParam, LPARAM lParam) const {
  return window_ != nullptr ? SendMessageA(window_, message, wParam, lParam) : 0;
}

HTREEITEM TreeControl::Next(WPARAM relation) const {
  return reinterpret_cast<HTREEITEM>(Send(TVM_GETNEXTITEM, relation, 0));
}

HTREEITEM TreeControl::Insert(FavoriteRecord& record, HTREEITEM parent, HTREEITEM after,
                              bool isExpanded) const {
  std::string text = record.displayName;
  TVINSERTSTRUCTA insert = {};
  insert.hParent = parent != nullptr ? parent : TVI_ROOT;
  insert.hInsertAfter = after != nullptr ? after : TVI_FIRST;
  TVITEMA& item = insert.item;
  item.mask = TVIF_TEXT | TVIF_IMAGE | TVIF_SELECTEDIMAGE | TVIF_PARAM | TVIF_STATE;
  item.pszText = text.data();
  item.iImage = record.imageIndex;
  item.iSelectedImage = record.imageIndex;
  item.lParam = reinterpret_cast<LPARAM>(&record);
  item.state = isExpanded ? TVIS_EXPANDED : 0;
  item.stateMask = TVIS_EXPANDED;
  if (record.Has(kFavoriteChecked)) {
    item.state |= INDEXTOSTATEIMAGEMASK(kCheckedImage);
    item.stateMask |= TVIS_STATEIMAGEMASK;
  }
  return reinterpret_cast<HTREEITEM>(Send(TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
}

void TreeControl::Delete(HTREEITEM item) const {
  Send(TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(item));
}

void TreeControl::SetText(HTREEITEM item, const std::string& text) const {
  std::string copy = text;
  TVITEMA info = {};
  info.mask = TVIF_HANDLE | TVIF_TEXT;
  info.hItem = item;
  info.pszText = copy.data();
  Send(TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&info));
}

void TreeControl::SetState(HTREEITEM item, UINT mask, UINT state) const {
  TVITEMA info = {};
  info.mask = TVIF_HANDLE | TVIF_STATE;
  info.hItem = item;
  info.stateMask = mask;
  info.state = state;
  Send(TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&info));
}

void TreeControl::SetCheckMark(HTREEITEM item, bool isChecked) const {
  SetState(item, TVIS_STATEIMAGEMASK, INDEXTOSTATEIMAGEMASK(isChecked ? kCheckedImage : kUncheckedImage));
}

void TreeControl::SetFaded(HTREEITEM item, bool isFaded) const {
  SetState(item, TVIS_CUT, isFaded ? TVIS_CUT : 0);
}

bool TreeControl::IsExpanded(HTREEITEM item) const {
  return (Send(TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
}

FavoriteRecord* TreeControl::RecordOf(HTREEITEM item) const {
  TVITEMA info = {};
  info.mask = TVIF_HANDLE | TVIF_PARAM;
  info.hItem = item;
  if (item == nullptr || !Send(TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&info))) return nullptr;
  return reinterpret_cast<FavoriteRecord*>(info.lParam);
}

void TreeControl::Select(HTREEITEM item) const {
  Send(TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(item));
}

std::wstring TreeControl::LabelText() const {
  const HWND edit = LabelEdit();
  if (edit == nullptr) return {};
  std::wstring text(static_cast<size_t>(GetWindowTextLengthW(edit)) + 1, L'\0');
  text.resize(static_cast<size_t>(GetWindowTextW(edit, text.data(), static_cast<int>(text.size()))));
  return text;
}

void TreeControl::EditLabel(HTREEITEM item) const {
  SetFocus(window_);  // the control edits only with the focus
  Send(TVM_EDITLABELA, 0, reinterpret_cast<LPARAM>(item));
}

HWND TreeControl::LabelEdit() const {
  return reinterpret_cast<HWND>(Send(TVM_GETEDITCONTROL, 0, 0));
}

HTREEITEM TreeControl::ItemAt(POINT point, UINT* flags) const {
  TVHITTESTINFO hit = {};
  hit.pt = point;
  const auto item = reinterpret_cast<HTREEITEM>(Send(TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
  if (flags != nullptr) *flags = hit.flags;
  return item;
}

bool TreeControl::ItemRect(HTREEITEM item, RECT* rect) const {
  *reinterpret_cast<HTREEITEM*>(rect) = item;  // the message finds the item in the rectangle's first bytes
  return Send(TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(rect)) != 0;
}

void TreeControl::Highlight(HTREEITEM dropTarget) const {
  if (dropTarget == nullptr) ClearHighlight(Next(TVGN_DROPHILITE));
  Send(TVM_SELECTITEM, TVGN_DROPHILITE, reinterpret_cast<LPARAM>(dropTarget));
}

// Not every tree control takes the highlight away when no item is to have it.
void TreeControl::ClearHighlight(HTREEITEM item) const {
  if (item != nullptr) SetState(item, TVIS_DROPHILITED, 0);
}

HIMAGELIST TreeControl::CreateDragImage(HTREEITEM item) const {
  return reinterpret_cast<HIMAGELIST>(Send(TVM_CREATEDRAGIMAGE, 0, reinterpret_cast<LPARAM>(item)));
}

HIMAGELIST TreeControl::Images() const {
  return reinterpret_cast<HIMAGELIST>(Send(TVM_GETIMAGELIST, TVSIL_NORMAL, 0));
}

void TreeControl::SetRedraw(bool redraw) const {
  Send(WM_SETREDRAW, redraw ? TRUE : FALSE, 0);
  if (redraw && window_ != nullptr) InvalidateRect(window_, nullptr, TRUE);
}

}  // namespace file_explorer
