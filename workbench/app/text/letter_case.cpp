#include "workbench/app/text/letter_case.h"

namespace workbench {
namespace {

// Capitals from first to last, every step-th one; each one's small letter lies distance behind it.
struct CapitalRange {
  char32_t first;
  char32_t last;
  char32_t step;
  char32_t distance;
};

constexpr CapitalRange kCapitals[] = {
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

constexpr bool Contains(const CapitalRange& range, char32_t capital) {
  return capital >= range.first && capital <= range.last && (capital - range.first) % range.step == 0;
}

}  // namespace

char32_t ToLowerLetter(char32_t letter) {
  if (letter < 0x80) return letter >= U'A' && letter <= U'Z' ? letter + 32 : letter;
  if (letter == kCapitalYDiaeresis) return kSmallYDiaeresis;
  for (const CapitalRange& range : kCapitals) {
    if (Contains(range, letter)) return letter + range.distance;
  }
  return letter;
}

char32_t ToUpperLetter(char32_t letter) {
  if (letter < 0x80) return letter >= U'a' && letter <= U'z' ? letter - 32 : letter;
  if (letter == kSmallYDiaeresis) return kCapitalYDiaeresis;
  for (const CapitalRange& range : kCapitals) {
    if (letter >= range.distance && Contains(range, letter - range.distance)) return letter - range.distance;
  }
  return letter;
}

}  // namespace workbench
