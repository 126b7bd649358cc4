// The pictures of history rows: thumbnails and the system's icons. What was looked up once is kept as long as
// this object lives, so that painting a row asks nobody.
#pragma once

#include <windows.h>

#include <functional>
#include <map>
#include <string>

#include "src/framework/unique_handle.h"
#include "src/history/history_entry.h"

namespace file_explorer {

class RowPictures {
 public:
  using Preview = std::function<HBITMAP(const char* path, int pixels)>;
  explicit RowPictures(Preview preview);

  // Size in pixels of the system's small icons.
  static SIZE SmallIconSize();

  // The entry's thumbnail, kThumbnailSize at most on each side, or null. Stays this object's.
  HBITMAP Thumbnail(const HistoryEntry& entry);

  // An image of the system's image lists, which are never released; no list when there is no icon.
  struct Icon {
    HIMAGELIST list = nullptr;
    int index = 0;
    SIZE size = {0, 0};
  };
  Icon SmallIcon(const std::string& path) { return IconOf(smallIcons_, path, true); }
  Icon LargeIcon(const std::string& path) { return IconOf(largeIcons_, path, false); }

 private:
  using Icons = std::map<std::string, Icon>;  // by extension: what the look-up goes by, as no file is touched
  static Icon IconOf(Icons& icons, const std::string& path, bool isSmall);

  Preview preview_;
  std::map<std::string, unique_hbitmap> thumbnails_;  // by path; null where none could be made
  Icons smallIcons_;
  Icons largeIcons_;
};

}  // namespace file_explorer
