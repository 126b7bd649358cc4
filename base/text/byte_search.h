// Searching bytes that may be either of two, as the two cases of a letter are. On x86-64 sixteen places are
// looked at in one step.
#pragma once

#include <cstddef>
#include <string_view>

namespace base {

// One byte, or two that follow each other; each may be either of two values.
struct BytePattern {
  unsigned char first[2] = {};
  unsigned char second[2] = {};
  bool hasSecond = false;
};

// The first place at or after `from` where the pattern lies wholly inside the text; npos when there is none.
std::size_t FindBytes(std::string_view text, std::size_t from, const BytePattern& pattern);

// The same, place by place: what machines without vector instructions use.
std::size_t FindBytesPlainly(std::string_view text, std::size_t from, const BytePattern& pattern);

}  // namespace base
