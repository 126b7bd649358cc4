#include "tests/fuzz/preview/model_fuzz.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  preview_fuzz::FuzzReader(file_explorer::preview::ReadObj, data, size);
  return 0;
}
