#include "workbench/controls/fileview/thumbnail_images.h"

#include <algorithm>
#include <cstdint>

#include "workbench/controls/shell/type_cache.h"

namespace controls {

namespace preview = file_explorer::preview;

// A framed empty cell to draw into.
class ThumbnailImages::Canvas {
 public:
  explicit Canvas(int cell) : cell_(cell), context_(CreateCompatibleDC(nullptr)) {
    BITMAPINFO info = {};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), cell, -cell, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    bitmap_ = CreateDIBSection(context_, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!bitmap_) return;
    bits_ = static_cast<DWORD*>(bits);
    previous_ = SelectObject(context_, bitmap_);
    const RECT area = {0, 0, cell, cell};
    FillRect(context_, &area, GetSysColorBrush(COLOR_WINDOW));
    FrameRect(context_, &area, GetSysColorBrush(COLOR_BTNFACE));
  }
  ~Canvas() {
    if (previous_) SelectObject(context_, previous_);
    if (bitmap_) DeleteObject(bitmap_);
    DeleteDC(context_);
  }
  Canvas(const Canvas&) = delete;
  Canvas& operator=(const Canvas&) = delete;

  void DrawIcon(int systemImage) {
    int width = 32;
    int height = 32;
    const HIMAGELIST icons = SystemImages(true);
    ImageList_GetIconSize(icons, &width, &height);
    ImageList_Draw(icons, systemImage, context_, (cell_ - width) / 2, (cell_ - height) / 2, ILD_NORMAL);
  }
  void DrawPicture(const preview::Picture& picture) {
    if (!bits_) return;
    GdiFlush();
    const COLORREF window = GetSysColor(COLOR_WINDOW);
    const uint32_t background =
        uint32_t{GetRValue(window)} << 16 | uint32_t{GetGValue(window)} << 8 | GetBValue(window);
    const preview::Picture flat = preview::Flatten(picture, background);
    const int left = std::max(0, (cell_ - flat.width) / 2);
    const int top = std::max(0, (cell_ - flat.height) / 2);
    for (int y = 0; y < std::min(flat.height, cell_); ++y) {
      for (int x = 0; x < std::min(flat.width, cell_); ++x)
        bits_[(top + y) * cell_ + left + x] = flat.At(x, y);
    }
  }
  // Opaque: what a picture or an icon leaves free shows the window's colour.
  HBITMAP Finish() {
    if (previous_) SelectObject(context_, previous_);
    previous_ = nullptr;
    GdiFlush();
    if (bits_) std::for_each(bits_, bits_ + cell_ * cell_, [](DWORD& pixel) { pixel |= 0xFF000000u; });
    return bitmap_;
  }

 private:
  int cell_;
  HDC context_;
  HBITMAP bitmap_ = nullptr;
  HGDIOBJ previous_ = nullptr;
  DWORD* bits_ = nullptr;
};

ThumbnailImages::~ThumbnailImages() {
  if (list_) ImageList_Destroy(list_);
}

void ThumbnailImages::Reset(int cell) {
  if (list_) ImageList_Destroy(list_);
  cell_ = cell;
  iconCells_.clear();
  list_ = ImageList_Create(cell, cell, ILC_COLOR32, 16, 32);
}

int ThumbnailImages::IconCell(int systemImage) {
  const auto index = static_cast<size_t>(std::max(0, systemImage));
  if (index >= iconCells_.size()) iconCells_.resize(index + 1, -1);
  if (iconCells_[index] < 0) {
    Canvas canvas(cell_);
    canvas.DrawIcon(static_cast<int>(index));
    iconCells_[index] = ImageList_Add(list_, canvas.Finish(), nullptr);
  }
  return iconCells_[index];
}

int ThumbnailImages::PutPicture(int cellIndex, const preview::Picture& picture) {
  Canvas canvas(cell_);
  canvas.DrawPicture(picture);
  const HBITMAP bitmap = canvas.Finish();
  if (!bitmap) return -1;
  if (cellIndex < 0) return ImageList_Add(list_, bitmap, nullptr);
  return ImageList_Replace(list_, cellIndex, bitmap, nullptr) ? cellIndex : -1;
}

}  // namespace controls
