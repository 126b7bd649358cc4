#include "workbench/app/text/wildcard.h"

#include <array>
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

// What a byte is compared as: letters of ASCII in one case when case does not count. Other bytes stay
// different from all of ASCII.
using ByteFolding = std::array<unsigned char, 256>;

constexpr ByteFolding MakeFolding(bool ignoreCase) {
  ByteFolding folding = {};
  for (std::size_t byte = 0; byte < folding.size(); ++byte) {
    const bool capital = byte >= 'A' && byte <= 'Z';
    folding[byte] = static_cast<unsigned char>(capital && ignoreCase ? byte + 32 : byte);
  }
  return folding;
}

constexpr ByteFolding kEachCase = MakeFolding(false);
constexpr ByteFolding kEitherCase = MakeFolding(true);

// True for bytes that stand for themselves in a pattern and are a character each, in whatever text.
constexpr bool IsPlain(unsigned char byte) {
  return byte < 0x80 && byte != '*' && byte != '?' && byte != '[' && byte != '\\';
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

// A pattern, looked over once.
struct Pattern {
  std::string_view text;
  Fault fault = Fault::kNone;
  std::size_t lastBracket = std::string_view::npos;  // place of the last "]"; known where there is a set
  std::size_t plainEnd = 0;                          // from here on all bytes are plain
};

Pattern LookOver(std::string_view text) {
  Pattern pattern = {text};
  for (std::size_t at = 0; at < text.size();) {
    if (IsPlain(ByteAt(text, at))) {
      ++at;
      continue;
    }
    if (text[at] == '[') {
      if (pattern.lastBracket == std::string_view::npos) pattern.lastBracket = text.rfind(']');
      SetReader set(text, at + 1, pattern.lastBracket);
      char32_t first = 0;
      char32_t last = 0;
      while (set.Next(&first, &last)) {
      }
      pattern.fault = set.fault();
      at = set.at();
    } else if (text[at] == '\\') {
      if (at + 1 == text.size()) pattern.fault = Fault::kTrailingBackslash;
      at += 2;  // what follows of a longer character is not plain either and has no faults
    } else {
      ++at;
    }
    if (pattern.fault != Fault::kNone) return pattern;
    pattern.plainEnd = at;
  }
  return pattern;
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
  Matcher(const Pattern& pattern, std::string_view name, bool ignoreCase)
      : pattern_(pattern.text),
        name_(name),
        lastBracket_(pattern.lastBracket),
        plainEnd_(pattern.plainEnd),
        ignoreCase_(ignoreCase),
        folding_(ignoreCase ? kEitherCase : kEachCase) {}

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
        // Behind the last "*" the name only has to end like the pattern.
        if (at >= plainEnd_) return EndsPlainly(at, nameAt);
        nameAt = starTakesTo = NextCandidate(behindStar, nameAt);
        continue;
      }
      if (nameAt == name_.size()) return at == pattern_.size();
      if (at < pattern_.size() && TakesOne(&at, &nameAt)) continue;
      if (behindStar == kNoStar) return false;
      starTakesTo = NextCandidate(behindStar, starTakesTo + DecodeAt(name_, starTakesTo).length);
      nameAt = starTakesTo;
      at = behindStar;
    }
  }

  std::size_t steps() const { return steps_; }

 private:
  bool SameByte(unsigned char first, unsigned char second) const {
    return folding_[first] == folding_[second];
  }

  // True when the name, from nameAt, ends with the pattern from `at`, which is plain to its end. A plain byte
  // is never a part of a longer character, so bytes can be compared.
  bool EndsPlainly(std::size_t at, std::size_t nameAt) const {
    const std::size_t length = pattern_.size() - at;
    if (name_.size() - nameAt < length) return false;
    const std::size_t from = name_.size() - length;
    for (std::size_t i = 0; i < length; ++i) {
      ++steps_;
      if (!SameByte(ByteAt(pattern_, at + i), ByteAt(name_, from + i))) return false;
    }
    return true;
  }

  // Where the name may go on behind a "*" which is followed by the element at `at`: for a plain byte its next
  // place, or the name's end.
  std::size_t NextCandidate(std::size_t at, std::size_t nameAt) const {
    const unsigned char wanted = ByteAt(pattern_, at);
    if (!IsPlain(wanted)) return nameAt;
    const std::size_t from = nameAt;
    while (nameAt < name_.size() && !SameByte(ByteAt(name_, nameAt), wanted)) ++nameAt;
    steps_ += nameAt - from;
    return nameAt;
  }

  // True when the element at *at, which is no "*", takes the name's character at *nameAt; both then lie
  // behind it.
  bool TakesOne(std::size_t* at, std::size_t* nameAt) const {
    const unsigned char element = ByteAt(pattern_, *at);
    if (IsPlain(element)) {
      if (!SameByte(element, ByteAt(name_, *nameAt))) return false;
      ++*at;
      ++*nameAt;
      return true;
    }
    const Character character = DecodeAt(name_, *nameAt);
    if (!ElementTakes(element, at, character.code)) return false;
    *nameAt += character.length;
    return true;
  }

  bool ElementTakes(unsigned char element, std::size_t* at, char32_t code) const {
    switch (element) {
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
    const bool equal =
        literal.code == code || (ignoreCase_ && ToLowerLetter(literal.code) == ToLowerLetter(code));
    if (equal) *at = literalAt + literal.length;
    return equal;
  }

  bool SetTakes(std::size_t* at, char32_t code) const {
    const char32_t lower = ignoreCase_ ? ToLowerLetter(code) : code;
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

  const std::string_view pattern_;
  const std::string_view name_;
  const std::size_t lastBracket_;
  const std::size_t plainEnd_;
  const bool ignoreCase_;
  const ByteFolding& folding_;
  mutable std::size_t steps_ = 0;
};

// Plain bytes at the beginning tell most names apart, and have no faults: the rest of the pattern is looked
// at only where they agree.
bool Match(std::string_view pattern, std::string_view name, bool ignoreCase, std::size_t* steps) {
  const ByteFolding& folding = ignoreCase ? kEitherCase : kEachCase;
  while (!pattern.empty() && IsPlain(ByteAt(pattern, 0))) {
    ++*steps;
    if (name.empty() || folding[ByteAt(pattern, 0)] != folding[ByteAt(name, 0)]) return false;
    pattern.remove_prefix(1);
    name.remove_prefix(1);
  }
  const Pattern seen = LookOver(pattern);
  if (seen.fault != Fault::kNone) return false;
  Matcher matcher(seen, name, ignoreCase);
  const bool matches = matcher.Run();
  *steps += matcher.steps();
  return matches;
}

}  // namespace

bool ValidatePattern(std::string_view pattern, std::string* reason) {
  const Fault fault = LookOver(pattern).fault;
  if (fault == Fault::kNone) return true;
  if (reason != nullptr) *reason = Reason(fault);
  return false;
}

bool MatchPattern(std::string_view pattern, std::string_view name, bool ignoreCase) {
  std::size_t steps = 0;
  return Match(pattern, name, ignoreCase, &steps);
}

std::size_t CountMatchSteps(std::string_view pattern, std::string_view name, bool ignoreCase) {
  std::size_t steps = 0;
  Match(pattern, name, ignoreCase, &steps);
  return steps;
}

}  // namespace workbench
