#include "workbench/app/text/letter_case.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(LetterCase, PairsLettersOfSeveralScripts) {
  const char32_t pairs[][2] = {{U'A', U'a'},     {U'Z', U'z'},     {0x00C4, 0x00E4}, {0x00D8, 0x00F8},
                               {0x0100, 0x0101}, {0x0141, 0x0142}, {0x0178, 0x00FF}, {0x017D, 0x017E},
                               {0x0386, 0x03AC}, {0x038E, 0x03CD}, {0x03A9, 0x03C9}, {0x0401, 0x0451},
                               {0x0416, 0x0436}, {0x0490, 0x0491}, {0x04D8, 0x04D9}};
  for (const auto& pair : pairs) {
    EXPECT_EQ(ToLowerLetter(pair[0]), pair[1]) << std::hex << static_cast<unsigned>(pair[0]);
    EXPECT_EQ(ToUpperLetter(pair[1]), pair[0]) << std::hex << static_cast<unsigned>(pair[1]);
    EXPECT_EQ(ToLowerLetter(pair[1]), pair[1]);
    EXPECT_EQ(ToUpperLetter(pair[0]), pair[0]);
  }
}

TEST(LetterCase, LeavesEverythingElseAlone) {
  for (const char32_t other :
       {U'0', U'@', U'[', U'`', U'{', char32_t{0xD7}, char32_t{0xF7}, char32_t{0x130}, char32_t{0x131},
        char32_t{0x138}, char32_t{0x3A2}, char32_t{0x65E5}, char32_t{0x1F600}, char32_t{0x1100E4}}) {
    EXPECT_EQ(ToLowerLetter(other), other) << std::hex << static_cast<unsigned>(other);
    EXPECT_EQ(ToUpperLetter(other), other) << std::hex << static_cast<unsigned>(other);
  }
}

TEST(LetterCase, GoesThereAndBackForEveryLetter) {
  for (char32_t letter = 0; letter < 0x600; ++letter) {
    const char32_t lower = ToLowerLetter(letter);
    if (lower == letter) continue;
    EXPECT_EQ(ToUpperLetter(lower), letter) << std::hex << static_cast<unsigned>(letter);
  }
}

}  // namespace
}  // namespace workbench
