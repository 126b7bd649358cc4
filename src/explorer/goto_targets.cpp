#include "src/explorer/goto_targets.h"

#include <algorithm>

namespace file_explorer {
namespace {

// Exported files and documents begin among the objects: the program's own choice.
constexpr ProfileDirectory kDirectories[] = {
    {kCommandGoToTextures, "Default-Textures-Directory", "textures"},
    {kCommandGoToScenes, "Default-Halvo-BDF-Directory", "scenes"},
    {kCommandGoToImport, "Default-FileImport-Directory", "objects"},
    {kCommandGoToExport, "Default-FileExport-Directory", "objects"},
    {kCommandGoToDocuments, "Default-Documents-Directory", "objects"},
    {kCommandGoToRenderedImages, "Default-Rendered-Images-Directory", "images"},
};

}  // namespace

std::span<const ProfileDirectory> ProfileDirectories() {
  return kDirectories;
}

const ProfileDirectory* FindProfileDirectory(int command) {
  const auto found = std::find_if(std::begin(kDirectories), std::end(kDirectories),
                                  [&](const ProfileDirectory& row) { return row.command == command; });
  return found == std::end(kDirectories) ? nullptr : found;
}

}  // namespace file_explorer
