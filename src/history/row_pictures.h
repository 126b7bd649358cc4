// The pictures of history rows: thumbnails and the system's icons. Painting a row that was painted before
// asks nobody, except now and then whether its file has changed.
#pragma once

#include <windows.h>

#include <commctrl.h>

#include <cstdint>
#include <functional>
#include <map>
#include <optional>
#include <string>

#include "src/history/history_entry.h"
#include "src/history/row_thumbnails.h"

namespace file_explorer {

class RowPictures {
 public:
  // A picture of the file, pixels by pixels at most; none when there is none.
  using Maker = std::function<std::optional<preview::Preview>(const HistoryEntry& entry, int pixels)>;
  // maker: empty for the shell's extractor and the explorer's own previews. clock: gives milliseconds from any start;
  // empty for the system's.
  RowPictures(Maker maker, std::function<std::uint64_t()> clock);

  // Size in pixels of the system's small icons.
  static SIZE SmallIconSize();

  // The entries' thumbnails, kThumbnailSize at most on each side.
  RowThumbnails& thumbnails() { return thumbnails_; }

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

  RowThumbnails thumbnails_;
  Icons smallIcons_;
  Icons largeIcons_;
};

}  // namespace file_explorer
