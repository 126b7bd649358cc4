#include "workbench/app/text/wildcard.h"

#include <cstddef>

#include "workbench/app/text/letter_case.h"

namespace workbench {
namespace {

struct Character {
  char32_t code = 0;
  std::size_t length = 0;  // in bytes
};

// Bytes that belong to no well-formed sequence get codes above Unicode: they equal only themselves.
constexpr char32_t kStrayByte = 0x110000;

unsigned char ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

// The character that starts at `at` with a byte outside ASCII.
Character DecodeLongAt(std::string_view text, std::size_t at) {
  const unsigned char lead = ByteAt(text, at);
  const Character stray = {kStrayByte + lead, 1};
  const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
  if (lead < 0xC2 || lead > 0xF4 || text.size() - at < length) return stray;
  char32_t code = lead & (0x7Fu >> length);
  for (std::size_t i = 1; i < length; ++i) {
    const unsigned char next = ByteAt(text, at + i);
    if ((next & 0xC0) != 0x80) return stray;
    code = (code << 6) | (next & 0x3Fu);
  }
  constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
  const bool surrogate = code >= 0xD800 && code <= 0xDFFF;
  if (code < kSmallest[length] || code > 0x10FFFF || surrogate) return stray;
  return {code, length};
}

// The character that starts at `at`, which lies inside text.
inline Character DecodeAt(std::string_view text, std::size_t at) {
  const unsigned char lead = ByteAt(text, at);
  return lead < 0x80 ? Character{lead, 1} : DecodeLongAt(text, at);
}

// Names are ASCII for the most part, and this runs once a character and pattern.
inline char32_t Lower(char32_t letter) {
  if (letter >= 0x80) return ToLowerLetter(letter);
  return letter - U'A' < 26 ? letter + 32 : letter;
}

enum class Fault { kNone, kUnclosedSet, kEmptySet, kReversedRange, kTrailingBackslash };

// Reads the members of a set one after the other. Validation and matching both read through here, so that
// they agree on every pattern.
class SetReader {
 public:
  // `at` lies behind the "["; lastBracket is the place of the pattern's last "]", or npos.
  SetReader(std::string_view pattern, std::size_t at, std::size_t lastBracket)
      : pattern_(pattern), at_(at), lastBracket_(lastBracket) {
    if (at_ < pattern_.size() && pattern_[at_] == '!') {
      negated_ = true;
      ++at_;
    }
  }

  // The next member, as a range. False behind the last one or at a fault.
  bool Next(char32_t* first, char32_t* last) {
    if (at_ < pattern_.size() && pattern_[at_] == ']') {
      if (!hasMembers_) return Fail(Fault::kEmptySet);
      ++at_;
      return false;
    }
    if (!ReadCharacter(first)) return false;
    *last = *first;
    hasMembers_ = true;
    const bool range = at_ + 1 < pattern_.size() && pattern_[at_] == '-' && pattern_[at_ + 1] != ']';
    if (!range) return true;
    ++at_;
    if (!ReadCharacter(last)) return false;
    return *last >= *first || Fail(Fault::kReversedRange);
  }

  bool negated() const { return negated_; }
  Fault fault() const { return fault_; }
  std::size_t at() const { return at_; }  // behind the set once Next gave false without a fault

 private:
  bool Fail(Fault fault) {
    fault_ = fault;
    return false;
  }

  bool ReadCharacter(char32_t* code) {
    if (at_ < pattern_.size() && pattern_[at_] == '\\') {
      const bool closesSet = at_ + 1 == lastBracket_;
      if (!closesSet) ++at_;
    }
    if (at_ >= pattern_.size()) return Fail(Fault::kUnclosedSet);
    const Character character = DecodeAt(pattern_, at_);
    *code = character.code;
    at_ += character.length;
    return true;
  }

  std::string_view pattern_;
  std::size_t at_;
  std::size_t lastBracket_;
  bool negated_ = false;
  bool hasMembers_ = false;
  Fault fault_ = Fault::kNone;
};

Fault FindFault(std::string_view pattern, std::size_t lastBracket) {
  for (std::size_t at = 0; at < pattern.size();) {
    if (pattern[at] == '[') {
      SetReader set(pattern, at + 1, lastBracket);
      char32_t first = 0;
      char32_t last = 0;
      while (set.Next(&first, &last)) {
      }
      if (set.fault() != Fault::kNone) return set.fault();
      at = set.at();
    } else if (pattern[at] == '\\') {
      if (at + 1 == pattern.size()) return Fault::kTrailingBackslash;
      at += 2;  // the rest of a longer character reads as plain characters, which have no faults
    } else {
      ++at;
    }
  }
  return Fault::kNone;
}

const char* Reason(Fault fault) {
  switch (fault) {
    case Fault::kUnclosedSet:
      return "a \"[\" has no closing \"]\"";
    case Fault::kEmptySet:
      return "a set has nothing between \"[\" and \"]\"";
    case Fault::kReversedRange:
      return "a range ends before it begins, as in \"[z-a]\"";
    case Fault::kTrailingBackslash:
      return "a \"\\\" at the end has no character behind it";
    case Fault::kNone:
      break;
  }
  return "";
}

// Matches one well-formed pattern against one name.
class Matcher {
 public:
  Matcher(std::string_view pattern, std::string_view name, bool ignoreCase, std::size_t lastBracket)
      : pattern_(pattern), name_(name), ignoreCase_(ignoreCase), lastBracket_(lastBracket) {}

