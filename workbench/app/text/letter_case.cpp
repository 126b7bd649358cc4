#include "workbench/app/text/letter_case.h"

#include <array>
#include <cstddef>

namespace workbench {
namespace {

// Capitals from first to last, every step-th one; each one's small letter follows at this distance.
struct CapitalRange {
  char32_t first;
  char32_t last;
  char32_t step;
  char32_t distance;
};

constexpr CapitalRange kCapitals[] = {
    {0x0041, 0x005A, 1, 32},                           // ASCII
    {0x00C0, 0x00D6, 1, 32}, {0x00D8, 0x00DE, 1, 32},  // Latin-1
    {0x0100, 0x012E, 2, 1},  {0x0132, 0x0136, 2, 1},   // Latin extended
    {0x0139, 0x0147, 2, 1},  {0x014A, 0x0176, 2, 1},  {0x0179, 0x017D, 2, 1},
    {0x0386, 0x0386, 1, 38}, {0x0388, 0x038A, 1, 37}, {0x038C, 0x038C, 1, 64},
    {0x038E, 0x038F, 1, 63},  // Greek
    {0x0391, 0x03A1, 1, 32}, {0x03A3, 0x03AB, 1, 32}, {0x0400, 0x040F, 1, 80},
    {0x0410, 0x042F, 1, 32},  // Cyrillic
    {0x0460, 0x0480, 2, 1},  {0x048A, 0x04BE, 2, 1},  {0x04D0, 0x052E, 2, 1},
};

constexpr char32_t kCapitalYDiaeresis = 0x0178;  // its small letter lies before it
constexpr char32_t kSmallYDiaeresis = 0x00FF;

// All letters with a partner lie below.
constexpr std::size_t kLetters = 0x530;
using LetterTable = std::array<char16_t, kLetters>;

struct LetterTables {
  LetterTable lower = {};
  LetterTable upper = {};

  constexpr LetterTables() {
    for (std::size_t letter = 0; letter < kLetters; ++letter) {
      lower[letter] = upper[letter] = static_cast<char16_t>(letter);
    }
    for (const CapitalRange& range : kCapitals) {
      for (char32_t capital = range.first; capital <= range.last; capital += range.step) {
        Pair(capital, capital + range.distance);
      }
    }
    Pair(kCapitalYDiaeresis, kSmallYDiaeresis);
  }

 private:
  constexpr void Pair(char32_t capital, char32_t small) {
    lower[capital] = static_cast<char16_t>(small);
    upper[small] = static_cast<char16_t>(capital);
  }
};

constexpr LetterTables kTables;

}  // namespace

char32_t ToLowerLetter(char32_t letter) {
  return letter < kLetters ? char32_t{kTables.lower[letter]} : letter;
}

char32_t ToUpperLetter(char32_t letter) {
  return letter < kLetters ? char32_t{kTables.upper[letter]} : letter;
}

}  // namespace workbench
