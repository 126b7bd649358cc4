#include "workbench/app/documents/picture_loader.h"

#include <wincodec.h>
#include <windows.h>
#include <wrl/client.h>

#include <algorithm>
#include <utility>

#include "workbench/app/documents/content_kind.h"
#include "workbench/app/documents/describe.h"
#include "workbench/app/documents/file_facts.h"
#include "workbench/app/documents/picture_orientation.h"
#include "workbench/app/documents/picture_size.h"
#include "workbench/app/documents/view_window.h"

namespace workbench {
namespace {

using Microsoft::WRL::ComPtr;

constexpr UINT kIconFrameLimit = 64;
constexpr wchar_t kDamaged[] = L"The picture is damaged and can't be shown.";

// COM for the time of a call: a thread that has none gets it, one that has keeps its own kind.
class ComScope {
 public:
  ComScope() : result_(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)) {}
  ~ComScope() {
    if (SUCCEEDED(result_)) CoUninitialize();
  }
  ComScope(const ComScope&) = delete;
  ComScope& operator=(const ComScope&) = delete;

 private:
  HRESULT result_;
};

struct Decoder {
  ComPtr<IWICImagingFactory> factory;
  ComPtr<IWICStream> stream;
  ComPtr<IWICBitmapDecoder> decoder;
};

HRESULT OpenDecoder(std::string* content, Decoder* decoder) {
  HRESULT result = CoCreateInstance(CLSID_WICImagingFactory, nullptr, CLSCTX_INPROC_SERVER,
                                    IID_PPV_ARGS(decoder->factory.GetAddressOf()));
  if (SUCCEEDED(result)) result = decoder->factory->CreateStream(decoder->stream.GetAddressOf());
  if (SUCCEEDED(result)) {
    result = decoder->stream->InitializeFromMemory(reinterpret_cast<BYTE*>(content->data()),
                                                   static_cast<DWORD>(content->size()));
  }
  if (SUCCEEDED(result)) {
    result = decoder->factory->CreateDecoderFromStream(
        decoder->stream.Get(), nullptr, WICDecodeMetadataCacheOnDemand, decoder->decoder.GetAddressOf());
  }
  return result;
}

// An icon file holds one picture in many sizes; every other kind is shown by its first.
HRESULT ChooseFrame(const Decoder& decoder, ComPtr<IWICBitmapFrameDecode>* chosen) {
  GUID container = {};
  UINT frames = 1;
  decoder.decoder->GetContainerFormat(&container);
  if (container == GUID_ContainerFormatIco) decoder.decoder->GetFrameCount(&frames);
  HRESULT result = E_FAIL;
  std::uint64_t largest = 0;
  for (UINT i = 0; i < std::min(frames, kIconFrameLimit); ++i) {
    ComPtr<IWICBitmapFrameDecode> frame;
    UINT width = 0;
    UINT height = 0;
    const HRESULT got = decoder.decoder->GetFrame(i, frame.GetAddressOf());
    if (i == 0) result = got;
    if (FAILED(got) || FAILED(frame->GetSize(&width, &height))) continue;
    if (*chosen && std::uint64_t{width} * height <= largest) continue;
    largest = std::uint64_t{width} * height;
    *chosen = frame;
    result = S_OK;
  }
  return *chosen ? S_OK : FAILED(result) ? result : E_FAIL;
}

unsigned BitsPerPixel(const Decoder& decoder, IWICBitmapSource* frame) {
  WICPixelFormatGUID format = {};
  ComPtr<IWICComponentInfo> component;
  ComPtr<IWICPixelFormatInfo> info;
  UINT bits = 0;
  if (FAILED(frame->GetPixelFormat(&format)) ||
      FAILED(decoder.factory->CreateComponentInfo(format, component.GetAddressOf())) ||
      FAILED(component.As(&info)) || FAILED(info->GetBitsPerPixel(&bits))) {
    return 0;
  }
  return bits;
}

HRESULT CopyPixels(const Decoder& decoder, IWICBitmapSource* frame, PixelGrid* grid) {
  ComPtr<IWICFormatConverter> converter;
  HRESULT result = decoder.factory->CreateFormatConverter(converter.GetAddressOf());
  if (SUCCEEDED(result)) {
    result = converter->Initialize(frame, GUID_WICPixelFormat32bppPBGRA, WICBitmapDitherTypeNone, nullptr, 0,
                                   WICBitmapPaletteTypeCustom);
  }
  if (FAILED(result)) return result;
  grid->pixels.resize(static_cast<std::size_t>(grid->width) * static_cast<std::size_t>(grid->height));
  const UINT stride = static_cast<UINT>(grid->width) * 4;
  return converter->CopyPixels(nullptr, stride, stride * static_cast<UINT>(grid->height),
                               reinterpret_cast<BYTE*>(grid->pixels.data()));
}

std::wstring TooLarge(std::uint64_t width, std::uint64_t height) {
  const auto text = [](std::uint64_t number) { return Wide(GroupedNumber(number)); };
  return L"The picture has " + text(width) + L" x " + text(height) + L" pixels, more than the " +
         text(kPicturePixelLimit / (1024 * 1024)) + L" million that can be shown here.";
}

std::wstring DecodeFailure(HRESULT result, bool beginsLikePicture) {
  const bool unknown = result == WINCODEC_ERR_COMPONENTNOTFOUND || result == WINCODEC_ERR_UNKNOWNIMAGEFORMAT;
  // A decoder that gives up early makes a damaged file look like one of an unknown kind.
  if (unknown && !beginsLikePicture)
    return L"This kind of picture can't be decoded here, or the file is damaged.";
  return result == E_OUTOFMEMORY ? L"There is not enough memory to show the picture." : kDamaged;
}

}  // namespace

