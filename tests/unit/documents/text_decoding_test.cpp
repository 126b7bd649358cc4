#include "workbench/app/documents/text_decoding.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using namespace std::string_literals;

std::u16string Decode(const std::string& bytes, bool cutOff = false) {
  return DecodeText(bytes, DetectEncoding(bytes), cutOff);
}

TEST(DetectEncoding, GoesByTheByteOrderMark) {
  EXPECT_EQ(DetectEncoding("\xEF\xBB\xBFhi"), TextEncoding::kUtf8WithMark);
  EXPECT_EQ(DetectEncoding("\xFF\xFEh\0"s), TextEncoding::kUtf16LittleEndian);
  EXPECT_EQ(DetectEncoding("\xFE\xFF\0h"s), TextEncoding::kUtf16BigEndian);
}

TEST(DetectEncoding, KnowsTextWithoutAMark) {
  EXPECT_EQ(DetectEncoding("plain"), TextEncoding::kAscii);
  EXPECT_EQ(DetectEncoding(""), TextEncoding::kAscii);
  EXPECT_EQ(DetectEncoding("gr\xC3\xBC\xC3\x9F"), TextEncoding::kUtf8);
  EXPECT_EQ(DetectEncoding("gr\xFC\xDF"), TextEncoding::kWindows1252);
  EXPECT_EQ(DetectEncoding("h\0i\0!\0"s), TextEncoding::kUtf16LittleEndian);
  EXPECT_EQ(DetectEncoding("\0h\0i\0!"s), TextEncoding::kUtf16BigEndian);
  EXPECT_EQ(DetectEncoding("cut \xE6\x97"), TextEncoding::kUtf8)
      << "a character cut off at the end is no error";
}

TEST(DecodeText, DropsTheMark) {
  EXPECT_EQ(Decode("\xEF\xBB\xBFhi"), u"hi");
  EXPECT_EQ(Decode("\xFF\xFEh\0i\0"s), u"hi");
  EXPECT_EQ(Decode("\xFE\xFF\0h\0i"s), u"hi");
  EXPECT_EQ(Decode("\xEF\xBB\xBF"), u"");
}

TEST(DecodeText, DecodesEveryEncoding) {
  EXPECT_EQ(Decode("\xC3\xA4\xE6\x97\xA5\xF0\x9F\x98\x80"), u"\u00E4\u65E5\xD83D\xDE00");
  EXPECT_EQ(Decode("\xFF\xFE\xE5\x65\x3D\xD8\x00\xDE"s), u"\u65E5\xD83D\xDE00");
  EXPECT_EQ(Decode("\xFE\xFF\x65\xE5"s), u"\u65E5");
  EXPECT_EQ(Decode("\x80uro \xE4"), u"\u20ACuro \u00E4");
}

TEST(DecodeText, ReplacesWhatIsIllFormed) {
  EXPECT_EQ(DecodeText("a\xFFz", TextEncoding::kUtf8, false), u"a\uFFFDz");
  EXPECT_EQ(DecodeText("\xC0\x80", TextEncoding::kUtf8, false), u"\uFFFD\uFFFD");
  EXPECT_EQ(DecodeText("\xED\xA0\x80", TextEncoding::kUtf8, false), u"\uFFFD\uFFFD\uFFFD");
  EXPECT_EQ(DecodeText("\xF4\x90\x80\x80", TextEncoding::kUtf8, false).substr(0, 1), u"\uFFFD");
  EXPECT_EQ(DecodeText("\x00\xD8\x41\x00"s, TextEncoding::kUtf16LittleEndian, false), u"\uFFFDA");
  EXPECT_EQ(DecodeText("A\0B"s, TextEncoding::kUtf16LittleEndian, false), u"A\uFFFD");
}

TEST(DecodeText, LeavesOutACharacterThatTheLimitCutOff) {
  EXPECT_EQ(DecodeText("a\xE6\x97", TextEncoding::kUtf8, true), u"a");
  EXPECT_EQ(DecodeText("a\xE6\x97", TextEncoding::kUtf8, false), u"a\uFFFD");
  EXPECT_EQ(DecodeText("A\0B"s, TextEncoding::kUtf16LittleEndian, true), u"A");
  EXPECT_EQ(DecodeText("A\0\x3D\xD8"s, TextEncoding::kUtf16LittleEndian, true), u"A");
}

TEST(LooksLikeText, TakesTextAndRefusesPrograms) {
  EXPECT_TRUE(LooksLikeText(""));
  EXPECT_TRUE(LooksLikeText("line\r\n\tline\x1B[0m"));
  EXPECT_TRUE(LooksLikeText("\xFF\xFEh\0i\0"s));
  EXPECT_FALSE(LooksLikeText("a\0b"s));
  EXPECT_FALSE(LooksLikeText("\x01\x02\x03\x04"));
  std::string noise;
  for (int i = 0; i < 4096; ++i) noise.push_back(static_cast<char>(1 + (i * 7919) % 255));
  EXPECT_FALSE(LooksLikeText(noise));
}

TEST(LooksLikeText, LooksAtTheFirst64KilobytesOnly) {
  const std::string text(kSniffSize, 'x');
  EXPECT_TRUE(LooksLikeText(text + "\0\0\0"s));
  EXPECT_FALSE(LooksLikeText(text.substr(1) + "\0"s));
}

}  // namespace
}  // namespace workbench
