#include "src/favorites/favorites_platform.h"

#include <commctrl.h>

#include <cstdio>
#include <cstring>

#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"

namespace file_explorer {
namespace {

constexpr char kFavoritesFileName[] = "favorites.dat";
constexpr char kBackupExtension[] = ".bak";
constexpr int kImageWidth = 16;
constexpr int kImageHeight = 15;
constexpr COLORREF kMaskColor = RGB(251, 195, 0);

std::wstring Widen(std::string_view text) {
  const int length = static_cast<int>(text.size());
  std::wstring wide(static_cast<size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0)),
                    L'\0');
  MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), static_cast<int>(wide.size()));
  return wide;
}

std::string BackupName(const std::string& path) {
  if (path.size() >= kTxPathSize) return std::string();
  char backup[kTxPathSize];
  std::memcpy(backup, path.c_str(), path.size() + 1);
  CharLowerBuffA(backup, static_cast<DWORD>(path.size()));
  return Tx_Check_File_Extension(backup, sizeof(backup), kBackupExtension) ? backup : std::string();
}

}  // namespace

std::string FoldCodePageLetters(std::string_view text) {
  std::wstring wide = Widen(text);
  if (wide.empty()) return std::string(text);
  const int length = static_cast<int>(wide.size());
  CharLowerBuffW(wide.data(), static_cast<DWORD>(length));
  const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
  if (size <= 0) return std::string(text);
  std::string folded(static_cast<size_t>(size), '\0');
  WideCharToMultiByte(CP_ACP, 0, wide.data(), length, folded.data(), size, nullptr, nullptr);
  return folded;
}

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
