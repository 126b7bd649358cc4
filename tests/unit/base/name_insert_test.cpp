#include "base/text/name_insert.h"

#include <gtest/gtest.h>

namespace base {
namespace {

TEST(NameInsert, TheNameStandsInEachPlaceThatIsLeftForIt) {
  EXPECT_EQ(InsertName<char>("Bad EXE format for %1.", "a.exe"), "Bad EXE format for a.exe.");
  EXPECT_EQ(InsertName<wchar_t>(L"%1 and %1", L"\u00DCn\u00EF"), L"\u00DCn\u00EF and \u00DCn\u00EF");
}

TEST(NameInsert, WithoutANameTheTextStillReadsAsASentence) {
  EXPECT_EQ(InsertName<wchar_t>(L"Bad EXE format for %1.", L""), L"Bad EXE format for the file.");
}

TEST(NameInsert, ANameThatLooksLikeAPlaceIsTakenAsItIs) {
  EXPECT_EQ(InsertName<char>("%1!", "%1%1"), "%1%1!");
}

TEST(NameInsert, OtherTextsStayAsTheyAre) {
  EXPECT_EQ(InsertName<char>("100 % of 1", "x"), "100 % of 1");
  EXPECT_EQ(InsertName<char>("", "x"), "");
}

}  // namespace
}  // namespace base
