// The size that a picture file states in its header, read before a decoder sees the file: a decoder may
// reserve memory for whatever the header says, or miscount it.
#pragma once

#include <cstdint>
#include <string_view>

namespace workbench {

struct StatedSize {
  std::uint64_t width = 0;
  std::uint64_t height = 0;

  std::uint64_t pixels() const { return width * height; }  // both are below 2^32
};

// The size of the largest picture in a PNG, JPEG, GIF, BMP, TIFF or icon file; 0 by 0 when the file is of
// another kind or its header is broken.
StatedSize LargestStatedSize(std::string_view file);

}  // namespace workbench
