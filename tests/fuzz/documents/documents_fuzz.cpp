// libFuzzer target: everything that reads the content of a file which somebody opens.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "workbench/app/documents/autoload_text.h"
#include "workbench/app/documents/content_kind.h"
#include "workbench/app/documents/line_index.h"
#include "workbench/app/documents/picture_orientation.h"
#include "workbench/app/documents/picture_size.h"
#include "workbench/app/documents/text_decoding.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench;
  const std::string_view content(reinterpret_cast<const char*>(data), size);
  ParseAutoloadContent(content);
  IsPictureContent(content);
  IsTextFile("a.txt", content);
  if (LargestStatedSize(content).width > 0xFFFFFFFFull) std::abort();
  const int orientation = StatedOrientation(content);
  if (orientation < 1 || orientation > 8) std::abort();
  const std::u16string text = DecodeText(content, DetectEncoding(content), size % 2 == 0);
  const LineIndex index(text);
  std::size_t position = 0;
  for (std::size_t row = 0; row < index.rows(); ++row) {
    // Rows follow each other without gaps, and every position finds its way back to its row.
    if (index.RowStart(row) < position || index.RowOf(index.RowStart(row)) != row) std::abort();
    position = index.RowStart(row) + index.Row(row).size();
    if (index.PositionAt(row, index.widestRow() + 1) != position) std::abort();
    if (index.ColumnAt(position) > index.widestRow() && index.RowOf(position) == row) std::abort();
  }
  const TextRange word = WordAt(text, size / 2);
  if (word.first > word.last || word.last > text.size()) std::abort();
  return 0;
}
