// What a reference leads to when its path may keep the window waiting: judged by its text. No Windows in
// here.
#pragma once

#include <string_view>

namespace file_explorer {

enum class FavoriteTarget { kFile, kFolder, kUnknown };

// isKnownType: the host has an importer or viewer for the name's extension. A name without an extension, and
// one that ends with a separator, is a folder; any other may be either.
FavoriteTarget TargetByName(std::string_view path, bool isKnownType);

}  // namespace file_explorer
