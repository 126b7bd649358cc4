#include "src/preview/file_preview.h"

#include <algorithm>
#include <string>

#include "base/text/code_page.h"
#include "src/preview/file_content.h"
#include "src/preview/file_kind.h"
#include "src/preview/model_readers.h"
#include "src/preview/picture_decoder.h"
#include "src/preview/renderer.h"
#include "src/preview/shell_extractor.h"

namespace file_explorer::preview {
namespace {

constexpr int kSmallestPreview = 16;
constexpr int kLargestPreview = kLargestRendering;

// Only the letters A to Z matter to who reads it.
std::string AsciiOf(const wchar_t* text) {
  std::string ascii;
  for (; *text != L'\0'; ++text) ascii.push_back(*text < 128 ? static_cast<char>(*text) : '?');
  return ascii;
}

std::optional<Picture> Draw(FileKind kind, std::string_view extension, std::string content, int size,
                            const PreviewLimits& limits, WorkBudget& budget) {
  if (kind == FileKind::kPicture) {
    return DecodePicture(std::move(content), size, limits.picturePixels, budget);
  }
  std::optional<Mesh> mesh = ReaderForExtension(extension)(content, limits.mesh, budget);
  content = std::string();
  return mesh ? RenderMesh(*mesh, size, budget) : std::nullopt;
}

}  // namespace

PreviewLimits PatientLimits() {
  PreviewLimits limits;
  limits.time = std::chrono::milliseconds(2000);
  limits.fileBytes = 96u << 20;
  limits.picturePixels = 60'000'000;
  limits.remoteFiles = true;
  return limits;
}

std::optional<Preview> MakePreview(const wchar_t* path, LPCITEMIDLIST item, int size,
                                   const PreviewLimits& limits) {
  if (size < kSmallestPreview || size > kLargestPreview) return std::nullopt;
  // An extractor opens the file too.
  if (path == nullptr || !MayBeOpened(path, limits.fileBytes, limits.remoteFiles)) return std::nullopt;
  if (item != nullptr) {
    if (std::optional<Picture> picture = ExtractShellPicture(item, size)) {
      return Preview{std::move(*picture), true};
    }
  }
  const std::string name = AsciiOf(path);
  const FileKind kind = KindOfFile(name);
  if (kind == FileKind::kNone) return std::nullopt;
  WorkBudget budget(limits.time, WorkBudget::kUnlimitedSteps, limits.cancelled);
  std::optional<std::string> content = ReadWholeFile(path, limits.fileBytes, limits.remoteFiles, budget);
  if (!content) return std::nullopt;
  std::optional<Picture> picture = Draw(kind, ExtensionOf(name), std::move(*content), size, limits, budget);
  if (!picture) return std::nullopt;
  return Preview{CentreInSquare(*picture, size), false};
}

std::optional<Preview> MakePreview(const char* path, LPCITEMIDLIST item, int size,
                                   const PreviewLimits& limits) {
  if (path == nullptr) return MakePreview(static_cast<const wchar_t*>(nullptr), item, size, limits);
  return MakePreview(base::WideFromNarrow(path).c_str(), item, size, limits);
}

}  // namespace file_explorer::preview
