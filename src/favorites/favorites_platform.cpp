#include "src/favorites/favorites_platform.h"

#include <commctrl.h>

#include <cstdio>
#include <cstring>

#include "base/text/letter_case.h"
#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {
namespace {

constexpr char kFavoritesFileName[] = "favorites.dat";
constexpr char kBackupExtension[] = ".bak";
constexpr int kImageWidth = 16;
constexpr int kImageHeight = 15;
constexpr COLORREF kMaskColor = RGB(251, 195, 0);

std::string BackupName(const std::string& path) {
  if (path.size() >= kTxPathSize) return std::string();
  const std::string lower = base::LowerCaseNarrow(path);
  char backup[kTxPathSize];
  if (lower.size() >= sizeof(backup)) return std::string();
  std::memcpy(backup, lower.c_str(), lower.size() + 1);
  return Tx_Check_File_Extension(backup, sizeof(backup), kBackupExtension) ? backup : std::string();
}

}  // namespace

const FavoritesFileCalls& SystemFileCalls() {
  static const FavoritesFileCalls calls = {
      [](const char* path, const char* mode) { return std::fopen(path, mode); },
      [](const char* path) { return Tx_File_Exists(path) != 0; },
      [](const char* path) { std::remove(path); },
      [](const char* from, const char* to) { std::rename(from, to); },
      BackupName,
      WriteText,
  };
  return calls;
}

std::string NewFavoriteKey() {
  char key[kTxGuidSize] = "";
  Tx_Create_GUID(key);
  return key;
}

std::string FavoritesFilePath(HWND mainWindow) {
  const unique_host_text folder(Import_IO_GetHalvoApplicationDirectoryForCurrentUser(mainWindow));
  char path[kTxPathSize];
  if (!folder || !Tx_ConcatenatePathAndFilename(folder.get(), kFavoritesFileName, path, sizeof(path))) {
    return std::string();
  }
  return path;
}

FavoriteImages MakeFavoriteImages(HBITMAP strip) {
  if (strip == nullptr) return nullptr;
  auto images = std::make_shared<unique_himagelist>(
      ImageList_Create(kImageWidth, kImageHeight, ILC_COLOR24 | ILC_MASK, 6, 4));
  ImageList_AddMasked(images->get(), strip, kMaskColor);
  return images;
}

FavoriteImages LoadFavoriteImages(HINSTANCE instance) {
  const unique_hbitmap strip(
      static_cast<HBITMAP>(LoadImageA(instance, "ToolbarFavs", IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION)));
  return MakeFavoriteImages(strip.get());
}

}  // namespace file_explorer
