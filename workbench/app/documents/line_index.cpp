#include "workbench/app/documents/line_index.h"

#include <algorithm>

namespace workbench {
namespace {

struct CodeRange {
  char32_t first;
  char32_t last;
};

constexpr CodeRange kWide[] = {{0x1100, 0x115F},   {0x2E80, 0x303E},  {0x3041, 0xA4CF}, {0xAC00, 0xD7A3},
                               {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},  {0xFF00, 0xFF60}, {0xFFE0, 0xFFE6},
                               {0x1F300, 0x1FAFF}, {0x20000, 0x3FFFD}};
constexpr CodeRange kCombining[] = {{0x0300, 0x036F}, {0x0483, 0x0489}, {0x0591, 0x05BD}, {0x064B, 0x065F},
                                    {0x1AB0, 0x1AFF}, {0x1DC0, 0x1DFF}, {0x200B, 0x200F}, {0x20D0, 0x20FF},
                                    {0xFE00, 0xFE0F}, {0xFE20, 0xFE2F}, {0xFEFF, 0xFEFF}};

template <std::size_t Size>
bool Lies(char32_t code, const CodeRange (&ranges)[Size]) {
  return std::any_of(ranges, ranges + Size,
                     [code](const CodeRange& r) { return code >= r.first && code <= r.last; });
}

bool IsLineEnd(char16_t unit) {
  return unit == u'\n' || unit == u'\r';
}

bool IsWordUnit(char16_t unit) {
  if (unit >= 0x80) return unit != 0xA0 && unit != 0x3000;
  return (unit >= u'0' && unit <= u'9') || (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') ||
         unit == u'_';
}

}  // namespace

int ColumnsOf(char32_t character, int column) {
  if (character == U'\t') return kTabColumns - column % kTabColumns;
  if (character < 0x300) return 1;
  if (Lies(character, kCombining)) return 0;
  return Lies(character, kWide) ? 2 : 1;
}

TextCharacter CharacterAt(std::u16string_view text, std::size_t at) {
  const char16_t unit = text[at];
  const bool pair = (unit & 0xFC00) == 0xD800 && at + 1 < text.size() && (text[at + 1] & 0xFC00) == 0xDC00;
  if (!pair) return {unit, 1};
  return {0x10000 + ((static_cast<char32_t>(unit) & 0x3FF) << 10) + (text[at + 1] & 0x3FF), 2};
}

LineIndex::LineIndex(std::u16string_view text) : text_(text) {
  starts_.push_back(0);
  int column = 0;
  for (std::size_t at = 0; at < text.size();) {
    if (IsLineEnd(text[at])) {
      at += text[at] == u'\r' && at + 1 < text.size() && text[at + 1] == u'\n' ? 2 : 1;
      starts_.push_back(at);
      ++lines_;
      column = 0;
      continue;
    }
    const TextCharacter character = CharacterAt(text, at);
    if (at - starts_.back() + character.units > kLongestRow) {
      starts_.push_back(at);
      column = 0;
    }
    column += ColumnsOf(character.code, column);
    widest_ = std::max(widest_, column);
    at += character.units;
  }
}

std::u16string_view LineIndex::Row(std::size_t row) const {
  const std::size_t start = starts_[row];
  std::size_t end = row + 1 < starts_.size() ? starts_[row + 1] : text_.size();
  // Rows have one line end at most; the last row has none, even when its text stops at one's first half.
  if (row + 1 < starts_.size() && end > start && IsLineEnd(text_[end - 1])) {
    const bool both = text_[end - 1] == u'\n' && end - 1 > start && text_[end - 2] == u'\r';
    end -= both ? 2 : 1;
  }
  return text_.substr(start, end - start);
}

std::size_t LineIndex::RowOf(std::size_t position) const {
  const auto behind = std::upper_bound(starts_.begin(), starts_.end(), position);
  return static_cast<std::size_t>(behind - starts_.begin()) - 1;
}

std::size_t LineIndex::PositionAt(std::size_t row, int column) const {
  const std::u16string_view text = Row(row);
  int at = 0;
  for (std::size_t i = 0; i < text.size();) {
    const TextCharacter character = CharacterAt(text, i);
    at += ColumnsOf(character.code, at);
    if (at > column) return starts_[row] + i;
    i += character.units;
  }
  return starts_[row] + text.size();
}

int LineIndex::ColumnAt(std::size_t position) const {
  const std::size_t row = RowOf(position);
  const std::u16string_view text = Row(row);
  const std::size_t units = std::min(position - starts_[row], text.size());
  int column = 0;
  for (std::size_t i = 0; i < units;) {
    const TextCharacter character = CharacterAt(text, i);
    column += ColumnsOf(character.code, column);
    i += character.units;
  }
  return column;
}

TextRange WordAt(std::u16string_view text, std::size_t position) {
  if (text.empty()) return {};
  const std::size_t at = std::min(position, text.size() - 1);
  if (IsLineEnd(text[at])) return {at, at};
  if (!IsWordUnit(text[at])) return {at, at + CharacterAt(text, at).units};
  TextRange range = {at, at + 1};
  while (range.first > 0 && IsWordUnit(text[range.first - 1])) --range.first;
  while (range.last < text.size() && IsWordUnit(text[range.last])) ++range.last;
  return range;
}

}  // namespace workbench
