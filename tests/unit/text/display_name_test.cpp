#include "base/text/display_name.h"

#include <gtest/gtest.h>

#include "base/text/utf8.h"

namespace base {
namespace {

TEST(HarmlessText, OrdinaryNamesStayAsTheyAre) {
  const std::wstring names[] = {L"",
                                L"plan.obj",
                                L"pl\u0101n.obj",
                                L"\uFF41.obj",
                                L"\u0441\u0442\u0430\u043D.png",
                                L"\u30E2\u30C7\u30EB.3ds",
                                L"c:\\a b\\c&d.txt",
                                L"e\u0301.obj",
                                WideFromUtf8("\xF0\x9F\x98\x80.png")};
  for (const std::wstring& name : names) EXPECT_EQ(HarmlessText(name), name);
}

TEST(HarmlessText, WhatHidesOrTurnsTheReadingIsReplaced) {
  EXPECT_EQ(HarmlessText(L"picture\u202Ejbo.exe"), L"picture\uFFFDjbo.exe");
  EXPECT_EQ(HarmlessText(L"a\u2066b\u2069c"), L"a\uFFFDb\uFFFDc");
  EXPECT_EQ(HarmlessText(L"a\u200Fb\u061Cc"), L"a\uFFFDb\uFFFDc");
  EXPECT_EQ(HarmlessText(L"a\nb\tc\x7F"), L"a\uFFFDb\uFFFDc\uFFFD");
  EXPECT_EQ(HarmlessText(L"a\u0085b\u2028c\u2029"), L"a\uFFFDb\uFFFDc\uFFFD");
  EXPECT_EQ(HarmlessText(L"pl\u200Ban\uFEFF.obj\u00AD"), L"pl\uFFFDan\uFFFD.obj\uFFFD");
}

TEST(HarmlessText, HalfASurrogatePairIsReplacedAndAWholeOneStays) {
  const wchar_t half[] = {L'a', static_cast<wchar_t>(0xDC00), L'b'};
  EXPECT_EQ(HarmlessText({half, 3}), L"a\uFFFDb");
  const std::wstring tag = WideFromUtf8("a\xF3\xA0\x81\x81z");  // U+E0041, a tag that nobody sees
  EXPECT_EQ(HarmlessText(tag), L"a\uFFFDz");
}

TEST(HarmlessText, OneMarkStandsForOneCharacter) {
  for (char32_t character = 0; character < 0x11000; ++character) {
    if (IsSurrogate(character)) continue;
    std::wstring text;
    AppendCharacter(text, character);
    const std::wstring shown = HarmlessText(text);
    EXPECT_EQ(shown, ShowsItself(character) ? text : L"\uFFFD");
  }
}

}  // namespace
}  // namespace base
