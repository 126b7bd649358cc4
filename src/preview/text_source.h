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

  // The next word of the line; empty at its end.
  std::string_view Word();
  // The next word of the text, whatever lines lie between; empty at the end.
  std::string_view WordOfText();
  // Goes behind the line's end.
  void NextLine();

 private:
  void SkipBlanks();
  bool SkipContinuation();

  std::string_view text_;
  std::size_t at_ = 0;
  bool continued_;
};

// A word as a number: "1", "-2.5e3", "+.5", "nan". Too large ones are infinite. False for anything else.
bool ReadNumber(std::string_view word, double* value);
// A word as a whole number with an optional sign, at most 15 digits.
bool ReadWhole(std::string_view word, long long* value);

}  // namespace file_explorer::preview