std::optional<LoadedPicture> LoadPicture(const std::wstring& path, std::wstring* reason) {
  std::string content;
  const DWORD error = ReadFileBeginning(path, kPictureFileLimit + 1, &content);
  *reason = error != ERROR_SUCCESS               ? ErrorText(error, path)
            : content.empty()                    ? L"The file is empty, so there is no picture to show."
            : content.size() > kPictureFileLimit ? L"The picture's file is too large to be shown here."
                                                 : L"";
  if (!reason->empty()) return std::nullopt;
  // Decided before a decoder sees the file: some reserve memory for whatever the header says, and miscount
  // it.
  const StatedSize stated = LargestStatedSize(content);
  if (stated.pixels() > kPicturePixelLimit) {
    *reason = TooLarge(stated.width, stated.height);
    return std::nullopt;
  }

  const ComScope com;
  Decoder decoder;
  ComPtr<IWICBitmapFrameDecode> frame;
  LoadedPicture picture;
  UINT width = 0;
  UINT height = 0;
  HRESULT result = OpenDecoder(&content, &decoder);
  if (SUCCEEDED(result)) result = ChooseFrame(decoder, &frame);
  if (SUCCEEDED(result)) result = frame->GetSize(&width, &height);
  if (SUCCEEDED(result) && (width == 0 || height == 0)) result = WINCODEC_ERR_BADIMAGE;
  if (SUCCEEDED(result) && std::uint64_t{width} * height > kPicturePixelLimit) {
    *reason = TooLarge(width, height);
    return std::nullopt;
  }
  if (SUCCEEDED(result)) {
    picture.grid.width = static_cast<int>(width);
    picture.grid.height = static_cast<int>(height);
    picture.bitsPerPixel = BitsPerPixel(decoder, frame.Get());
    result = CopyPixels(decoder, frame.Get(), &picture.grid);
  }
  if (FAILED(result)) {
    *reason = DecodeFailure(result, IsPictureContent(content));
    return std::nullopt;
  }
  picture.grid = Upright(std::move(picture.grid), StatedOrientation(content));
  return picture;
}

}  // namespace workbench
