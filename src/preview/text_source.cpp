#include "src/preview/text_source.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <limits>
#include <system_error>

#include "src/preview/decimal.h"

namespace file_explorer::preview {
namespace {

constexpr std::size_t kMostDigits = 15;
// No program writes a number so long; converting a longer one would only take time.
constexpr std::size_t kLongestNumber = 400;

enum CharacterKind : unsigned char { kOfWord, kBlank, kLineEnd };

constexpr std::array<CharacterKind, 256> MakeKinds() {
  std::array<CharacterKind, 256> kinds = {};
  for (const unsigned char c : {' ', '\t', '\v', '\f'}) kinds[c] = kBlank;
  for (const unsigned char c : {'\n', '\r'}) kinds[c] = kLineEnd;
  return kinds;
}
constexpr std::array<CharacterKind, 256> kKinds = MakeKinds();

CharacterKind KindOf(char c) {
  return kKinds[static_cast<unsigned char>(c)];
}

// "1.#INF", "-1.#IND", "1.#QNAN0": only whether it is infinite matters.
bool ReadOldNotation(std::string_view word, double* value) {
  const bool negative = word.starts_with('-');
  if (negative) word.remove_prefix(1);
  const std::size_t mark = word.find(".#");
  if (mark == word.npos || mark == 0) return false;
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  if (!std::all_of(word.begin(), word.begin() + static_cast<std::ptrdiff_t>(mark), isDigit)) return false;
  word.remove_prefix(mark + 2);
  while (!word.empty() && isDigit(word.back())) word.remove_suffix(1);
  constexpr double kInfinity = std::numeric_limits<double>::infinity();
  if (word == "INF") {
    *value = negative ? -kInfinity : kInfinity;
    return true;
  }
  *value = std::numeric_limits<double>::quiet_NaN();
  return word == "IND" || word == "QNAN" || word == "SNAN" || word == "NAN";
}

}  // namespace

// After a backslash and the line's end after it; false when there is no such thing here.
bool TextSource::SkipContinuation() {
  if (!continued_ || text_[at_] != '\\') return false;
  std::size_t end = at_ + 1;
  if (end < text_.size() && text_[end] == '\r') ++end;
  if (end < text_.size() && text_[end] == '\n') ++end;
  if (end == at_ + 1) return false;
  at_ = end;
  return true;
}

// Places are kept in variables of the loops here and below: a member would be stored at every character.
void TextSource::SkipBlanks() {
  do {
    std::size_t at = at_;
    while (at < text_.size() && KindOf(text_[at]) == kBlank) ++at;
    at_ = at;
  } while (continued_ && at_ < text_.size() && SkipContinuation());
}

void TextSource::SkipWord() {
  const char* const start = text_.data();
  const char* const end = start + text_.size();
  const char* place = start + at_;
  while (place != end && KindOf(*place) == kOfWord) {
    const bool mayJoin = continued_ && *place == '\\' && place + 1 != end;
    if (mayJoin && KindOf(place[1]) == kLineEnd) break;
    ++place;
  }
  at_ = static_cast<std::size_t>(place - start);
}

bool TextSource::AtLineEnd() {
  SkipBlanks();
  return AtEnd() || KindOf(text_[at_]) == kLineEnd;
}

std::string_view TextSource::Word() {
  SkipBlanks();
  const std::size_t start = at_;
  SkipWord();
  return text_.substr(start, at_ - start);
}

std::string_view TextSource::WordOfText() {
  while (AtLineEnd()) {
    if (AtEnd()) return {};
    ++at_;
  }
  return Word();
}

bool TextSource::Number(double* value) {
  SkipBlanks();
  const char* const start = text_.data() + at_;
  const char* const end = text_.data() + text_.size();
  const char* const after = ReadShortDecimal(start, end, value);
  if (after != nullptr && (after == end || KindOf(*after) != kOfWord)) {
    at_ += static_cast<std::size_t>(after - start);
    return true;
  }
  return ReadNumber(Word(), value);
}

bool TextSource::Whole(long long* value) {
  SkipBlanks();
  std::size_t at = at_;
  const bool negative = at < text_.size() && text_[at] == '-';
  if (negative || (at < text_.size() && text_[at] == '+')) ++at;
  const std::size_t digits = at;
  long long result = 0;
  for (; at < text_.size() && text_[at] >= '0' && text_[at] <= '9' && at - digits <= kMostDigits; ++at) {
    result = result * 10 + (text_[at] - '0');
  }
  const bool fits = at != digits && at - digits <= kMostDigits;
  at_ = at;
  const bool ends = AtEnd() || KindOf(text_[at]) != kOfWord || text_[at] == '/' || text_[at] == '\\';
  SkipWord();
  *value = negative ? -result : result;
  return fits && ends;
}

bool TextSource::NextLineWithWords() {
  do {
    NextLine();
  } while (!AtEnd() && AtLineEnd());
  return !AtEnd();
}

void TextSource::NextLine() {
  for (;;) {
    std::size_t at = at_;
    while (at < text_.size() && KindOf(text_[at]) != kLineEnd && !(continued_ && text_[at] == '\\')) ++at;
    at_ = at;
    if (at == text_.size() || KindOf(text_[at]) == kLineEnd) break;
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
  return end == word.data() + word.size() || ReadOldNotation(word, value);
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
