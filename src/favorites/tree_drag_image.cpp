#include "src/favorites/tree_drag_image.h"

namespace file_explorer {

namespace {

// Not every tree control makes a picture: the item as it is on the screen, without its background.
unique_himagelist CopyOfItem(HWND tree, const RECT& item) {
  const int width = item.right - item.left;
  const int height = item.bottom - item.top;
  unique_himagelist images(ImageList_Create(width, height, ILC_COLOR24 | ILC_MASK, 1, 1));
  const HDC source = GetDC(tree);
  const unique_hbitmap bitmap(CreateCompatibleBitmap(source, width, height));
  const HDC target = CreateCompatibleDC(source);
  const HGDIOBJ previous = SelectObject(target, bitmap.get());
  BitBlt(target, 0, 0, width, height, source, item.left, item.top, SRCCOPY);
  SelectObject(target, previous);
  DeleteDC(target);
  ReleaseDC(tree, source);
  ImageList_AddMasked(images.get(), bitmap.get(), GetSysColor(COLOR_WINDOW));
  return images;
}

int ImageWidth(HIMAGELIST images) {
  int width = 0;
  int height = 0;
  return images != nullptr && ImageList_GetIconSize(images, &width, &height) ? width : 0;
}

}  // namespace

TreeDragImage::TreeDragImage(TreeControl tree, HTREEITEM item, POINT point)
    : tree_(tree), images_(tree.CreateDragImage(item)) {
  ShowCursor(FALSE);
  RECT rect = {};
  if (!tree_.ItemRect(item, &rect)) return;  // the drag works without a picture too
  if (images_ && ImageList_GetImageCount(images_.get()) > 0) {
    rect.left = rect.right - ImageWidth(images_.get());
  } else {
    rect.left -= ImageWidth(tree_.Images());
    images_ = CopyOfItem(tree_.window(), rect);
  }
  // The picture has the item's icon left of its text, so that its corner is left of the text's.
  isDragging_ = ImageList_BeginDrag(images_.get(), 0, point.x - rect.left, point.y - rect.top) != FALSE;
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