  // On a mismatch only the last "*" takes one character more: what an earlier one could still take, the last
  // one can take too. So no position of the pattern meets a position of the name more than once.
  bool Run() {
    constexpr std::size_t kNoStar = std::string_view::npos;
    std::size_t at = 0;
    std::size_t nameAt = 0;
    std::size_t behindStar = kNoStar;
    std::size_t starTakesTo = 0;
    for (;;) {
      ++steps_;
      if (at < pattern_.size() && pattern_[at] == '*') {
        behindStar = ++at;
        starTakesTo = nameAt;
        if (at == pattern_.size()) return true;
        nameAt = starTakesTo = NextCandidate(behindStar, starTakesTo);
        continue;
      }
      if (nameAt == name_.size()) return at == pattern_.size();
      const Character character = DecodeAt(name_, nameAt);
      if (at < pattern_.size() && TakesOne(&at, character.code)) {
        nameAt += character.length;
        continue;
      }
      if (behindStar == kNoStar) return false;
      starTakesTo += DecodeAt(name_, starTakesTo).length;
      starTakesTo = NextCandidate(behindStar, starTakesTo);
      nameAt = starTakesTo;
      at = behindStar;
    }
  }

  std::size_t steps() const { return steps_; }

 private:
  // Where the name may go on behind a "*" which is followed by the element at `at`: for a plain ASCII
  // character its next place, or the name's end. Such a byte is never a part of a longer character, so bytes
  // can be compared.
  std::size_t NextCandidate(std::size_t at, std::size_t nameAt) const {
    const unsigned char wanted = ByteAt(pattern_, at);
    if (wanted >= 0x80 || wanted == '?' || wanted == '[' || wanted == '\\' || wanted == '*') return nameAt;
    const char32_t lower = Lower(wanted);
    const bool letter = ignoreCase_ && lower - U'a' < 26;
    const auto either = static_cast<char>(letter ? lower : wanted);
    const auto other = static_cast<char>(letter ? lower - 32 : wanted);
    const std::size_t from = nameAt;
    while (nameAt < name_.size() && name_[nameAt] != either && name_[nameAt] != other) ++nameAt;
    steps_ += nameAt - from;
    return nameAt;
  }

  // True when the element at *at, which is no "*", takes the character; *at then lies behind the element.
  bool TakesOne(std::size_t* at, char32_t code) const {
    switch (pattern_[*at]) {
      case '?':
        ++*at;
        return true;
      case '[':
        return SetTakes(at, code);
      case '\\':
        return LiteralTakes(*at + 1, at, code);
      default:
        return LiteralTakes(*at, at, code);
    }
  }

  bool LiteralTakes(std::size_t literalAt, std::size_t* at, char32_t code) const {
    const Character literal = DecodeAt(pattern_, literalAt);
    const bool equal = literal.code == code || (ignoreCase_ && Lower(literal.code) == Lower(code));
    if (equal) *at = literalAt + literal.length;
    return equal;
  }

  bool SetTakes(std::size_t* at, char32_t code) const {
    const char32_t lower = ignoreCase_ ? Lower(code) : code;
    const char32_t upper = ignoreCase_ ? ToUpperLetter(code) : code;
    SetReader set(pattern_, *at + 1, lastBracket_);
    bool contains = false;
    char32_t first = 0;
    char32_t last = 0;
    while (set.Next(&first, &last)) {
      ++steps_;
      const auto lies = [&](char32_t value) { return value >= first && value <= last; };
      contains = contains || lies(code) || lies(lower) || lies(upper);
    }
    if (contains == set.negated()) return false;
    *at = set.at();
    return true;
  }

  std::string_view pattern_;
  std::string_view name_;
  bool ignoreCase_;
  std::size_t lastBracket_;
  mutable std::size_t steps_ = 0;
};

}  // namespace

bool ValidatePattern(std::string_view pattern, std::string* reason) {
  const Fault fault = FindFault(pattern, pattern.rfind(']'));
  if (fault == Fault::kNone) return true;
  if (reason != nullptr) *reason = Reason(fault);
  return false;
}

bool MatchPattern(std::string_view pattern, std::string_view name, bool ignoreCase) {
  const std::size_t lastBracket = pattern.rfind(']');
  if (FindFault(pattern, lastBracket) != Fault::kNone) return false;
  return Matcher(pattern, name, ignoreCase, lastBracket).Run();
}

std::size_t CountMatchSteps(std::string_view pattern, std::string_view name, bool ignoreCase) {
  const std::size_t lastBracket = pattern.rfind(']');
  if (FindFault(pattern, lastBracket) != Fault::kNone) return 0;
  Matcher matcher(pattern, name, ignoreCase, lastBracket);
  matcher.Run();
  return matcher.steps();
}

}  // namespace workbench
