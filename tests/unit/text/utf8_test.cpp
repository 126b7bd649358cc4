#include "base/text/utf8.h"

#include <gtest/gtest.h>

#include <random>

namespace base {
namespace {

// From characters, whatever the width of wchar_t.
std::wstring Text(std::u32string_view characters) {
  std::wstring text;
  for (const char32_t character : characters) AppendCharacter(text, character);
  return text;
}

TEST(Utf8, AllLengthsOfSequencesRoundTrip) {
  const char32_t edges[] = {1, 0x7F, 0x80, 0x7FF, 0x800, 0xD7FF, 0xE000, 0xFFFD, 0xFFFF, 0x10000, 0x10FFFF};
  for (const char32_t edge : edges) {
    const std::wstring text = Text({&edge, 1});
    EXPECT_EQ(WideFromUtf8(Utf8FromWide(text)), text) << static_cast<unsigned>(edge);
  }
  EXPECT_EQ(Utf8FromWide(Text(U"pl\u0101n \u30E2 \U0001F600")), "pl\xC4\x81n \xE3\x83\xA2 \xF0\x9F\x98\x80");
  EXPECT_EQ(WideFromUtf8(""), L"");
  EXPECT_EQ(Utf8FromWide(L""), "");
}

TEST(Utf8, AZeroIsACharacterLikeAnyOther) {
  EXPECT_EQ(WideFromUtf8(std::string_view("a\0b", 3)), std::wstring(L"a\0b", 3));
  EXPECT_EQ(Utf8FromWide(std::wstring_view(L"a\0b", 3)), std::string("a\0b", 3));
}

struct Broken {
  const char* bytes;
  const char32_t* text;
};

TEST(Utf8, BrokenSequencesBecomeOneReplacementEach) {
  const Broken rows[] = {
      {"a\x80z", U"a\uFFFDz"},            // a byte in the middle of nothing
      {"a\xC0\xAFz", U"a\uFFFD\uFFFDz"},  // overlong slash
      {"a\xE0\x80\xAFz", U"a\uFFFD\uFFFD\uFFFDz"},
      {"a\xF0\x80\x80\xAFz", U"a\uFFFD\uFFFD\uFFFD\uFFFDz"},
      {"a\xED\xA0\x80z", U"a\uFFFD\uFFFD\uFFFDz"},            // surrogate
      {"a\xF4\x90\x80\x80z", U"a\uFFFD\uFFFD\uFFFD\uFFFDz"},  // past the last character
      {"a\xFFz", U"a\uFFFDz"},
      {"a\xE3\x83z", U"a\uFFFDz"},  // its last byte is missing
      {"a\xE3\x83", U"a\uFFFD"},    // the text ends too early
      {"\xF0\x9F\x98", U"\uFFFD"},
      {"\xC4", U"\uFFFD"},
  };
  for (const Broken& row : rows) EXPECT_EQ(WideFromUtf8(row.bytes), Text(row.text)) << row.bytes;
}

TEST(Utf8, NoSequenceEverGivesASlashButTheSlash) {
  for (int lead = 0x80; lead < 0x100; ++lead) {
    for (int next = 0x80; next < 0x100; ++next) {
      const char bytes[] = {static_cast<char>(lead), static_cast<char>(next), '\0'};
      EXPECT_EQ(WideFromUtf8(bytes).find_first_of(L"\\/:"), std::wstring::npos);
    }
  }
}

TEST(Utf8, HalfASurrogatePairIsReplaced) {
  const wchar_t high[] = {L'a', static_cast<wchar_t>(0xD83D), L'z'};
  EXPECT_EQ(Utf8FromWide({high, 3}), "a\xEF\xBF\xBDz");
  const wchar_t low[] = {static_cast<wchar_t>(0xDE00)};
  EXPECT_EQ(Utf8FromWide({low, 1}), "\xEF\xBF\xBD");
  const wchar_t lastHigh[] = {L'a', static_cast<wchar_t>(0xD83D)};
  EXPECT_EQ(Utf8FromWide({lastHigh, 2}), "a\xEF\xBF\xBD");
}

TEST(Utf8, ACutOffSequenceIsTold) {
  char32_t code = 0;
  std::size_t length = 0;
  EXPECT_EQ(ReadUtf8("\xE3\x83", 0, &code, &length), Utf8Sequence::kCutOff);
  EXPECT_EQ(ReadUtf8("\xE3\x83z", 0, &code, &length), Utf8Sequence::kBad);
  EXPECT_EQ(length, 2u);
  EXPECT_EQ(ReadUtf8("\xE3\x83\xA2", 0, &code, &length), Utf8Sequence::kGood);
  EXPECT_EQ(length, 3u);
  EXPECT_EQ(code, U'\u30E2');
}

TEST(Utf8, EveryByteIsConsumedOnceWhateverTheBytesAre) {
  std::mt19937 random(7);
  for (int round = 0; round < 20000; ++round) {
    std::string bytes(random() % 12, '\0');
    for (char& byte : bytes)
      byte = static_cast<char>(random() % 4 == 0 ? random() % 128 : 128 + random() % 128);
    const std::wstring once = WideFromUtf8(bytes);
    EXPECT_EQ(WideFromUtf8(Utf8FromWide(once)), once);
    for (std::size_t at = 0; at < bytes.size();) {
      char32_t code = 0;
      std::size_t length = 0;
      ReadUtf8(bytes, at, &code, &length);
      ASSERT_GE(length, 1u);
      ASSERT_LE(at + length, bytes.size());
      at += length;
    }
  }
}

}  // namespace
}  // namespace base
