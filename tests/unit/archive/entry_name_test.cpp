#include "workbench/controls/archive/entry_name.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using namespace controls;

std::wstring Utf8(std::string_view bytes) {
  return TextOfUtf8({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
}
std::wstring Old(std::string_view bytes) {
  return TextOfCodePage437({reinterpret_cast<const uint8_t*>(bytes.data()), bytes.size()});
}

TEST(EntryName, Utf8OfEveryLength) {
  EXPECT_EQ(Utf8("a\xC3\xA9\xE2\x82\xAC.obj"), L"a\u00E9\u20AC.obj");
  EXPECT_EQ(Utf8("\xF0\x9F\x98\x80"), L"\U0001F600") << "beyond the first plane";
}

TEST(EntryName, BrokenUtf8ShowsReplacements) {
  EXPECT_EQ(Utf8("a\xFFz"), L"a\uFFFDz");
  EXPECT_EQ(Utf8("a\xE2\x82"), L"a\uFFFD") << "cut off";
  EXPECT_EQ(Utf8("\xC0\xAF"), L"\uFFFD\uFFFD") << "an overlong separator stays none";
  EXPECT_EQ(Utf8("\xE0\x80\xAE"), L"\uFFFD") << "an overlong dot";
  EXPECT_EQ(Utf8("\xED\xA0\x80"), L"\uFFFD") << "half a pair";
  EXPECT_EQ(Utf8("\xF4\x90\x80\x80"), L"\uFFFD") << "beyond the last character";
  EXPECT_FALSE(IsHarmlessName(Utf8("a\xFFz")));
}

TEST(EntryName, OldCodePage) {
  EXPECT_EQ(Old("caf\x82.obj"), L"caf\u00E9.obj");
  EXPECT_EQ(Old("\x81\x84\x94\xE1"), L"\u00FC\u00E4\u00F6\u00DF");
  EXPECT_EQ(Old("\x80\xFF"), L"\u00C7\u00A0");
}

TEST(EntryName, OrdinaryNamesAreHarmless) {
  for (const wchar_t* name :
       {L"a", L"teapot.obj", L".profile", L"a b (2).txt", L"icon.png", L"com.txt", L"com10", L"console",
        L"nullable.cpp", L"\u65E5\u672C.obj", L"a..b", L" a", L"\U0001F600.png"}) {
    EXPECT_TRUE(IsHarmlessName(name)) << testing::PrintToString(std::wstring(name));
  }
}

struct Dangerous {
  std::wstring name;
  std::wstring shown;
};

TEST(EntryName, DangerousNamesAreShownHarmlessAndSaySo) {
  const std::vector<Dangerous> cases = {
      {L"..", L"__ (unsafe name)"},
      {L".", L"_ (unsafe name)"},
      {L"...", L"___ (unsafe name)"},
      {L"C:", L"C_ (unsafe name)"},
      {L"a:stream.txt", L"a_stream (unsafe name).txt"},
      {L"con", L"_con (unsafe name)"},
      {L"NUL.txt", L"_NUL (unsafe name).txt"},
      {L"nul .txt", L"_nul  (unsafe name).txt"},
      {L"Aux.tar.gz", L"_Aux.tar (unsafe name).gz"},
      {L"com1", L"_com1 (unsafe name)"},
      {L"LPT\u00B2.x", L"_LPT\u00B2 (unsafe name).x"},
      {L"conin$", L"_conin$ (unsafe name)"},
      {L"a.txt.", L"a (unsafe name).txt_"},
      {L"a.txt  ", L"a (unsafe name).txt__"},
      {L"what?*.obj", L"what__ (unsafe name).obj"},
      {L"a\nb\x7F\x85.obj", L"a_b__ (unsafe name).obj"},
      {std::wstring(L"a\0b", 3), L"a_b (unsafe name)"},
      {L"photo\u202Egpj.exe", L"photo_gpj (unsafe name).exe"},
      {L"a\u200Bb", L"a_b (unsafe name)"},
      {L"a\\b/c", L"a_b_c (unsafe name)"},
      {std::wstring(1, static_cast<wchar_t>(0xD800)) + L"x", L"_x (unsafe name)"},
      {L"", L"(no name)"},
      {L" ", L"_ (unsafe name)"},
  };
  for (const Dangerous& each : cases) {
    SCOPED_TRACE(testing::PrintToString(each.name));
    EXPECT_FALSE(IsHarmlessName(each.name));
    EXPECT_EQ(HarmlessName(each.name), each.shown);
    EXPECT_TRUE(IsHarmlessName(HarmlessName(each.name)));
  }
}

TEST(EntryName, LongNamesAreShortenedAndKeepTheirExtension) {
  const std::wstring shown = HarmlessName(std::wstring(60000, L'a') + L".obj");
  EXPECT_TRUE(IsHarmlessName(shown));
  EXPECT_EQ(shown, std::wstring(200, L'a') + L"\u2026 (unsafe name).obj");
  EXPECT_TRUE(IsHarmlessName(std::wstring(255, L'a')));
  EXPECT_FALSE(IsHarmlessName(std::wstring(256, L'a')));
}

TEST(EntryName, NumbersStandBeforeTheExtensionOfFiles) {
  EXPECT_EQ(NumberedName(L"a.txt", 2, false), L"a (2).txt");
  EXPECT_EQ(NumberedName(L"a", 13, false), L"a (13)");
  EXPECT_EQ(NumberedName(L"a.txt", 2, true), L"a.txt (2)");
  EXPECT_TRUE(IsHarmlessName(NumberedName(std::wstring(255, L'b'), 4000000000u, false)));
}

}  // namespace
