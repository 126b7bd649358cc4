#include "workbench/app/text/wildcard.h"

#include <array>
#include <cstddef>

#include "base/text/byte_search.h"
#include "workbench/app/text/letter_case.h"
#include "workbench/app/text/pattern_syntax.h"

namespace workbench {
namespace {

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

constexpr std::array<bool, 256> MakePlain() {
  std::array<bool, 256> plain = {};
  for (std::size_t byte = 0; byte < plain.size(); ++byte)
    plain[byte] = IsPlain(static_cast<unsigned char>(byte));
  return plain;
}
constexpr std::array<bool, 256> kPlain = MakePlain();

// Counts the steps of a match, or does nothing.
struct StepCounter {
  std::size_t count = 0;
  void Add(std::size_t steps) { count += steps; }
};
struct NoCounter {
  void Add(std::size_t) {}
};

// Takes plain bytes off the end of both texts as long as they agree; false when two differ. A "]" may close a
// set, so it ends this; a byte after a "\" is left to it. What is left is well formed when the whole was.
template <typename Steps>
bool TrimEnds(std::string_view* pattern, std::string_view* name, const ByteFolding& folding, Steps& steps) {
  std::size_t left = pattern->size();
  std::size_t nameLeft = name->size();
  for (; left != 0; --left, --nameLeft) {
    const unsigned char byte = ByteAt(*pattern, left - 1);
    if (!kPlain[byte] || byte == ']') break;
    steps.Add(1);
    if (nameLeft == 0 || folding[byte] != folding[ByteAt(*name, nameLeft - 1)]) return false;
  }
  if (left != 0 && left != pattern->size() && (*pattern)[left - 1] == '\\') {
    ++left;
    ++nameLeft;
  }
  *pattern = pattern->substr(0, left);
  *name = name->substr(0, nameLeft);
  return true;
}

// Takes plain bytes off the beginning of both texts as long as they agree; false when two differ.
template <typename Steps>
bool TrimBeginnings(std::string_view* pattern, std::string_view* name, const ByteFolding& folding,
                    Steps& steps) {
  std::size_t at = 0;
  for (; at < pattern->size() && kPlain[ByteAt(*pattern, at)]; ++at) {
    steps.Add(1);
    if (at == name->size() || folding[ByteAt(*pattern, at)] != folding[ByteAt(*name, at)]) return false;
  }
  pattern->remove_prefix(at);
  name->remove_prefix(at);
  return true;
}

// Matches one pattern against one name. An ill-formed pattern matches nothing: a match reads every element of
// the pattern, and each reading says when it meets a fault.
template <typename Steps>
class Matcher {
 public:
  Matcher(std::string_view pattern, std::string_view name, bool ignoreCase, Steps& steps)
      : pattern_(pattern),
        name_(name),
        ignoreCase_(ignoreCase),
        folding_(ignoreCase ? kEitherCase : kEachCase),
        steps_(steps) {}

  // The elements up to the first "*" stand at the name's beginning, those after the last one at its end. What
  // lies between two stars is taken where it is found first: whatever a later place would leave for the rest,
  // the first one leaves too.
  bool Run() {
    std::size_t at = 0;
    std::size_t nameAt = 0;
    while (at < pattern_.size() && pattern_[at] != '*') {
      if (nameAt == name_.size() || !TakesOne(&at, &nameAt)) return false;
    }
    if (at == pattern_.size()) return nameAt == name_.size();
    for (;;) {
      while (at < pattern_.size() && pattern_[at] == '*') ++at;
      if (at == pattern_.size()) return true;
      base::BytePattern start;
      const bool isKnown = StartOf(at, &start);
      std::size_t place = nameAt;
      // Most names don't have even the beginning; then the rest of the pattern need not be read.
      if (isKnown && !FindStart(start, &place)) return false;
      Segment segment = {at, at, 0};
      if (!Measure(&segment)) return false;
      if (segment.end == pattern_.size()) return IsAtEnd(segment, nameAt);
      if (!Find(segment, isKnown ? &start : nullptr, &place)) return false;
      nameAt = place;
      at = segment.end;
    }
  }

