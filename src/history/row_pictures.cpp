#include "src/history/row_pictures.h"

#include <commctrl.h>
#include <shellapi.h>

#include <string_view>
#include <utility>

#include "src/history/history_platform.h"
#include "src/history/row_layout.h"
#include "src/history/shell_thumbnail.h"

namespace file_explorer {
namespace {

RowPictures::Icon LookUp(const char* path, DWORD flags) {
  SHFILEINFOA info = {};
  RowPictures::Icon icon;
  icon.list = reinterpret_cast<HIMAGELIST>(
      SHGetFileInfoA(path, FILE_ATTRIBUTE_NORMAL, &info, sizeof(info), SHGFI_SYSICONINDEX | flags));
  int width = 0;
  int height = 0;
  if (icon.list == nullptr || !ImageList_GetIconSize(icon.list, &width, &height)) return RowPictures::Icon();
  icon.index = info.iIcon;
  icon.size = {width, height};
  return icon;
}

// The part of a path that decides its icon.
std::string IconKey(const std::string& path) {
  const size_t dot = path.find_last_of("\\/:.");
  if (dot == std::string::npos || path[dot] != '.') return std::string();
  return FoldCodePageCase(std::string_view(path).substr(dot));
}

}  // namespace

RowPictures::RowPictures(Preview preview) : preview_(std::move(preview)) {}

SIZE RowPictures::SmallIconSize() {
  const Icon icon = LookUp("C:\\", SHGFI_SMALLICON);
  if (icon.list != nullptr) return icon.size;
  return {GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)};
}

HBITMAP RowPictures::Thumbnail(const HistoryEntry& entry) {
  const auto [place, isNew] = thumbnails_.try_emplace(FoldCodePageCase(entry.fullPath));
  if (isNew) {
    place->second = ExtractShellThumbnail(entry.itemId, kThumbnailSize, kThumbnailSize);
    if (!place->second && preview_ && !entry.fullPath.empty()) {
      place->second.reset(preview_(entry.fullPath.c_str(), kThumbnailSize));
    }
  }
  return place->second.get();
}

RowPictures::Icon RowPictures::IconOf(Icons& icons, const std::string& path, bool isSmall) {
  const auto [place, isNew] = icons.try_emplace(IconKey(path));
  if (isNew) {
    // By the name alone: a file on a disk that is gone would hold the painting up.
    place->second =
        LookUp(path.c_str(), SHGFI_USEFILEATTRIBUTES | (isSmall ? SHGFI_SMALLICON : SHGFI_LARGEICON));
  }
  return place->second;
}

}  // namespace file_explorer
