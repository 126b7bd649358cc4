// The image list of the thumbnail view: cells of one size, each with a frame and a picture or an icon in it.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <vector>

#include "src/preview/picture.h"

namespace controls {

class ThumbnailImages {
 public:
  ThumbnailImages() = default;
  ~ThumbnailImages();
  ThumbnailImages(const ThumbnailImages&) = delete;
  ThumbnailImages& operator=(const ThumbnailImages&) = delete;

  // Forgets all cells and begins with an empty list. cell: pixels. Null list when there is no memory.
  void Reset(int cell);
  HIMAGELIST list() const { return list_; }
  int cell() const { return cell_; }

  // The cell with a large icon of the system; made once for each icon.
  int IconCell(int systemImage);
  // Puts a picture into a cell, which may be -1 for a new one. The cell, or -1 when it can't be made.
  int PutPicture(int cellIndex, const file_explorer::preview::Picture& picture);

 private:
  class Canvas;
  HIMAGELIST list_ = nullptr;
  int cell_ = 0;
  std::vector<int> iconCells_;  // by the system's image; -1 where there is none yet
};

}  // namespace controls
