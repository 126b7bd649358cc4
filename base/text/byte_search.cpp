#include "base/text/byte_search.h"

#if defined(__SSE2__)
#include <emmintrin.h>

#include <bit>
#endif

namespace base {
namespace {

unsigned char ByteAt(std::string_view text, std::size_t at) {
  return static_cast<unsigned char>(text[at]);
}

bool Lies(std::string_view text, std::size_t at, const BytePattern& pattern) {
  const unsigned char first = ByteAt(text, at);
  if (first != pattern.first[0] && first != pattern.first[1]) return false;
  if (!pattern.hasSecond) return true;
  const unsigned char second = ByteAt(text, at + 1);
  return second == pattern.second[0] || second == pattern.second[1];
}

#if defined(__SSE2__)

// A pattern spread out to be compared with a block of places. A pattern of one byte has it as its second one
// too, and both are looked for at the same place.
class BlockPattern {
 public:
  explicit BlockPattern(const BytePattern& pattern)
      : first_{Spread(pattern.first[0]), Spread(pattern.first[1])},
        second_{Spread(pattern.hasSecond ? pattern.second[0] : pattern.first[0]),
                Spread(pattern.hasSecond ? pattern.second[1] : pattern.first[1])},
        gap_(pattern.hasSecond ? 1 : 0) {}

  // A bit for each of the 16 places from here, the lowest one for the first.
  unsigned At16(const char* place) const { return Compare(Load16(place), Load16(place + gap_)); }
  unsigned At8(const char* place) const { return Compare(Load8(place), Load8(place + gap_)) & 0xFF; }

 private:
  static __m128i Spread(unsigned char byte) { return _mm_set1_epi8(static_cast<char>(byte)); }
  static __m128i Load16(const char* place) {
    return _mm_loadu_si128(reinterpret_cast<const __m128i*>(place));
  }
  static __m128i Load8(const char* place) { return _mm_loadl_epi64(reinterpret_cast<const __m128i*>(place)); }
  static __m128i Either(__m128i bytes, const __m128i (&wanted)[2]) {
    return _mm_or_si128(_mm_cmpeq_epi8(bytes, wanted[0]), _mm_cmpeq_epi8(bytes, wanted[1]));
  }
  unsigned Compare(__m128i firsts, __m128i seconds) const {
    return static_cast<unsigned>(
        _mm_movemask_epi8(_mm_and_si128(Either(firsts, first_), Either(seconds, second_))));
  }

  __m128i first_[2];
  __m128i second_[2];
  std::size_t gap_;
};

// Blocks one after the other; the last one ends with the text and may look at some places again.
template <std::size_t kBlock>
std::size_t FindInBlocks(std::string_view text, std::size_t from, std::size_t places,
                         const BytePattern& pattern) {
  const BlockPattern wanted(pattern);
  for (std::size_t done = 0;;) {
    const std::size_t start = from + (done + kBlock <= places ? done : places - kBlock);
    const unsigned found = kBlock == 16 ? wanted.At16(text.data() + start) : wanted.At8(text.data() + start);
    if (found != 0) return start + static_cast<std::size_t>(std::countr_zero(found));
    done += kBlock;
    if (done >= places) return std::string_view::npos;
  }
}

#endif

}  // namespace

std::size_t FindBytesPlainly(std::string_view text, std::size_t from, const BytePattern& pattern) {
  const std::size_t length = pattern.hasSecond ? 2 : 1;
  for (std::size_t at = from; at + length <= text.size(); ++at) {
    if (Lies(text, at, pattern)) return at;
  }
  return std::string_view::npos;
}

std::size_t FindBytes(std::string_view text, std::size_t from, const BytePattern& pattern) {
#if defined(__SSE2__)
  const std::size_t end = text.size() - (pattern.hasSecond && !text.empty() ? 1 : 0);
  const std::size_t places = from < end ? end - from : 0;
  if (places >= 16) return FindInBlocks<16>(text, from, places, pattern);
  if (places >= 8) return FindInBlocks<8>(text, from, places, pattern);
#endif
  return FindBytesPlainly(text, from, pattern);
}

}  // namespace base
