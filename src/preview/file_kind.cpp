#include "src/preview/file_kind.h"

#include <algorithm>
#include <cstddef>

#include "src/preview/model_readers.h"

namespace file_explorer::preview {
namespace {

constexpr std::string_view kPictures[] = {"bmp",  "dib", "gif", "ico", "jfif", "jpe",
                                          "jpeg", "jpg", "png", "tga", "tif",  "tiff"};

char Lower(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string_view ExtensionOf(std::string_view path) {
  const std::size_t dot = path.find_last_of("./\\:");
  return dot == path.npos || path[dot] != '.' ? std::string_view() : path.substr(dot + 1);
}

bool SameExtension(std::string_view lower, std::string_view extension) {
  return std::equal(lower.begin(), lower.end(), extension.begin(), extension.end(),
                    [](char a, char b) { return a == Lower(b); });
}

FileKind KindOfFile(std::string_view path) {
  const std::string_view extension = ExtensionOf(path);
  if (ReaderForExtension(extension) != nullptr) return FileKind::kModel;
  const bool isPicture = std::any_of(std::begin(kPictures), std::end(kPictures),
                                     [&](std::string_view known) { return SameExtension(known, extension); });
  return isPicture ? FileKind::kPicture : FileKind::kNone;
}

}  // namespace file_explorer::preview