 private:
  // Elements without a star among them.
  struct Segment {
    std::size_t begin;
    std::size_t end;
    std::size_t characters;
  };

  // Goes to the next star or the pattern's end. False when an element is ill-formed.
  bool Measure(Segment* segment) {
    for (; segment->end < pattern_.size() && pattern_[segment->end] != '*'; ++segment->characters) {
      const std::size_t start = segment->end;
      if (kPlain[ByteAt(pattern_, segment->end)]) {
        ++segment->end;
      } else if (SkipElement(pattern_, &segment->end) != Fault::kNone) {
        return false;
      }
      steps_.Add(segment->end - start);
    }
    return true;
  }

  // Whether the segment takes the name's last characters, of which none lies before nameAt.
  bool IsAtEnd(const Segment& segment, std::size_t nameAt) {
    std::size_t from = name_.size();
    for (std::size_t i = 0; i < segment.characters; ++i) {
      if (from == nameAt) return false;
      from -= LengthBefore(name_, from);
    }
    steps_.Add(segment.characters);
    return Takes(segment, &from);
  }

  // Moves *place, from which on the segment may stand, to after the first place where it does. start: what it
  // begins with, found at *place; null when that is not known.
  bool Find(const Segment& segment, const base::BytePattern* start, std::size_t* place) {
    for (std::size_t from = *place; from < name_.size();) {
      *place = from;
      if (Takes(segment, place)) return true;
      from += DecodeAt(name_, from).length;
      if (start != nullptr && !FindStart(*start, &from)) return false;
    }
    return false;
  }

  bool FindStart(const base::BytePattern& start, std::size_t* place) {
    const std::size_t found = base::FindBytes(name_, *place, start);
    const bool exists = found != std::string_view::npos;
    steps_.Add((exists ? found : name_.size()) - *place);
    *place = found;
    return exists;
  }

  // The bytes with which all that the segment at `at` takes begins, where it begins with a character. A byte
  // of no sequence has none: it could be found inside one.
  bool StartOf(std::size_t at, base::BytePattern* start) const {
    const unsigned char element = ByteAt(pattern_, at);
    if (element == '?' || element == '[') return false;
    if (element == '\\' && ++at == pattern_.size()) return false;
    const Character character = DecodeAt(pattern_, at);
    if (character.code >= kStrayByte) return false;
    if (character.length == 1) {
      SetEither(ByteAt(pattern_, at), start->first);
      start->hasSecond = at + 1 < pattern_.size() && kPlain[ByteAt(pattern_, at + 1)];
      if (start->hasSecond) SetEither(ByteAt(pattern_, at + 1), start->second);
    } else {
      SetLong(pattern_.substr(at), character.code, start);
    }
    return true;
  }

  void SetEither(unsigned char byte, unsigned char (&either)[2]) const {
    const unsigned char lower = folding_[byte];
    either[0] = lower;
    either[1] = ignoreCase_ && lower >= 'a' && lower <= 'z' ? static_cast<unsigned char>(lower - 32) : lower;
  }

  // The first two bytes of a longer character. Letters that have two cases outside ASCII take two bytes in
  // both.
  void SetLong(std::string_view bytes, char32_t code, base::BytePattern* start) const {
    start->hasSecond = true;
    for (std::size_t i = 0; i < 2; ++i) {
      start->first[i] = ByteAt(bytes, 0);
      start->second[i] = ByteAt(bytes, 1);
    }
    const char32_t other = ToLowerLetter(code) != code ? ToLowerLetter(code) : ToUpperLetter(code);
    if (!ignoreCase_ || other == code) return;
    start->first[1] = static_cast<unsigned char>(0xC0 | other >> 6);
    start->second[1] = static_cast<unsigned char>(0x80 | (other & 0x3F));
  }

  // True when the segment takes the characters from *nameAt on; *nameAt then lies after them.
  bool Takes(const Segment& segment, std::size_t* nameAt) {
    std::size_t at = segment.begin;
    std::size_t nameEnd = *nameAt;
    while (at < segment.end) {
      if (nameEnd == name_.size() || !TakesOne(&at, &nameEnd)) return false;
    }
    *nameAt = nameEnd;
    return true;
  }

