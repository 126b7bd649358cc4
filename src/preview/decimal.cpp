#include "src/preview/decimal.h"

#include <bit>
#include <cstdint>
#include <cstring>

namespace file_explorer::preview {
namespace {

// Powers of ten that a double holds exactly.
constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                              1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kLargestPower = 22;
constexpr std::uint64_t kPowersOfWhole[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53;
constexpr int kMostDigits = 18;  // so that no mantissa overflows

std::uint64_t Load8(const char* from) {
  std::uint64_t bytes = 0;
  std::memcpy(&bytes, from, sizeof bytes);
  if constexpr (std::endian::native == std::endian::big) {
    bytes = __builtin_bswap64(bytes);
  }
  return bytes;
}

// How many of the first eight bytes are digits before one is not. A byte that is no digit may carry into
// those after it, which don't count.
int LeadingDigits(std::uint64_t bytes) {
  const std::uint64_t values = bytes ^ 0x3030303030303030u;
  const std::uint64_t others = ((values + 0x7676767676767676u) | values) & 0x8080808080808080u;
  return others == 0 ? 8 : std::countr_zero(others) / 8;
}

// The first `count` (1 to 8) bytes, all digits, as a number: neighbours are joined, then pairs, then fours.
std::uint64_t ValueOf(std::uint64_t bytes, int count) {
  std::uint64_t value = (bytes << (8 * (8 - count))) & 0x0F0F0F0F0F0F0F0Fu;
  value = (value * 2561) >> 8;
  value = ((value & 0x00FF00FF00FF00FFu) * 6553601) >> 16;
  return ((value & 0x0000FFFF0000FFFFu) * 42949672960001u) >> 32;
}

class Digits {
 public:
  // Takes the digits at `at`; null when eight bytes can't be read there.
  const char* Take(const char* at, const char* end) {
    for (;;) {
      if (end - at < 8) return nullptr;
      const std::uint64_t bytes = Load8(at);
      const int count = LeadingDigits(bytes);
      if (count == 0) return at;
      taken_ += count;
      if (taken_ > kMostDigits) return nullptr;
      mantissa_ = mantissa_ * kPowersOfWhole[count] + ValueOf(bytes, count);
      at += count;
      if (count < 8) return at;
    }
  }
  int taken() const { return taken_; }
  std::uint64_t mantissa() const { return mantissa_; }

 private:
  std::uint64_t mantissa_ = 0;
  int taken_ = 0;
};

// An exponent of one to three digits after its "e"; null for anything else.
const char* ReadExponent(const char* at, const char* end, int* exponent) {
  const bool negative = at != end && *at == '-';
  if (negative || (at != end && *at == '+')) ++at;
  const char* const start = at;
  int value = 0;
  for (; at != end && *at >= '0' && *at <= '9' && at - start <= 3; ++at) value = value * 10 + (*at - '0');
  *exponent = negative ? -value : value;
  return at == start || at - start > 3 ? nullptr : at;
}

}  // namespace

const char* ReadShortDecimal(const char* start, const char* end, double* value) {
  const char* at = start;
  if (at == end) return nullptr;
  const bool negative = *at == '-';
  if (negative || *at == '+') ++at;
  Digits digits;
  at = digits.Take(at, end);
  int exponent = 0;
  if (at != nullptr && *at == '.') {
    const int before = digits.taken();
    at = digits.Take(at + 1, end);
    exponent = before - digits.taken();
  }
  if (at == nullptr || digits.taken() == 0 || digits.mantissa() > kLargestExact) return nullptr;
  if (*at == 'e' || *at == 'E') {
    int stated = 0;
    at = ReadExponent(at + 1, end, &stated);
    if (at == nullptr) return nullptr;
    exponent += stated;
  }
  if (exponent < -kLargestPower || exponent > kLargestPower) return nullptr;
  // Both are exact, so the one rounding of this step is that of the exact value.
  const double mantissa = static_cast<double>(digits.mantissa());
  const double result = exponent < 0 ? mantissa / kPowers[-exponent] : mantissa * kPowers[exponent];
  *value = negative ? -result : result;
  return at;
}

}  // namespace file_explorer::preview
