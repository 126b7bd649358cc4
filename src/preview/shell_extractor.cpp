#include "src/preview/shell_extractor.h"

#include <objbase.h>
#include <shlobj.h>

#include <algorithm>

#include "src/framework/com/com_guard.h"
#include "src/framework/com/com_ptr.h"

namespace file_explorer::preview {
namespace {

constexpr DWORD kColorDepth = 24;

class OwnedBitmap {
 public:
  OwnedBitmap() = default;
  ~OwnedBitmap() {
    if (bitmap_ != nullptr) DeleteObject(bitmap_);
  }
  OwnedBitmap(const OwnedBitmap&) = delete;
  OwnedBitmap& operator=(const OwnedBitmap&) = delete;
  HBITMAP get() const { return bitmap_; }
  HBITMAP* put() { return &bitmap_; }

 private:
  HBITMAP bitmap_ = nullptr;
};

ComPtr<IExtractImage> ExtractorOf(LPCITEMIDLIST item) {
  ComPtr<IShellFolder> folder;
  ComPtr<IExtractImage> extractor;
  LPCITEMIDLIST child = nullptr;
  if (FAILED(SHBindToParent(item, IID_IShellFolder, reinterpret_cast<void**>(folder.ReleaseAndGetAddressOf()),
                            &child)) ||
      FAILED(folder->GetUIObjectOf(nullptr, 1, &child, IID_IExtractImage, nullptr,
                                   reinterpret_cast<void**>(extractor.ReleaseAndGetAddressOf())))) {
    return nullptr;
  }
  return extractor;
}

// The bitmap's upper left part, opaque.
std::optional<Picture> PixelsOf(HBITMAP bitmap, int size) {
  BITMAP facts = {};
  if (bitmap == nullptr || !GetObjectA(bitmap, sizeof(facts), &facts) || facts.bmWidth <= 0 ||
      facts.bmHeight <= 0 || facts.bmWidth > 4096 || facts.bmHeight > 4096) {
    return std::nullopt;
  }
  Picture whole = {static_cast<int>(facts.bmWidth), static_cast<int>(facts.bmHeight), {}};
  whole.pixels.resize(static_cast<std::size_t>(facts.bmWidth) * static_cast<std::size_t>(facts.bmHeight));
  BITMAPINFO info = {};
  info.bmiHeader = {sizeof(BITMAPINFOHEADER), facts.bmWidth, -facts.bmHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
  const HDC screen = GetDC(nullptr);
  const int rows = GetDIBits(screen, bitmap, 0, static_cast<UINT>(facts.bmHeight), whole.pixels.data(), &info,
                             DIB_RGB_COLORS);
  ReleaseDC(nullptr, screen);
  if (rows != facts.bmHeight) return std::nullopt;
  Picture picture = {std::min(whole.width, size), std::min(whole.height, size), {}};
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) picture.pixels.push_back(whole.At(x, y) | 0xFF000000u);
  }
  return picture;
}

}  // namespace

std::optional<Picture> ExtractShellPicture(LPCITEMIDLIST item, int size) {
  // Somebody else's code: a damaged extractor must not take the host with it.
  ComPtr<IExtractImage> extractor;
  if (!RunForeignCode([&] { extractor = ExtractorOf(item); })) return std::nullopt;
  return extractor ? ExtractPicture(*extractor.Get(), size) : std::nullopt;
}

std::optional<Picture> ExtractPicture(IExtractImage& extractor, int size) {
  // The location has to be asked for before the picture, although nobody needs it here.
  wchar_t location[MAX_PATH] = L"";
  DWORD priority = 0;
  DWORD flags = IEIFLAG_ASPECT | IEIFLAG_OFFLINE;  // what is on another machine or in a cloud stays there
  const SIZE wanted = {size, size};
  OwnedBitmap bitmap;
  HRESULT result = E_FAIL;
  const bool returned = RunForeignCode([&] {
    result = extractor.GetLocation(location, MAX_PATH, &priority, &wanted, kColorDepth, &flags);
    if (SUCCEEDED(result)) result = extractor.Extract(bitmap.put());
  });
  if (!returned || FAILED(result)) return std::nullopt;
  return PixelsOf(bitmap.get(), size);
}

}  // namespace file_explorer::preview
