// Rows of a text on a grid of equally wide columns.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

namespace workbench {

inline constexpr int kTabColumns = 8;

// Columns that the character takes when it starts at `column`: a tab runs to the next stop, East Asian wide
// characters take two, combining marks none.
int ColumnsOf(char32_t character, int column);

// The character at `at` and the number of UTF-16 units that it takes (1 or 2). `at` lies inside the text.
struct TextCharacter {
  char32_t code;
  std::size_t units;
};
TextCharacter CharacterAt(std::u16string_view text, std::size_t at);

// Where the rows of a text begin. A line ends at a line feed, a carriage return, or both together; a line of
// more than kLongestRow units is broken into several rows, so that no row is slow to draw. Positions are in
// UTF-16 units.
class LineIndex {
 public:
  static constexpr std::size_t kLongestRow = 4096;

  // The text must outlive the index.
  explicit LineIndex(std::u16string_view text);

  std::size_t rows() const { return starts_.size(); }  // at least 1
  std::size_t lines() const { return lines_; }         // as an editor counts: an empty text has 1
  int widestRow() const { return widest_; }            // in columns
  std::size_t RowStart(std::size_t row) const { return starts_[row]; }
  std::u16string_view Row(std::size_t row) const;  // without its line end
  std::size_t RowOf(std::size_t position) const;   // the row that the position lies in

  // The position whose character covers the column, or the row's end. And the other way round.
  std::size_t PositionAt(std::size_t row, int column) const;
  int ColumnAt(std::size_t position) const;

 private:
  std::u16string_view text_;
  std::vector<std::size_t> starts_;
  std::size_t lines_ = 1;
  int widest_ = 0;
};

// The word around a position, as [first, second): letters and digits together, other characters alone.
struct TextRange {
  std::size_t first = 0;
  std::size_t last = 0;  // behind the range
};
TextRange WordAt(std::u16string_view text, std::size_t position);

}  // namespace workbench
