#include "src/preview/text_source.h"

#include <charconv>
#include <limits>
#include <system_error>

namespace file_explorer::preview {
namespace {

constexpr std::size_t kMostDigits = 15;
// No program writes a number so long; converting a longer one would only take time.
constexpr std::size_t kLongestNumber = 400;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\v' || c == '\f';
}
bool IsLineEnd(char c) {
  return c == '\n' || c == '\r';
}

}  // namespace

// Behind a backslash and the line's end after it; false when there is no such thing here.
bool TextSource::SkipContinuation() {
  if (!continued_ || text_[at_] != '\\') return false;
  std::size_t end = at_ + 1;
  if (end < text_.size() && text_[end] == '\r') ++end;
  if (end < text_.size() && text_[end] == '\n') ++end;
  if (end == at_ + 1) return false;
  at_ = end;
  return true;
}

void TextSource::SkipBlanks() {
  while (at_ < text_.size()) {
    if (IsBlank(text_[at_])) {
      ++at_;
    } else if (!SkipContinuation()) {
      return;
    }
  }
}

std::string_view TextSource::Word() {
  SkipBlanks();
  const std::size_t start = at_;
  while (at_ < text_.size() && !IsBlank(text_[at_]) && !IsLineEnd(text_[at_])) {
    const bool mayJoin = continued_ && text_[at_] == '\\' && at_ + 1 < text_.size();
    if (mayJoin && IsLineEnd(text_[at_ + 1])) break;
    ++at_;
  }
  return text_.substr(start, at_ - start);
}

std::string_view TextSource::WordOfText() {
  for (;;) {
    const std::string_view word = Word();
    if (!word.empty() || AtEnd()) return word;
    ++at_;  // a line's end
  }
}

void TextSource::NextLine() {
  while (at_ < text_.size() && !IsLineEnd(text_[at_])) {
    if (!SkipContinuation()) ++at_;
  }
  if (at_ < text_.size() && text_[at_] == '\r') ++at_;
  if (at_ < text_.size() && text_[at_] == '\n') ++at_;
}

bool ReadNumber(std::string_view word, double* value) {
  if (word.starts_with('+')) word.remove_prefix(1);
  if (word.empty() || word.front() == '+' || word.size() > kLongestNumber) return false;
  const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), *value);
  if (error == std::errc::result_out_of_range) {
    // Too large or too small; the exponent's sign tells which.
    const bool tiny = word.find("e-") != word.npos || word.find("E-") != word.npos;
    *value = tiny ? 0 : std::numeric_limits<double>::infinity();
  } else if (error != std::errc()) {
    return false;
  }
  return end == word.data() + word.size();
}

bool ReadWhole(std::string_view word, long long* value) {
  const bool negative = word.starts_with('-');
  if (negative || word.starts_with('+')) word.remove_prefix(1);
  if (word.empty() || word.size() > kMostDigits) return false;
  long long result = 0;
  for (const char c : word) {
    if (c < '0' || c > '9') return false;
    result = result * 10 + (c - '0');
  }
  *value = negative ? -result : result;
  return true;
}

}  // namespace file_explorer::preview
