#include "tests/integration/preview/picture_files.h"

#include <objbase.h>
#include <wincodec.h>

#include <vector>

#include "src/framework/com/com_ptr.h"

namespace picture_files {
namespace {

using file_explorer::ComPtr;

std::string Number(std::uint32_t value, int bytes) {
  std::string text;
  for (int i = 0; i < bytes; ++i) text += static_cast<char>(value >> (8 * i));
  return text;
}

std::string BitmapHeader(int width, int height, int bits, std::size_t palette, std::size_t pixels) {
  const auto start = static_cast<std::uint32_t>(54 + palette);
  return "BM" + Number(start + static_cast<std::uint32_t>(pixels), 4) + Number(0, 4) + Number(start, 4) +
         Number(40, 4) + Number(static_cast<std::uint32_t>(width), 4) +
         Number(static_cast<std::uint32_t>(height), 4) + Number(1, 2) +
         Number(static_cast<std::uint32_t>(bits), 2) + std::string(24, '\0');
}

}  // namespace

std::string Encode(const GUID& container, const GUID& format, int width, int height, const ColorAt& colorAt) {
  std::vector<std::uint32_t> pixels;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) pixels.push_back(colorAt(x, y));
  }
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICBitmap> bitmap;
  ComPtr<IStream> stream;
  ComPtr<IWICBitmapEncoder> encoder;
  ComPtr<IWICBitmapFrameEncode> frame;
  ComPtr<IWICFormatConverter> converter;
  WICPixelFormatGUID wanted = format;
  const auto w = static_cast<UINT>(width);
  const auto h = static_cast<UINT>(height);
  const bool made = SUCCEEDED(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                               IID_IWICImagingFactory,
                                               reinterpret_cast<void**>(factory.ReleaseAndGetAddressOf()))) &&
                    SUCCEEDED(factory->CreateBitmapFromMemory(
                        w, h, GUID_WICPixelFormat32bppBGRA, w * 4, w * h * 4,
                        reinterpret_cast<BYTE*>(pixels.data()), bitmap.ReleaseAndGetAddressOf())) &&
                    SUCCEEDED(CreateStreamOnHGlobal(nullptr, TRUE, stream.ReleaseAndGetAddressOf())) &&
                    SUCCEEDED(factory->CreateEncoder(container, nullptr, encoder.ReleaseAndGetAddressOf())) &&
                    SUCCEEDED(encoder->Initialize(stream.Get(), WICBitmapEncoderNoCache)) &&
                    SUCCEEDED(encoder->CreateNewFrame(frame.ReleaseAndGetAddressOf(), nullptr)) &&
                    SUCCEEDED(frame->Initialize(nullptr)) && SUCCEEDED(frame->SetSize(w, h)) &&
                    SUCCEEDED(frame->SetPixelFormat(&wanted)) &&
                    SUCCEEDED(factory->CreateFormatConverter(converter.ReleaseAndGetAddressOf())) &&
                    SUCCEEDED(converter->Initialize(bitmap.Get(), wanted, WICBitmapDitherTypeNone, nullptr, 0,
                                                    WICBitmapPaletteTypeMedianCut)) &&
                    SUCCEEDED(frame->WriteSource(converter.Get(), nullptr)) && SUCCEEDED(frame->Commit()) &&
                    SUCCEEDED(encoder->Commit());
  HGLOBAL memory = nullptr;
  STATSTG facts = {};
  if (!made || FAILED(GetHGlobalFromStream(stream.Get(), &memory)) ||
      FAILED(stream->Stat(&facts, STATFLAG_NONAME))) {
    return {};
  }
  std::string content(static_cast<const char*>(GlobalLock(memory)),
                      static_cast<std::size_t>(facts.cbSize.QuadPart));
  GlobalUnlock(memory);
  return content;
}

std::string Bitmap(int width, int height, const ColorAt& colorAt) {
  std::string pixels;
  for (int y = height - 1; y >= 0; --y) {
    for (int x = 0; x < width; ++x) pixels += Number(colorAt(x, y), 3);
    while (pixels.size() % 4 != 0) pixels += '\0';
  }
  return BitmapHeader(width, height, 24, 0, pixels.size()) + pixels;
}

std::string PaletteBitmap(int width, int height, std::uint32_t first, std::uint32_t second) {
  std::string pixels;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) pixels += x < width / 2 ? '\0' : '\1';
    while (pixels.size() % 4 != 0) pixels += '\0';
  }
  std::string palette = Number(first & 0xFFFFFF, 4) + Number(second & 0xFFFFFF, 4);
  palette.resize(1024, '\0');
  return BitmapHeader(width, height, 8, palette.size(), pixels.size()) + palette + pixels;
}

std::string DeepTiff(int width, int height, std::uint16_t red, std::uint16_t green, std::uint16_t blue) {
  const auto w = static_cast<std::uint32_t>(width);
  const auto h = static_cast<std::uint32_t>(height);
  struct Entry {
    std::uint32_t tag, type, count, value;
  };
  constexpr std::uint32_t kEntries = 10;
  constexpr std::uint32_t kDepths = 8 + 2 + kEntries * 12 + 4;  // behind the directory
  constexpr std::uint32_t kPixels = kDepths + 6;
  const Entry entries[kEntries] = {
      {256, 4, 1, w},       {257, 4, 1, h}, {258, 3, 3, kDepths}, {259, 3, 1, 1},         {262, 3, 1, 2},
      {273, 4, 1, kPixels}, {277, 3, 1, 3}, {278, 4, 1, h},       {279, 4, 1, w * h * 6}, {284, 3, 1, 1}};
  std::string file = std::string("II*\0", 4) + Number(8, 4) + Number(kEntries, 2);
  for (const Entry& entry : entries) {
    file += Number(entry.tag, 2) + Number(entry.type, 2) + Number(entry.count, 4) + Number(entry.value, 4);
  }
  file += Number(0, 4) + Number(16, 2) + Number(16, 2) + Number(16, 2);
  for (std::uint32_t i = 0; i < w * h; ++i) file += Number(red, 2) + Number(green, 2) + Number(blue, 2);
  return file;
}

std::string WithOrientation(const std::string& jpeg, int orientation) {
  std::string notes = std::string("Exif\0\0II*\0", 10) + Number(8, 4) + Number(1, 2) + Number(0x112, 2) +
                      Number(3, 2) + Number(1, 4) + Number(static_cast<std::uint32_t>(orientation), 4) +
                      Number(0, 4);
  const std::size_t length = notes.size() + 2;
  const std::string segment =
      std::string("\xFF\xE1") + static_cast<char>(length >> 8) + static_cast<char>(length) + notes;
  return jpeg.substr(0, 2) + segment + jpeg.substr(2);
}

}  // namespace picture_files
