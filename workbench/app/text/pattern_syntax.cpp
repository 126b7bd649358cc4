#include "workbench/app/text/pattern_syntax.h"

#include <algorithm>

namespace workbench {

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

// Reading forward always meets the first byte of a well-formed sequence, since no other sequence can contain
// it. So a sequence that ends here is a character wherever the reading began.
std::size_t LengthBefore(std::string_view text, std::size_t end) {
  if (ByteAt(text, end - 1) < 0x80) return 1;
  const std::size_t longest = std::min<std::size_t>(4, end);
  for (std::size_t length = 2; length <= longest; ++length) {
    const unsigned char lead = ByteAt(text, end - length);
    if ((lead & 0xC0) == 0x80) continue;
    return lead >= 0xC0 && DecodeLongAt(text, end - length).length == length ? length : 1;
  }
  return 1;
}

SetReader::SetReader(std::string_view pattern, std::size_t at) : pattern_(pattern), at_(at) {
  if (at_ < pattern_.size() && pattern_[at_] == '!') {
    negated_ = true;
    ++at_;
  }
}

bool SetReader::Next(char32_t* first, char32_t* last) {
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

bool SetReader::Fail(Fault fault) {
  fault_ = fault;
  return false;
}

bool SetReader::ReadCharacter(char32_t* code) {
  if (at_ < pattern_.size() && pattern_[at_] == '\\') {
    // The pattern's last "]" closes the set even after a backslash; nothing else could.
    const bool closesSet = at_ + 1 < pattern_.size() && pattern_[at_ + 1] == ']' &&
                           pattern_.find(']', at_ + 2) == std::string_view::npos;
    if (!closesSet) ++at_;
  }
  if (at_ >= pattern_.size()) return Fail(Fault::kUnclosedSet);
  const Character character = DecodeAt(pattern_, at_);
  *code = character.code;
  at_ += character.length;
  return true;
}

Fault SkipElement(std::string_view pattern, std::size_t* at) {
  const unsigned char element = ByteAt(pattern, *at);
  if (element == '[') {
    SetReader set(pattern, *at + 1);
    char32_t first = 0;
    char32_t last = 0;
    while (set.Next(&first, &last)) {
    }
    *at = set.at();
    return set.fault();
  }
  if (element == '\\' && ++*at == pattern.size()) return Fault::kTrailingBackslash;
  *at += DecodeAt(pattern, *at).length;
  return Fault::kNone;
}

Fault FaultOf(std::string_view pattern) {
  for (std::size_t at = 0; at < pattern.size();) {
    const Fault fault = SkipElement(pattern, &at);
    if (fault != Fault::kNone) return fault;
  }
  return Fault::kNone;
}

}  // namespace workbench
