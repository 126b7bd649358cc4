// The favourites tree and the mouse: clicks that activate, and dragging entries.
#include <windowsx.h>

#include <algorithm>
#include <iterator>
#include <utility>

#include "src/favorites/halvo_tree_view.h"
#include "src/favorites/tree_drag_image.h"

namespace file_explorer {

const CHalvoTreeView::MouseRow CHalvoTreeView::kMouseRows[] = {
    {WM_MOUSEMOVE, false, &CHalvoTreeView::MouseMove},
    {WM_LBUTTONDOWN, false, &CHalvoTreeView::OnParentLeftButtonDown},
    {WM_NCLBUTTONDOWN, true, &CHalvoTreeView::OnParentLeftButtonDown},
    {WM_LBUTTONUP, false, &CHalvoTreeView::ButtonUp},
    {WM_NCLBUTTONUP, true, &CHalvoTreeView::ButtonUp},
    {WM_RBUTTONUP, false, &CHalvoTreeView::OtherButtonUp},
    {WM_NCRBUTTONUP, true, &CHalvoTreeView::OtherButtonUp},
    {WM_LBUTTONDBLCLK, false, &CHalvoTreeView::OnParentDoubleClick},
};

// The parent's own mouse messages: all of them while a drag has captured the mouse for it. They stay the
// parent's too.
bool CHalvoTreeView::RouteMouse(HWND owner, UINT message, LPARAM lParam) {
  const auto* const row =
      std::find_if(std::begin(kMouseRows), std::end(kMouseRows),
                   [message](const MouseRow& candidate) { return candidate.message == message; });
  if (row == std::end(kMouseRows)) return false;
  const bool wasDragging = isDragging_;
  POINT point = {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
  MapWindowPoints(row->isInScreen ? nullptr : owner, window(), &point, 1);
  (this->*row->handler)(point);
  return wasDragging;
}

bool CHalvoTreeView::LeftButtonDown(POINT point) {
  UINT flags = 0;
  const HTREEITEM item = tree_.ItemAt(point, &flags);
  FavoriteRecord* const record = tree_.RecordOf(item);
  if (record == nullptr) return false;
  if ((flags & TVHT_ONITEMSTATEICON) != 0 && (style_ & TVS_CHECKBOXES) != 0) {
    ToggleCheck(*record);
    return true;
  }
  if ((flags & TVHT_ONITEM) == 0) return false;
  if (lastClicked_ != item || !onActivation_) {
    lastClicked_ = item;
    return false;
  }
  activatedByClick_ = item;
  activatedAt_ = GetMessageTime();
  // A click on a selected label is also how the control begins to edit it, which is not wanted of an entry
  // that opens.
  const bool wouldEdit = tree_.Selected() == item && !record->Has(kFavoriteFolder);
  onActivation_(record);
  return wouldEdit;
}

void CHalvoTreeView::Click(POINT) {}

void CHalvoTreeView::DoubleClick() {
  const HTREEITEM item = tree_.Selected();
  // The first of the two clicks may have been the second click on this item: it is activated once.
  const bool isActivated = item != nullptr && std::exchange(activatedByClick_, nullptr) == item &&
                           static_cast<UINT>(GetMessageTime() - activatedAt_) <= GetDoubleClickTime();
  if (!isActivated && onActivation_) onActivation_(tree_.RecordOf(item));
}

void CHalvoTreeView::ForgetMouse() {
  lastClicked_ = nullptr;
  activatedByClick_ = nullptr;
  draggedItem_ = nullptr;
  dropTarget_ = nullptr;
}

void CHalvoTreeView::BeginDrag(HTREEITEM item, POINT point) {
  const FavoriteRecord* const record = tree_.RecordOf(item);
  if (isDragging_ || record == nullptr || !record->Has(kFavoriteDraggable)) return;
  isDragging_ = true;
  draggedItem_ = item;
  dropTarget_ = nullptr;
  dragImage_ = std::make_unique<TreeDragImage>(tree_, item, point);
  SetCapture(parent_);
}

void CHalvoTreeView::MouseMove(POINT point) {
  if (isDragging_) DragMove(point);
}

void CHalvoTreeView::DragMove(POINT point) {
  dragImage_->MoveTo(point);
  ScrollWhileDragging(point);
  const HTREEITEM item = tree_.ItemAt(point);
  if (item != dropTarget_) SetDropTarget(item);
}

void CHalvoTreeView::SetDropTarget(HTREEITEM item) {
  dropTarget_ = item;
  if (dragImage_) dragImage_->Highlight(item);
}

// Moving the mouse at an edge brings what lies behind it.
void CHalvoTreeView::ScrollWhileDragging(POINT point) const {
  RECT area = {};
  GetClientRect(window(), &area);
  const int edge = static_cast<int>(SendMessageA(window(), TVM_GETITEMHEIGHT, 0, 0)) / 2;
  const bool isUp = point.y < edge;
  if (!isUp && point.y < area.bottom - edge) return;
  ImageList_DragShowNolock(FALSE);
  SendMessageA(window(), WM_VSCROLL, isUp ? SB_LINEUP : SB_LINEDOWN, 0);
  UpdateWindow(window());
  ImageList_DragShowNolock(TRUE);
}

void CHalvoTreeView::ButtonUp(POINT point) {
  if (isDragging_) dropTarget_ = tree_.ItemAt(point);
  EndDrag();
}

void CHalvoTreeView::OtherButtonUp(POINT) {
  EndDrag();
}

void CHalvoTreeView::EndDrag() {
  if (isDragging_) Drop();
  ReleaseCapture();
}

void CHalvoTreeView::Drop() {
  const HTREEITEM dragged = draggedItem_;
  const HTREEITEM target = dropTarget_;
  StopDragging();
  FavoriteRecord* const record = tree_.RecordOf(dragged);
  FavoriteRecord* const folder = DropFolder(tree_.RecordOf(target));
  if (record != nullptr && MayDrop(*record, folder)) MoveEntry(*record, *folder);
}

void CHalvoTreeView::CancelDrag() {
  StopDragging();
}

// Puts picture, cursor, capture and highlight back.
void CHalvoTreeView::StopDragging() {
  if (!std::exchange(isDragging_, false)) return;
  dragImage_.reset();
  ReleaseCapture();
  tree_.Highlight(nullptr);
  draggedItem_ = nullptr;
  dropTarget_ = nullptr;
}

}  // namespace file_explorer
