#include "base/text/code_page.h"

#include <windows.h>

#include <gtest/gtest.h>

#include <random>

namespace base {
namespace {

constexpr unsigned kWestern = 1252;
constexpr unsigned kCyrillic = 1251;
constexpr unsigned kJapanese = 932;
constexpr unsigned kAll[] = {kWestern, kCyrillic, kJapanese, CP_UTF8};

struct ExactRow {
  unsigned codePage;
  const wchar_t* text;
  const char* bytes;
};

TEST(CodePage, LettersOfTheCodePageGoThereAndComeBack) {
  const ExactRow rows[] = {
      {kWestern, L"c:\\stra\u00DFe\\\u20AC.obj",
       "c:\\stra\xDF"
       "e\\\x80.obj"},
      {kWestern, L"na\u00EFve \u0160\u0178", "na\xEFve \x8A\x9F"},
      {kCyrillic, L"\u0441\u0442\u0430\u043D.png", "\xF1\xF2\xE0\xED.png"},
      {kJapanese, L"\u8868.obj", "\x95\x5C.obj"},  // its second byte looks like a backslash
      {kJapanese, L"\u30BD\\\u30E2", "\x83\x5C\\\x83\x82"},
      {kJapanese, L"\uFF41.obj", "\x82\x81.obj"},  // full width has a code of its own here
      {kJapanese, L"\uE000", "\xF0\x40"},          // private use
      {CP_UTF8, L"pl\u0101n \uFF0F\U0001F600", "pl\xC4\x81n \xEF\xBC\x8F\xF0\x9F\x98\x80"},
  };
  for (const ExactRow& row : rows) {
    EXPECT_EQ(ExactInCodePage(row.codePage, row.text), row.bytes) << row.codePage;
    EXPECT_EQ(DisplayInCodePage(row.codePage, row.text), row.bytes) << row.codePage;
    EXPECT_EQ(WideFromCodePage(row.codePage, row.bytes), row.text) << row.codePage;
    EXPECT_EQ(ExactWideFromCodePage(row.codePage, row.bytes), row.text) << row.codePage;
  }
}

struct LostRow {
  unsigned codePage;
  const wchar_t* text;
  const char* shown;
};

// Each of these has a neighbour that looks like it, which the system would take.
TEST(CodePage, NoLetterIsBentIntoAnother) {
  const LostRow rows[] = {
      {kWestern, L"pl\u0101n.obj", "pl?n.obj"},      // a with a macron
      {kWestern, L"\uFF41.obj", "?.obj"},            // full-width a
      {kWestern, L"a\uFF0Fb", "a?b"},                // full-width slash
      {kWestern, L"a\uFF3Cb", "a?b"},                // full-width backslash
      {kWestern, L"a\uFF1Ab", "a?b"},                // full-width colon
      {kWestern, L"a\u2044b\u2215c", "a?b?c"},       // fraction and division slashes
      {kWestern, L"\u221E \u03B1 \u2212", "? ? ?"},  // infinity was once 8, alpha a
      {kWestern, L"\uE000", "?"},
      {kWestern, L"A\u030A", "A?"},  // a ring apart from its letter
      {kCyrillic, L"stra\u00DFe caf\u00E9", "stra?e caf?"},
      {kCyrillic, L"\u00E5", "?"},
      {kJapanese, L"a\u00A5b", "a?b"},  // the yen sign was once a backslash
      {kJapanese, L"a\u203Eb", "a?b"},  // and the overline a tilde
      {kJapanese, L"caf\u00E9", "caf?"},
  };
  for (const LostRow& row : rows) {
    EXPECT_EQ(ExactInCodePage(row.codePage, row.text), std::nullopt) << row.codePage << " " << row.shown;
    EXPECT_EQ(DisplayInCodePage(row.codePage, row.text), row.shown) << row.codePage;
  }
}

TEST(CodePage, AQuestionMarkIsNoLoss) {
  for (const unsigned codePage : kAll) EXPECT_EQ(ExactInCodePage(codePage, L"what?.obj"), "what?.obj");
}

TEST(CodePage, HalfASurrogatePairIsALossEverywhere) {
  const std::wstring texts[] = {{L'a', 0xD83D, L'b'}, {L'a', 0xDE00}, {0xD83D}, {0xDE00, 0xD83D}};
  for (const unsigned codePage : kAll) {
    for (const std::wstring& text : texts)
      EXPECT_EQ(ExactInCodePage(codePage, text), std::nullopt) << codePage;
  }
  EXPECT_EQ(DisplayInCodePage(CP_UTF8, texts[0]),
            "a\xEF\xBF\xBD"
            "b");
  EXPECT_EQ(DisplayInCodePage(kWestern, texts[0]), "a?b");
}

// Over all characters: what is called exact comes back as it was.
TEST(CodePage, WhatIsExactComesBackUnchanged) {
  for (const unsigned codePage : kAll) {
    int exact = 0;
    for (unsigned unit = 1; unit < 0x10000; ++unit) {
      const std::wstring text(1, static_cast<wchar_t>(unit));
      const auto bytes = ExactInCodePage(codePage, text);
      if (!bytes) continue;
      ++exact;
      ASSERT_EQ(WideFromCodePage(codePage, *bytes), text) << codePage << " U+" << std::hex << unit;
    }
    EXPECT_GE(exact, codePage == CP_UTF8 ? 0xF7FF : 250) << codePage;
  }
}

TEST(CodePage, LongTextsAreConvertedWhole) {
  std::mt19937 random(3);
  for (const size_t length : {255u, 256u, 257u, 1024u, 5000u, 100000u}) {
    std::wstring text(length, L'a');
    for (wchar_t& letter : text) letter = static_cast<wchar_t>(random() % 2 == 0 ? L'x' : L'\u00E9');
    const auto bytes = ExactInCodePage(CP_UTF8, text);
    ASSERT_TRUE(bytes);
    EXPECT_EQ(WideFromCodePage(CP_UTF8, *bytes), text);
    EXPECT_EQ(DisplayInCodePage(kWestern, text).size(), length);
    text.back() = L'\u0101';
    EXPECT_EQ(ExactInCodePage(kWestern, text), std::nullopt);
  }
}

TEST(CodePage, NothingGivesNothing) {
  for (const unsigned codePage : kAll) {
    EXPECT_EQ(ExactInCodePage(codePage, L""), "");
    EXPECT_EQ(DisplayInCodePage(codePage, L""), "");
    EXPECT_EQ(WideFromCodePage(codePage, ""), L"");
    EXPECT_EQ(ExactWideFromCodePage(codePage, ""), L"");
  }
}

TEST(CodePage, BytesThatAreNoTextAreNoName) {
  EXPECT_EQ(ExactWideFromCodePage(CP_UTF8, "pl\xE2n.obj"), std::nullopt);
  EXPECT_EQ(ExactWideFromCodePage(CP_UTF8, "pl\xE3\x83"), std::nullopt);
  EXPECT_EQ(ExactWideFromCodePage(kJapanese, "a\x83"), std::nullopt);
  EXPECT_FALSE(WideFromCodePage(CP_UTF8, "pl\xE2n.obj").empty());  // something is shown all the same
}

// The names without a code page speak that of the process.
TEST(CodePage, TheProcessHasItsOwn) {
  const wchar_t* const texts[] = {L"plan", L"pl\u0101n", L"stra\u00DFe", L"\u0441\u0442\u0430\u043D"};
  for (const wchar_t* const text : texts) {
    EXPECT_EQ(ExactNarrow(text), ExactInCodePage(GetACP(), text));
    EXPECT_EQ(DisplayNarrow(text), DisplayInCodePage(GetACP(), text));
    EXPECT_EQ(WideFromNarrow(DisplayNarrow(text)), WideFromCodePage(GetACP(), DisplayNarrow(text)));
    EXPECT_EQ(ExactWide("plan"), L"plan");
  }
}

}  // namespace
}  // namespace base