  // True when the element at *at, which is no "*", takes the name's character at *nameAt; both then lie
  // after it.
  bool TakesOne(std::size_t* at, std::size_t* nameAt) {
    steps_.Add(1);
    const unsigned char element = ByteAt(pattern_, *at);
    if (kPlain[element]) {
      if (folding_[element] != folding_[ByteAt(name_, *nameAt)]) return false;
      ++*at;
      ++*nameAt;
      return true;
    }
    const Character character = DecodeAt(name_, *nameAt);
    if (!ElementTakes(element, at, character.code)) return false;
    *nameAt += character.length;
    return true;
  }

  bool ElementTakes(unsigned char element, std::size_t* at, char32_t code) {
    if (element == '?') {
      ++*at;
      return true;
    }
    if (element == '[') return SetTakes(at, code);
    return LiteralTakes(*at + (element == '\\' ? 1 : 0), at, code);
  }

  bool LiteralTakes(std::size_t literalAt, std::size_t* at, char32_t code) const {
    if (literalAt == pattern_.size()) return false;
    const Character literal = DecodeAt(pattern_, literalAt);
    const bool equal =
        literal.code == code || (ignoreCase_ && ToLowerLetter(literal.code) == ToLowerLetter(code));
    if (equal) *at = literalAt + literal.length;
    return equal;
  }

  bool SetTakes(std::size_t* at, char32_t code) {
    const char32_t lower = ignoreCase_ ? ToLowerLetter(code) : code;
    const char32_t upper = ignoreCase_ ? ToUpperLetter(code) : code;
    SetReader set(pattern_, *at + 1);
    bool contains = false;
    char32_t first = 0;
    char32_t last = 0;
    while (set.Next(&first, &last)) {
      steps_.Add(1);
      const auto lies = [&](char32_t value) { return value >= first && value <= last; };
      contains = contains || lies(code) || lies(lower) || lies(upper);
    }
    if (contains == set.negated() || set.fault() != Fault::kNone) return false;
    *at = set.at();
    return true;
  }

  const std::string_view pattern_;
  const std::string_view name_;
  const bool ignoreCase_;
  const ByteFolding& folding_;
  Steps& steps_;
};

// Plain bytes at the ends tell most names apart, and have no faults: the rest of the pattern is looked at
// only where they agree.
template <typename Steps>
bool Match(std::string_view pattern, std::string_view name, bool ignoreCase, Steps& steps) {
  const ByteFolding& folding = ignoreCase ? kEitherCase : kEachCase;
  if (!TrimEnds(&pattern, &name, folding, steps)) return false;
  if (!TrimBeginnings(&pattern, &name, folding, steps)) return false;
  if (pattern.empty()) return name.empty();
  if (pattern == "*") return true;
  return Matcher<Steps>(pattern, name, ignoreCase, steps).Run();
}

struct FaultReason {
  Fault fault;
  const char* reason;
};
constexpr FaultReason kReasons[] = {
    {Fault::kUnclosedSet, "a \"[\" has no closing \"]\""},
    {Fault::kEmptySet, "a set has nothing between \"[\" and \"]\""},
    {Fault::kReversedRange, "a range ends before it begins, as in \"[z-a]\""},
    {Fault::kTrailingBackslash, "a \"\\\" at the end has no character behind it"},
};

}  // namespace

bool ValidatePattern(std::string_view pattern, std::string* reason) {
  const Fault fault = FaultOf(pattern);
  for (const FaultReason& known : kReasons) {
    if (known.fault == fault && reason != nullptr) *reason = known.reason;
  }
  return fault == Fault::kNone;
}

bool MatchPattern(std::string_view pattern, std::string_view name, bool ignoreCase) {
  NoCounter steps;
  return Match(pattern, name, ignoreCase, steps);
}

std::size_t CountMatchSteps(std::string_view pattern, std::string_view name, bool ignoreCase) {
  StepCounter steps;
  Match(pattern, name, ignoreCase, steps);
  return steps.count;
}

}  // namespace workbench
