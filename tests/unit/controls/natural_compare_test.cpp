#include "workbench/controls/model/natural_compare.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace controls {
namespace {

TEST(NaturalCompare, DigitsCompareByValue) {
  EXPECT_LT(CompareNatural(L"part9.obj", L"part10.obj"), 0);
  EXPECT_GT(CompareNatural(L"2.10", L"2.9"), 0);
  EXPECT_LT(CompareNatural(L"x99999999999999999999998", L"x99999999999999999999999"), 0);
}

TEST(NaturalCompare, CaseDoesNotMatterBetweenDifferentNames) {
  EXPECT_LT(CompareNatural(L"apple", L"Banana"), 0);
  EXPECT_LT(CompareNatural(L"Apple", L"banana"), 0);
  EXPECT_LT(CompareNatural(L"\u00e4pfel", L"\u00d6l"), 0);
}

TEST(NaturalCompare, NamesThatDifferOnlyInCaseOrZerosStillHaveAnOrder) {
  EXPECT_NE(CompareNatural(L"File", L"file"), 0);
  EXPECT_EQ(CompareNatural(L"File", L"file") < 0, CompareNatural(L"file", L"File") > 0);
  EXPECT_NE(CompareNatural(L"a1", L"a01"), 0);
  EXPECT_EQ(CompareNatural(L"a1", L"a1"), 0);
}

TEST(NaturalCompare, AShorterNameStandsFirst) {
  EXPECT_LT(CompareNatural(L"a", L"ab"), 0);
  EXPECT_LT(CompareNatural(L"", L"a"), 0);
  EXPECT_LT(CompareNatural(L"a1", L"a1b"), 0);
}

TEST(NaturalCompare, OrderIsTransitiveOverMixedNames) {
  const std::vector<std::wstring> names = {L"",    L"0",  L"00", L"1",      L"01",
                                           L"1a",  L"a",  L"A",  L"a1",     L"a01",
                                           L"a10", L"a2", L"b",  L"\u00e9", L"\u65e5\u672c"};
  for (const auto& a : names) {
    for (const auto& b : names) {
      EXPECT_EQ(CompareNatural(a, b) < 0, CompareNatural(b, a) > 0);
      for (const auto& c : names) {
        if (CompareNatural(a, b) < 0 && CompareNatural(b, c) < 0) {
          EXPECT_LT(CompareNatural(a, c), 0);
        }
      }
    }
  }
}

TEST(EqualsIgnoringCase, ComparesWholeTexts) {
  EXPECT_TRUE(EqualsIgnoringCase(L"C:\\Temp", L"c:\\tEMP"));
  EXPECT_FALSE(EqualsIgnoringCase(L"abc", L"abcd"));
  EXPECT_TRUE(EqualsIgnoringCase(L"\u00fcber", L"\u00dcBER"));
}

}  // namespace
}  // namespace controls
