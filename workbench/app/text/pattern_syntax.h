// How a wildcard pattern is read: its characters, and the members of its sets. Validation and matching both
// read through here, so that they agree on every pattern.
#pragma once

#include <cstddef>
#include <string_view>

namespace workbench {

struct Character {
  char32_t code = 0;
  std::size_t length = 0;  // in bytes
};

// Bytes that belong to no well-formed sequence get codes from here on: they equal only themselves.
inline constexpr char32_t kStrayByte = 0x110000;

inline unsigned char ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// The character that starts at `at` with a byte outside ASCII.
Character DecodeLongAt(std::string_view text, std::size_t at);

// The character that starts at `at`, which lies inside text.
inline Character DecodeAt(std::string_view text, std::size_t at) {
  const unsigned char lead = ByteAt(text, at);
  return lead < 0x80 ? Character{lead, 1} : DecodeLongAt(text, at);
}

// The length of the character that ends before `end`, which is not 0.
std::size_t LengthBefore(std::string_view text, std::size_t end);

// True for bytes that stand for themselves in a pattern and are a character each, in whatever text.
constexpr bool IsPlain(unsigned char byte) {
  return byte < 0x80 && byte != '*' && byte != '?' && byte != '[' && byte != '\\';
}

enum class Fault { kNone, kUnclosedSet, kEmptySet, kReversedRange, kTrailingBackslash };

// Reads the members of a set one after the other.
class SetReader {
 public:
  // `at` lies after the "[".
  SetReader(std::string_view pattern, std::size_t at);

  // The next member, as a range. False after the last one or at a fault.
  bool Next(char32_t* first, char32_t* last);

  bool negated() const { return negated_; }
  Fault fault() const { return fault_; }
  std::size_t at() const { return at_; }  // after the set once Next gave false without a fault

 private:
  bool Fail(Fault fault);
  bool ReadCharacter(char32_t* code);

  std::string_view pattern_;
  std::size_t at_;
  bool negated_ = false;
  bool hasMembers_ = false;
  Fault fault_ = Fault::kNone;
};

// Moves *at, which lies inside the pattern, to the next element.
Fault SkipElement(std::string_view pattern, std::size_t* at);

// The first fault of a pattern.
Fault FaultOf(std::string_view pattern);

}  // namespace workbench
