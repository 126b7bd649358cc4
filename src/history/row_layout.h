// Where the parts of a history row lie. Pixels throughout.
#pragma once

#include <string>

#include "src/history/history_entry.h"

namespace file_explorer {

inline constexpr int kThumbnailSize = 64;
inline constexpr int kTallRowHeight = kThumbnailSize + 2;
inline constexpr int kTallTextStart = kThumbnailSize + 2;    // from the row's left edge to the text's indent
inline constexpr int kTallExtentExtra = kThumbnailSize + 1;  // what a tall row is wider than its name

// Height of a row; smallIconHeight is the height of the system's small icons.
constexpr int RowHeight(bool showIcons, int smallIconHeight) {
  return showIcons ? kTallRowHeight : smallIconHeight + 2;
}

// Horizontal extent that a row asks for.
constexpr int RowExtent(int nameWidth, int averageCharacterWidth, bool showIcons) {
  return nameWidth + averageCharacterWidth + (showIcons ? kTallExtentExtra : 0);
}

// The text's indent behind its start; dialogBaseUnitX is the width of the dialog base unit.
constexpr int TextIndent(int dialogBaseUnitX) {
  return 2 * (dialogBaseUnitX / 4);
}

// Bottom edges of the three lines of a tall row; the third stays empty.
struct TallRowLines {
  int path;
  int time;
  int third;
};
constexpr TallRowLines LinesOfTallRow(int top, int rowHeight, int textHeight) {
  const int step = rowHeight / 6;
  const int half = textHeight / 2;
  return {top + step + step / 2 + half, top + 3 * step + half, top + 4 * step + step / 2 + half};
}

// Offset that centres a picture in the box of a thumbnail; pictures larger than the box start at its edge.
constexpr int CentreInThumbnail(int size) {
  return size >= kThumbnailSize ? 0 : (kThumbnailSize - size) / 2;
}

// "Last access: Nov 16 2026, 2:05" for a local time; empty when its month does not exist.
std::string LastAccessText(const HistoryTime& local);

// The row that a navigation key leads to, or -1 when the list is empty.
enum class RowStep { kUp, kDown, kPageUp, kPageDown, kFirst, kLast };
int NextRow(RowStep step, int current, int count, int rowsOnPage);

}  // namespace file_explorer
