// Picture files made by the system's encoders.
#pragma once

#include <windows.h>

#include <cstdint>
#include <functional>
#include <string>

namespace picture_files {

// 0xAARRGGBB, not multiplied.
using ColorAt = std::function<std::uint32_t(int x, int y)>;

// The content of a file; empty when the system can't make it. container and format: of the system's imaging
// component, for example GUID_ContainerFormatPng and GUID_WICPixelFormat32bppBGRA.
std::string Encode(const GUID& container, const GUID& format, int width, int height, const ColorAt& colorAt);

// A bitmap of 24 bits.
std::string Bitmap(int width, int height, const ColorAt& colorAt);
// A bitmap of 8 bits with a palette of two colours, 0 and 1.
std::string PaletteBitmap(int width, int height, std::uint32_t first, std::uint32_t second);
// An uncompressed picture of 16 bits a channel in a TIFF file, one colour (channels 0 to 65535).
std::string DeepTiff(int width, int height, std::uint16_t red, std::uint16_t green, std::uint16_t blue);
// The JPEG with a note that says how the camera was held.
std::string WithOrientation(const std::string& jpeg, int orientation);

}  // namespace picture_files
