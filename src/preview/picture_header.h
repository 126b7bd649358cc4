// What a picture file says of itself before anybody decodes it.
#pragma once

#include <cstdint>
#include <string_view>

#include "src/preview/picture.h"

namespace file_explorer::preview {

// The largest picture that the file states, frames and pictures inside an icon included: a decoder may
// reserve memory for it before it finds that the content is not there. Zero for an unknown kind of file.
struct StatedSize {
  std::uint64_t width = 0;   // pixels
  std::uint64_t height = 0;  // pixels
  std::uint64_t pixels() const { return width * height; }
};
StatedSize LargestStatedSize(std::string_view file);

// How the camera was held, as a JPEG states it: 1 (upright) to 8; 1 for every other file.
int StatedOrientation(std::string_view file);

// The picture turned and mirrored so that it stands upright.
Picture Upright(const Picture& picture, int orientation);

}  // namespace file_explorer::preview
