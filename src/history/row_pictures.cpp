#include "src/history/row_pictures.h"

#include <commctrl.h>
#include <shellapi.h>

#include <string_view>
#include <utility>

#include "base/reach/drive_reach.h"
#include "base/text/letter_case.h"
#include "src/history/history_platform.h"
#include "src/history/row_layout.h"
#include "src/preview/file_preview.h"

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
  return base::LowerCaseNarrow(std::string_view(path).substr(dot));
}

std::optional<preview::Preview> MakeThumbnail(const HistoryEntry& entry, int pixels) {
  const std::string& path = entry.fullPath.empty() ? entry.itemName : entry.fullPath;
  if (base::MayHang(path) || base::MayHang(entry.itemName)) return std::nullopt;
  const ItemId item = ShellHistoryPlatform().ParseItem(entry.itemName);
  return preview::MakePreview(path.c_str(), item.empty() ? nullptr : reinterpret_cast<LPCITEMIDLIST>(item.data()),
                              pixels, preview::PreviewLimits());
}

// Files that other machines have are not looked at: one that is gone would hold the painting up.
std::uint64_t StampOf(const std::string& path) {
  WIN32_FILE_ATTRIBUTE_DATA facts = {};
  if (path.size() < 3 || path[1] != ':' || base::MayHang(path) ||
      !GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &facts)) {
    return 0;
  }
  const std::uint64_t time =
      std::uint64_t{facts.ftLastWriteTime.dwHighDateTime} << 32 | facts.ftLastWriteTime.dwLowDateTime;
  return time * 31 + facts.nFileSizeLow + 1;
}

RowThumbnails::Source SourceOf(RowPictures::Maker maker, std::function<std::uint64_t()> clock) {
  if (!maker) maker = MakeThumbnail;
  if (!clock) clock = [] { return std::uint64_t{GetTickCount64()}; };
  return {[maker = std::move(maker)](const HistoryEntry& entry) { return maker(entry, kThumbnailSize); },
          StampOf, std::move(clock)};
}

}  // namespace

RowPictures::RowPictures(Maker maker, std::function<std::uint64_t()> clock)
    : thumbnails_(SourceOf(std::move(maker), std::move(clock)), base::LowerCaseNarrow) {}

SIZE RowPictures::SmallIconSize() {
  const Icon icon = LookUp("C:\\", SHGFI_SMALLICON);
  if (icon.list != nullptr) return icon.size;
  return {GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON)};
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
