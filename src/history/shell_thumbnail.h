// Pictures that the shell makes of a file.
#pragma once

#include <windows.h>

#include "src/framework/unique_handle.h"
#include "src/history/history_entry.h"

namespace file_explorer {

// A picture of the item by the shell's thumbnail extractor, 24 bits deep; null when the shell has none.
unique_hbitmap ExtractShellThumbnail(const ItemId& item, int width, int height);

}  // namespace file_explorer
