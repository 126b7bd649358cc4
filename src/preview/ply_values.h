// The values of a polygon file's body, one after the other, as text or as numbers.
#pragma once

#include <cmath>
#include <cstdint>
#include <string_view>

#include "src/preview/byte_source.h"
#include "src/preview/ply_header.h"
#include "src/preview/text_source.h"
#include "src/preview/work_budget.h"

namespace file_explorer::preview {

// A whole number that an index or a restart mark (-1) may be. Texts may hold anything; a comparison with what
// is no number is false.
inline bool ToIndex(double value, std::int64_t* index) {
  if (!(value >= -1 && value <= 4294967295.0) || std::floor(value) != value) return false;
  *index = static_cast<std::int64_t>(value);
  return true;
}

class PlyTextValues {
 public:
  // byLine: each row is a line, and what a line has more than its row is passed over. Else lines mean
  // nothing.
  PlyTextValues(std::string_view body, bool byLine) : text_(body), byLine_(byLine) {}

  bool BeginRow() { return !byLine_ || SkipEmptyLines(); }
  void EndRow() {
    if (byLine_) text_.NextLine();
  }
  bool Next(PlyType, double* value) { return IsReady() && text_.Number(value); }
  bool NextIndex(PlyType type, std::int64_t* index) {
    if (!IsReady()) return false;
    const std::size_t start = text_.at();
    long long whole = 0;
    if (text_.Whole(&whole)) return ToIndex(static_cast<double>(whole), index);
    text_.GoTo(start);
    double value = 0;
    return Next(type, &value) && ToIndex(value, index);
  }
  bool Skip(PlyType type, std::uint64_t count, WorkBudget& budget) {
    double value = 0;
    for (; count != 0; --count) {
      if (!budget.Spend() || !Next(type, &value)) return false;
    }
    return true;
  }

 private:
  bool IsReady() { return byLine_ ? !text_.AtLineEnd() : SkipEmptyLines(); }
  bool SkipEmptyLines() {
    while (text_.AtLineEnd()) {
      if (text_.AtEnd()) return false;
      text_.NextLine();
    }
    return true;
  }

  TextSource text_;
  bool byLine_;
};

class PlyBinaryValues {
 public:
  PlyBinaryValues(std::string_view body, bool bigEndian) : bytes_(body, bigEndian), bigEndian_(bigEndian) {}

  bool BeginRow() { return true; }
  void EndRow() {}
  bool Next(PlyType type, double* value);
  bool NextIndex(PlyType type, std::int64_t* index);
  bool Skip(PlyType type, std::uint64_t count, WorkBudget&) {
    return count <= bytes_.left() / SizeOf(type) && bytes_.Skip(count * SizeOf(type));
  }
  // Whole rows of `size` bytes, which hold little-endian numbers; false when there are not so many, or they
  // are stored the other way.
  bool TakeRows(std::uint64_t count, std::size_t size, std::string_view* rows) {
    return !bigEndian_ && count <= bytes_.left() / size && bytes_.Take(count * size, rows);
  }

 private:
  template <typename Stored, typename Number>
  bool NextWhole(std::int64_t* value) {
    Stored stored = 0;
    if (!bytes_.Read(&stored)) return false;
    *value = static_cast<Number>(stored);
    return true;
  }
  bool NextWhole(PlyType type, std::int64_t* value);

  ByteSource bytes_;
  bool bigEndian_;
};

}  // namespace file_explorer::preview
