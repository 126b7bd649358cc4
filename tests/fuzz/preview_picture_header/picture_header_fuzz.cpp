#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "src/preview/picture_header.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view file(reinterpret_cast<const char*>(data), size);
  file_explorer::preview::LargestStatedSize(file);
  const int orientation = file_explorer::preview::StatedOrientation(file);
  if (orientation < 1 || orientation > 8) std::abort();
  return 0;
}
