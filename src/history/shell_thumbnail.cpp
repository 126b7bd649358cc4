#include "src/history/shell_thumbnail.h"

#include <objbase.h>
#include <shlobj.h>
#include <wrl/client.h>

namespace file_explorer {

using Microsoft::WRL::ComPtr;

unique_hbitmap ExtractShellThumbnail(const ItemId& item, int width, int height) {
  constexpr DWORD kColorDepth = 24;
  if (item.empty()) return unique_hbitmap();
  ComPtr<IShellFolder> folder;
  LPCITEMIDLIST child = nullptr;
  const auto* const pidl = reinterpret_cast<LPCITEMIDLIST>(item.data());
  if (FAILED(
          SHBindToParent(pidl, IID_IShellFolder, reinterpret_cast<void**>(folder.GetAddressOf()), &child))) {
    return unique_hbitmap();
  }
  ComPtr<IExtractImage> extractor;
  if (FAILED(folder->GetUIObjectOf(nullptr, 1, &child, IID_IExtractImage, nullptr,
                                   reinterpret_cast<void**>(extractor.GetAddressOf()))) ||
      !extractor) {
    return unique_hbitmap();
  }
  // The location has to be asked for before the picture, although nobody needs it here.
  wchar_t location[MAX_PATH] = L"";
  DWORD priority = 0;
  DWORD flags = IEIFLAG_ASPECT;
  const SIZE size = {width, height};
  if (FAILED(extractor->GetLocation(location, MAX_PATH, &priority, &size, kColorDepth, &flags)))
    return unique_hbitmap();
  unique_hbitmap picture;
  if (FAILED(extractor->Extract(picture.put()))) return unique_hbitmap();
  return picture;
}

}  // namespace file_explorer
