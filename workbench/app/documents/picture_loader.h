// Decoding of picture files by the system's imaging component.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/app/documents/picture_pixels.h"

namespace workbench {

// Largest picture file that is read, in bytes.
inline constexpr std::size_t kPictureFileLimit = 512u * 1024 * 1024;

struct LoadedPicture {
  PixelGrid grid;
  unsigned bitsPerPixel = 0;  // as stored in the file; 0 when unknown
};

// The first picture of the file (of an icon file: its largest). Nothing, with a full sentence in *reason,
// when it is no picture, damaged, or too large. COM must be usable on the calling thread or is made so for
// the call.
std::optional<LoadedPicture> LoadPicture(const std::wstring& path, std::wstring* reason);

}  // namespace workbench
