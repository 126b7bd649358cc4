#include "src/favorites/tree_drag_image.h"

namespace file_explorer {

TreeDragImage::TreeDragImage(TreeControl tree, HTREEITEM item, POINT point)
    : tree_(tree), images_(tree.CreateDragImage(item)) {
  ShowCursor(FALSE);
  RECT rect = {};
  int imageWidth = 0;
  int imageHeight = 0;
  if (!images_ || !ImageList_GetIconSize(images_.get(), &imageWidth, &imageHeight) ||
      !tree_.ItemRect(item, &rect)) {
    return;  // the drag works without a picture too
  }
  // The picture has the item's icon left of its text.
  const int left = rect.right - imageWidth;
  isDragging_ = ImageList_BeginDrag(images_.get(), 0, point.x - left, point.y - rect.top) != FALSE;
  const POINT place = ToWindow(point);
  if (isDragging_) ImageList_DragEnter(tree_.window(), place.x, place.y);
}

TreeDragImage::~TreeDragImage() {
  if (isDragging_) {
    ImageList_DragLeave(tree_.window());
    ImageList_EndDrag();
  }
  ShowCursor(TRUE);
}

void TreeDragImage::MoveTo(POINT point) const {
  const POINT place = ToWindow(point);
  if (isDragging_) ImageList_DragMove(place.x, place.y);
}

void TreeDragImage::Highlight(HTREEITEM item) const {
  if (isDragging_) ImageList_DragShowNolock(FALSE);
  tree_.Highlight(item);
  UpdateWindow(tree_.window());
  if (isDragging_) ImageList_DragShowNolock(TRUE);
}

// The drag calls count from the window's corner, borders included.
POINT TreeDragImage::ToWindow(POINT point) const {
  RECT window = {};
  GetWindowRect(tree_.window(), &window);
  ClientToScreen(tree_.window(), &point);
  return {point.x - window.left, point.y - window.top};
}

}  // namespace file_explorer
