// The picture of an item that follows the mouse during a drag.
#pragma once

#include <windows.h>

#include "src/favorites/tree_control.h"
#include "src/framework/unique_handle.h"

namespace file_explorer {

class TreeDragImage {
 public:
  // Starts with the picture on the item's top left corner and hides the cursor; `point` is the cursor's place
  // in the tree's client area.
  TreeDragImage(TreeControl tree, HTREEITEM item, POINT point);
  // Takes the picture away and shows the cursor.
  ~TreeDragImage();
  TreeDragImage(const TreeDragImage&) = delete;
  TreeDragImage& operator=(const TreeDragImage&) = delete;

  void MoveTo(POINT point) const;
  // Highlights an item of the tree (null: none) without leaving traces of the picture.
  void Highlight(HTREEITEM item) const;

 private:
  POINT ToWindow(POINT point) const;

  TreeControl tree_;
  unique_himagelist images_;
  bool isDragging_ = false;
};

}  // namespace file_explorer
