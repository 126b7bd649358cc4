// Painting one row of the history list.
#pragma once

#include <windows.h>

#include "src/history/history_entry.h"
#include "src/history/row_pictures.h"

namespace file_explorer {

// Draws the row that `item` describes; entry may be null, for a row without a text. False when the row's
// thumbnail was left for another painting.
bool PaintHistoryRow(const DRAWITEMSTRUCT& item, const HistoryEntry* entry, bool showIcons, HFONT font,
                     RowPictures& pictures);

}  // namespace file_explorer
