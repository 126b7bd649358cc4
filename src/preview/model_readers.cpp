#include "src/preview/model_readers.h"

#include <algorithm>

#include "src/preview/file_kind.h"

namespace file_explorer::preview {
namespace {

struct Format {
  std::string_view extension;
  ModelReader reader;
};
constexpr Format kFormats[] = {{"obj", ReadObj}, {"stl", ReadStl}, {"ply", ReadPly}, {"3ds", Read3ds}};

}  // namespace

ModelReader ReaderForExtension(std::string_view extension) {
  const auto* const found = std::find_if(std::begin(kFormats), std::end(kFormats), [&](const Format& format) {
    return SameExtension(format.extension, extension);
  });
  return found != std::end(kFormats) ? found->reader : nullptr;
}

}  // namespace file_explorer::preview
