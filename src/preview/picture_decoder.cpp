#include "src/preview/picture_decoder.h"

#include <windows.h>

#include <wincodec.h>

#include <algorithm>
#include <vector>

#include "src/framework/com/com_ptr.h"
#include "src/preview/area_scaler.h"
#include "src/preview/picture_header.h"

namespace file_explorer::preview {
namespace {

constexpr std::uint64_t kLongestSide = 65535;
constexpr UINT kBandBytes = 512 * 1024;  // decoded at once, so that the budget is looked at in between
constexpr UINT kMostIconFrames = 32;

template <class Interface>
Interface** Out(ComPtr<Interface>& pointer) {
  return pointer.ReleaseAndGetAddressOf();
}

bool Succeeded(HRESULT result) {
  return SUCCEEDED(result);
}

class Decoding {
 public:
  explicit Decoding(std::string& content) : content_(content) {}

  bool Open() {
    return Succeeded(CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                      IID_IWICImagingFactory, reinterpret_cast<void**>(Out(factory_)))) &&
           Succeeded(factory_->CreateStream(Out(stream_))) &&
           Succeeded(stream_->InitializeFromMemory(reinterpret_cast<BYTE*>(content_.data()),
                                                   static_cast<DWORD>(content_.size()))) &&
           Succeeded(factory_->CreateDecoderFromStream(stream_.Get(), nullptr, WICDecodeMetadataCacheOnDemand,
                                                       Out(decoder_)));
  }

  // The first picture of a file; of an icon the smallest that is large enough.
  ComPtr<IWICBitmapFrameDecode> Frame(UINT edge) const {
    GUID container = {};
    UINT count = 1;
    decoder_->GetContainerFormat(&container);
    if (IsEqualGUID(container, GUID_ContainerFormatIco)) decoder_->GetFrameCount(&count);
    ComPtr<IWICBitmapFrameDecode> best;
    UINT bestSide = 0;
    for (UINT i = 0; i < std::min(count, kMostIconFrames); ++i) {
      ComPtr<IWICBitmapFrameDecode> frame;
      UINT width = 0;
      UINT height = 0;
      if (!Succeeded(decoder_->GetFrame(i, Out(frame))) || !Succeeded(frame->GetSize(&width, &height)))
        continue;
      const UINT side = std::max(width, height);
      const bool better = bestSide < edge ? side > bestSide : side >= edge && side < bestSide;
      if (best && !better) continue;
      best = frame;
      bestSide = side;
    }
    return best;
  }

  ComPtr<IWICFormatConverter> InOurForm(IWICBitmapSource* source) const {
    ComPtr<IWICFormatConverter> converter;
    if (!Succeeded(factory_->CreateFormatConverter(Out(converter))) ||
        !Succeeded(converter->Initialize(source, GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone,
                                         nullptr, 0, WICBitmapPaletteTypeCustom))) {
      return nullptr;
    }
    return converter;
  }

 private:
  std::string& content_;  // before the stream that reads it goes, it stays
  ComPtr<IWICImagingFactory> factory_;
  ComPtr<IWICStream> stream_;
  ComPtr<IWICBitmapDecoder> decoder_;
};

// Some decoders fill a pixel's colours without regard to its opacity.
void KeepPremultiplied(std::vector<std::uint32_t>& pixels) {
  for (std::uint32_t& pixel : pixels) {
    const std::uint32_t alpha = pixel >> 24;
    if (alpha == 255) continue;
    std::uint32_t kept = alpha << 24;
    for (int shift = 0; shift <= 16; shift += 8) kept |= std::min((pixel >> shift) & 0xFF, alpha) << shift;
    pixel = kept;
  }
}

std::optional<Picture> ScaleDown(IWICBitmapSource* source, PictureSize size, int edge, WorkBudget& budget) {
  AreaScaler scaler(size, FitInSquare(size, edge));
  const UINT stride = static_cast<UINT>(size.width) * 4;
  const int bandHeight = static_cast<int>(std::max(1u, kBandBytes / stride));
  std::vector<std::uint32_t> band(static_cast<std::size_t>(size.width) *
                                  static_cast<std::size_t>(bandHeight));
  for (int top = 0; top < size.height; top += bandHeight) {
    const int rows = std::min(bandHeight, size.height - top);
    const WICRect area = {0, top, size.width, rows};
    if (!Succeeded(source->CopyPixels(&area, stride, stride * static_cast<UINT>(rows),
                                      reinterpret_cast<BYTE*>(band.data())))) {
      return std::nullopt;
    }
    KeepPremultiplied(band);
    for (int y = 0; y < rows; ++y) {
      scaler.AddRow(&band[static_cast<std::size_t>(y) * static_cast<std::size_t>(size.width)]);
    }
    if (!budget.Spend(band.size())) return std::nullopt;
  }
  return scaler.Finish();
}

}  // namespace

std::optional<Picture> DecodePicture(std::string content, int edge, std::uint64_t pixelLimit,
                                     WorkBudget& budget) {
  // Decided before a decoder sees the file: some reserve memory for whatever a header says.
  const StatedSize stated = LargestStatedSize(content);
  if (stated.pixels() == 0 || stated.width > kLongestSide || stated.height > kLongestSide ||
      stated.pixels() > pixelLimit) {
    return std::nullopt;
  }
  Decoding decoding(content);
  if (!decoding.Open()) return std::nullopt;
  const ComPtr<IWICBitmapFrameDecode> frame = decoding.Frame(static_cast<UINT>(edge));
  UINT width = 0;
  UINT height = 0;
  if (!frame || !Succeeded(frame->GetSize(&width, &height)) || width == 0 || height == 0) return std::nullopt;
  if (width > kLongestSide || height > kLongestSide || std::uint64_t{width} * height > pixelLimit) {
    return std::nullopt;
  }
  const ComPtr<IWICFormatConverter> source = decoding.InOurForm(frame.Get());
  if (!source) return std::nullopt;
  const std::optional<Picture> picture =
      ScaleDown(source.Get(), {static_cast<int>(width), static_cast<int>(height)}, edge, budget);
  if (!picture) return std::nullopt;
  return Upright(*picture, StatedOrientation(content));
}

}  // namespace file_explorer::preview
