// Pictures that the shell makes of a file.
#pragma once

#include <windows.h>

#include <shlobj.h>
#include <shtypes.h>

#include <optional>

#include "src/preview/picture.h"

namespace file_explorer::preview {

// A picture of the item by the shell's thumbnail extractor, asked for at size by size pixels and 24 bits, at
// most that large; none when the shell has none. item: from the desktop.
std::optional<Picture> ExtractShellPicture(LPCITEMIDLIST item, int size);

// The same by an extractor that is bound to its item already.
std::optional<Picture> ExtractPicture(IExtractImage& extractor, int size);

}  // namespace file_explorer::preview
