// Reading words and numbers out of a text, line by line.
#pragma once

#include <cstddef>
#include <string_view>

namespace file_explorer::preview {

class TextSource {
 public:
  // continued: a backslash at a line's end joins the next line to it.
  explicit TextSource(std::string_view text, bool continued = false) : text_(text), continued_(continued) {}

  bool AtEnd() const { return at_ >= text_.size(); }
  std::size_t at() const { return at_; }
  // Back to a place that at() gave.
  void GoTo(std::size_t at) { at_ = at; }

  // True when no further word follows on the line.
  bool AtLineEnd();
  // The same, and true before a comment, which begins with "#".
  bool AtContentEnd() { return AtLineEnd() || text_[at_] == '#'; }
  // The next word of the line; empty at its end.
  std::string_view Word();
  // The next word of the text, whatever lines lie between; empty at the end.
  std::string_view WordOfText();
  // The next word of the line as a number, as ReadNumber does. False at the line's end too.
  bool Number(double* value);
  // The next word of the line, up to a slash, as a whole number, as ReadWhole does. False at the line's end
  // too.
  bool Whole(long long* value);
  // Goes to the next line that has a word; false when there is none.
  bool NextLineWithWords();
  // Goes after the line's end.
  void NextLine();

 private:
  void SkipBlanks();
  bool SkipContinuation();
  void SkipWord();

  std::string_view text_;
  std::size_t at_ = 0;
  bool continued_;
};

// A word as a number: "1", "-2.5e3", "+.5", "nan", also as the C library of Windows used to write what is no
// number
// ("1.#INF", "-1.#IND00"). Too large ones are infinite. False for anything else.
bool ReadNumber(std::string_view word, double* value);
// A word as a whole number with an optional sign, at most 15 digits.
bool ReadWhole(std::string_view word, long long* value);

}  // namespace file_explorer::preview
