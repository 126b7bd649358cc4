#include "workbench/controls/model/natural_compare.h"

namespace controls {
namespace {

bool IsDigit(wchar_t character) {
  return character >= L'0' && character <= L'9';
}

size_t SkipZeros(std::wstring_view text, size_t at) {
  while (at < text.size() && text[at] == L'0') ++at;
  return at;
}

size_t EndOfDigits(std::wstring_view text, size_t at) {
  while (at < text.size() && IsDigit(text[at])) ++at;
  return at;
}

// Compares the numbers that start at the two positions and moves both behind them.
int CompareNumbers(std::wstring_view first, size_t& i, std::wstring_view second, size_t& j) {
  const size_t firstStart = SkipZeros(first, i);
  const size_t secondStart = SkipZeros(second, j);
  const size_t firstEnd = EndOfDigits(first, firstStart);
  const size_t secondEnd = EndOfDigits(second, secondStart);
  i = firstEnd;
  j = secondEnd;
  const size_t firstLength = firstEnd - firstStart;
  const size_t secondLength = secondEnd - secondStart;
  if (firstLength != secondLength) return firstLength < secondLength ? -1 : 1;
  return first.substr(firstStart, firstLength).compare(second.substr(secondStart, secondLength));
}

}  // namespace

int CompareNatural(std::wstring_view first, std::wstring_view second) {
  size_t i = 0;
  size_t j = 0;
  while (i < first.size() && j < second.size()) {
    if (IsDigit(first[i]) && IsDigit(second[j])) {
      const int order = CompareNumbers(first, i, second, j);
      if (order != 0) return order;
      continue;
    }
    const wchar_t a = FoldCase(first[i++]);
    const wchar_t b = FoldCase(second[j++]);
    if (a != b) return a < b ? -1 : 1;
  }
  if (i < first.size()) return 1;
  if (j < second.size()) return -1;
  return first.compare(second);
}

}  // namespace controls
