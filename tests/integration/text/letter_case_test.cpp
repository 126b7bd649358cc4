#include "base/text/letter_case.h"

#include <windows.h>

#include <gtest/gtest.h>

#include "base/text/code_page.h"

namespace base {
namespace {

TEST(LetterCase, WideLettersOfAllAlphabetsAreLowered) {
  EXPECT_EQ(LowerCase(L"PLAN \u0100 \u0421\u0422\u0410\u041D \u03A9 \u30E2"),
            L"plan \u0101 \u0441\u0442\u0430\u043D \u03C9 \u30E2");
  EXPECT_EQ(LowerCase(L""), L"");
}

TEST(LetterCase, TheLengthInUnitsStays) {
  const std::wstring text = L"\u023Alpha \u0130 \u1E9E.OBJ";
  EXPECT_EQ(LowerCase(text).size(), text.size());
}

TEST(LetterCase, NarrowTextIsLoweredInTheCodePageOfTheProcess) {
  EXPECT_EQ(LowerCaseNarrow("C:\\Users\\X.OBJ"), "c:\\users\\x.obj");
  EXPECT_EQ(LowerCaseNarrow(""), "");
  const std::wstring capitals =
      GetACP() == CP_UTF8 ? L"\u0421\u0422\u0410\u041D.OBJ" : L"STRA\u00DFE \u00C9.OBJ";
  const auto narrow = ExactNarrow(capitals);
  ASSERT_TRUE(narrow);
  EXPECT_EQ(WideFromNarrow(LowerCaseNarrow(*narrow)), LowerCase(capitals));
}

// The small form of this capital takes three bytes in UTF-8 where it takes two itself.
TEST(LetterCase, ALongerSmallLetterDoesNotCostTheEnd) {
  const auto narrow = ExactNarrow(L"\u023ALPHA.OBJ");
  if (GetACP() == CP_UTF8) {
    ASSERT_TRUE(narrow);
    EXPECT_EQ(LowerCaseNarrow(*narrow), "\xE2\xB1\xA5lpha.obj");
  } else {
    EXPECT_FALSE(narrow);
  }
}

// The micro sign has a capital in no western code page, and no small letter of another kind.
TEST(LetterCase, EveryLetterOfTheCodePageStaysInIt) {
  for (int byte = 1; byte < 0x80 || (GetACP() != CP_UTF8 && byte < 0x100); ++byte) {
    const std::string text = {'X', static_cast<char>(byte), 'Y'};
    const std::string lower = LowerCaseNarrow(text);
    EXPECT_EQ(lower.size(), 3u) << byte;
    EXPECT_EQ(LowerCaseNarrow(lower), lower) << byte;
  }
}

TEST(LetterCase, BytesThatAreNoTextStayAsTheyAre) {
  if (GetACP() != CP_UTF8) return;
  EXPECT_EQ(LowerCaseNarrow("X\xE2Y"), "X\xE2Y");
}

}  // namespace
}  // namespace base
