#include <gtest/gtest.h>

#include "base/files/wine_names.h"

namespace {

using base::wine::NameFromWide;
using base::wine::WideFromName;

TEST(NamesOfTheMachine, ComeBackByteForByte) {
  for (const std::string& name :
       {std::string("plain.txt"), std::string("pl\xC4\x81n"), std::string("\xF0\x9F\x98\x80 smile"),
        std::string("a\\b"), std::string("\xFF\xFE"), std::string("cut \xE2\x82"),
        std::string("\xEF\x81\x9C"), std::string("\xED\xA0\x80"), std::string("\xC0\xAF"),
        std::string("?*|<>:\"\n\x01")}) {
    const std::wstring wide = WideFromName(name);
    EXPECT_EQ(wide.find(L'\\'), std::wstring::npos);
    EXPECT_EQ(NameFromWide(wide), name);
  }
}

TEST(NamesOfTheMachine, ABackslashAndTheLetterThatStandsForItStayApart) {
  EXPECT_EQ(WideFromName("a\\b"), L"a\uF05Cb");
  EXPECT_NE(WideFromName("a\xEF\x81\x9C"
                         "b"),
            L"a\uF05Cb");
}

TEST(NamesOfTheMachine, WhatStandsForNoNameIsRefused) {
  const wchar_t lone[] = {0xD800, L'a', 0};
  const wchar_t low[] = {0xDFFF, 0};
  EXPECT_FALSE(NameFromWide(lone));
  EXPECT_FALSE(NameFromWide(low));
  EXPECT_FALSE(NameFromWide(L"a/b"));
}

}  // namespace
