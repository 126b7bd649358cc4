#include "workbench/app/text/wildcard.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

struct MatchCase {
  const char* pattern;
  const char* name;
  bool matches;
};

void ExpectMatches(const MatchCase& matchCase, bool ignoreCase) {
  EXPECT_EQ(MatchPattern(matchCase.pattern, matchCase.name, ignoreCase), matchCase.matches)
      << matchCase.pattern << " with " << matchCase.name;
}

// The lines of the explorer's help text, in their order, with what each must and must not take.
const MatchCase kHelpTextCases[] = {
    {"abc*", "abc", true},
    {"abc*", "abcd.obj", true},
    {"abc*", "xabc", false},
    {"*abc*", "abc", true},
    {"*abc*", "xxabcxx", true},
    {"*abc*", "ab", false},
    {"*", "", true},
    {"*", "everything at all", true},
    {"*.3ds", ".3ds", true},
    {"*.3ds", "x.3ds", true},
    {"*.3ds", "x.3ds.bak", false},
    {"?", "a", true},
    {"?", "", false},
    {"?", "ab", false},
    {"???", "abc", true},
    {"???", "ab", false},
    {"???", "abcd", false},
    {"*test.obj", "1test.obj", true},
    {"*test.obj", "thisisatest.obj", true},
    {"*test.obj", "test.obj", true},
    {"*test.obj", "test.objx", false},
    {"t*s*t.3ds", "test.3ds", true},
    {"t*s*t.3ds", "tesseract.3ds", true},
    {"t*s*t.3ds", "tet.3ds", false},
    {"[a-z]s*t.3ds", "asset.3ds", true},
    {"[a-z]s*t.3ds", "1sset.3ds", false},
    {"s[!gh]t.dxf", "set.dxf", true},
    {"s[!gh]t.dxf", "sgt.dxf", false},
    {"s[!gh]t.dxf", "sht.dxf", false},
    {"s[!gh]t.dxf", "st.dxf", false},
    {"s[!e]t", "set", false},
    {"s[!e]t", "sat", true},
    {"[a-fh-z]*", "jack", true},
    {"[a-fh-z]*", "flack", true},
    {"[a-fh-z]*", "zoom", true},
    {"[a-fh-z]*", "goat", false},
    {"i\\**", "i*guess", true},
    {"i\\**", "iguess", false},
    {"[\\[-\\]]", "[", true},
    {"[\\[-\\]]", "]", true},
    {"[\\[-\\]]", "\\", true},
    {"[\\[-\\]]", "a", false},
    {"[a-z\\]", "a", true},
    {"[a-z\\]", "b", true},
    {"[a-z\\]", "c", true},
    {"[a-z\\]", "\\", true},
    {"[a-z\\]", "]", false},
    {"[a-z\\]", "-", false},
};

TEST(MatchPattern, HoldsEveryLineOfTheHelpText) {
  for (const MatchCase& matchCase : kHelpTextCases) {
    ExpectMatches(matchCase, false);
    ExpectMatches(matchCase, true);
  }
}

const MatchCase kEdgeCases[] = {
    {"", "", true},
    {"", "a", false},
    {"abc", "abc", true},
    {"abc", "abcd", false},  // anchored at both ends
    {"abc", "zabc", false},
    {"**", "", true},
    {"*?*", "", false},
    {"*?*", "a", true},
    {"?*", "a", true},
    {"a*a", "a", false},
    {"a*a", "aa", true},
    {"*ab*ab", "abab", true},
    {"*ab*ab", "ab", false},
    {"*aab", "aaaaab", true},
    {"aab*aab", "aaab", false},  // end and beginning may not share letters
    {"ab*ab", "ab", false},
    {"ab*ab", "abab", true},
    {"ab*", "a", false},
    {"a*b*c", "abc", true},
    {"a*b*c", "acb", false},
    {"*.*", "name", false},
    {"\\?", "?", true},
    {"\\?", "a", false},
    {"\\a", "a", true},
    {"\\\\", "\\", true},
    {"\\[a]", "[a]", true},
    {"]", "]", true},  // outside a set a bracket that closes nothing stands for itself
    {"a]b", "a]b", true},
    {"-", "-", true},
    {"!", "!", true},
    {"[a-]", "-", true},  // "-" at an end of a set stands for itself
    {"[a-]", "b", false},
    {"[-a]", "-", true},
    {"[!-a]", "-", false},
    {"[!-a]", "b", true},
    {"[--0]", ".", true},  // the range from "-" to "0"
    {"[a\\-z]", "-", true},
    {"[a\\-z]", "m", false},
    {"[a-c-e]", "-", true},
    {"[a-c-e]", "e", true},
    {"[a-c-e]", "d", false},
    {"[a!]", "!", true},
    {"[!!]", "!", false},
    {"[!!]", "a", true},
    {"[*?]", "*", true},
    {"[*?]", "x", false},
    {"[[]", "[", true},
    {"[[a]", "a", true},
    {"[\\!a]", "!", true},
    {"[\\!a]", "b", false},
    {"[\\\\]", "\\", true},
    {"[\\\\]x", "\\x", true},
    {"[\\]", "\\", true},  // the one "]" closes the set, so the backslash is its member
    {"[!\\]", "\\", false},
    {"[!\\]", "a", true},
    {"[!\\]", "", false},
    {"[A-\\]", "Z", true},
    {"[A-\\]", "\\", true},
    {"[\\]]", "]", true},  // here the first "]" is escaped and the second closes
    {"[\\]]", "\\", false},
    {"[a\\]b]", "]", true},
    {"[a\\]b]", "b", true},
    {"[a\\]b]", "\\", false},
    {"[a\\]b\\]", "]", true},  // only the last "\]" is the backslash that ends a set
    {"[a\\]b\\]", "\\", true},
    {"[a\\].txt", "\\.txt", true},
    {"[a\\].txt", "a.txt", true},
    {"[ab][cd]", "bc", true},
    {"[ab][cd]", "ba", false},
    {"*[0-9]", "file7", true},
    {"*[0-9].obj", "12a3.obj", true},
    {"*[!0-9]", "file7", false},
};

TEST(MatchPattern, HoldsTheEdgeCases) {
  for (const MatchCase& matchCase : kEdgeCases) ExpectMatches(matchCase, false);
}

TEST(MatchPattern, IgnoresCaseOnlyWhenAsked) {
  EXPECT_FALSE(MatchPattern("*.OBJ", "cube.obj", false));
  EXPECT_TRUE(MatchPattern("*.OBJ", "cube.obj", true));
  EXPECT_TRUE(MatchPattern("*.obj", "CUBE.OBJ", true));
  EXPECT_FALSE(MatchPattern("[a-c]", "B", false));
  EXPECT_TRUE(MatchPattern("[a-c]", "B", true));
  EXPECT_TRUE(MatchPattern("[A-C]", "b", true));
  EXPECT_FALSE(MatchPattern("[!a-c]", "B", true));
  EXPECT_TRUE(MatchPattern("\\A", "a", true));
  EXPECT_FALSE(MatchPattern("@", "`", true)) << "characters that are no letters have no case";
  EXPECT_FALSE(MatchPattern("[", "{", true));
}

TEST(MatchPattern, CountsACharacterOutsideAsciiAsOne) {
  const std::string umlaut = "\xC3\xA4";  // a with diaeresis
  const std::string capitalUmlaut = "\xC3\x84";
  EXPECT_TRUE(MatchPattern("?", umlaut, false));
  EXPECT_FALSE(MatchPattern("??", umlaut, false));
  EXPECT_TRUE(MatchPattern("?.txt", "\xE6\x97\xA5.txt", false));
  EXPECT_TRUE(MatchPattern("?", "\xF0\x9F\x98\x80", false));
  EXPECT_TRUE(MatchPattern("[" + umlaut + "b]x", umlaut + "x", false));
  EXPECT_FALSE(MatchPattern("[!" + umlaut + "]", umlaut, false));
  EXPECT_TRUE(MatchPattern(umlaut + "*", capitalUmlaut + "x", true));
  EXPECT_FALSE(MatchPattern(umlaut + "*", capitalUmlaut + "x", false));
  EXPECT_TRUE(MatchPattern("\\" + umlaut, umlaut, false));
  EXPECT_TRUE(MatchPattern("*" + umlaut, umlaut + umlaut, false));
  EXPECT_TRUE(MatchPattern("*.TXT", umlaut + ".txt", true));
  EXPECT_TRUE(MatchPattern(umlaut + "*b", umlaut + umlaut + "b", false));
  EXPECT_FALSE(MatchPattern(umlaut + "*b", umlaut + umlaut, false));
  EXPECT_FALSE(MatchPattern("*?b", "b" + umlaut, false));
}

TEST(MatchPattern, CountsAByteThatIsNoUtf8AsOneCharacter) {
  EXPECT_TRUE(MatchPattern("?", "\xE4", false));
  EXPECT_TRUE(MatchPattern("?.txt", "\xFF.txt", false));
  EXPECT_TRUE(MatchPattern("\xE4*", "\xE4pfel", true));
  EXPECT_TRUE(MatchPattern("[\xE0-\xFC]", "\xE4", false));
  EXPECT_FALSE(MatchPattern("\xE4", "\xC3\xA4", false)) << "a stray byte is not the letter of that number";
  EXPECT_TRUE(MatchPattern("??", "\xC0\x80", false)) << "an over-long sequence is no character";
  EXPECT_TRUE(MatchPattern("???", "\xED\xA0\x80", false)) << "half of a surrogate pair is no character";
  EXPECT_TRUE(MatchPattern("*b",
                           "\xC3"
                           "b",
                           false))
      << "the byte before a letter takes nothing of it";
  EXPECT_FALSE(MatchPattern("?b",
                            "\xE6\x97"
                            "b",
                            false));
  EXPECT_TRUE(MatchPattern("??b",
                           "\xE6\x97"
                           "b",
                           false));
}

TEST(MatchPattern, TakesNamesOf1024Characters) {
  const std::string name(1024, 'x');
  EXPECT_TRUE(MatchPattern(name, name, true));
  EXPECT_TRUE(MatchPattern(std::string(1024, '?'), name, true));
  EXPECT_FALSE(MatchPattern(std::string(1023, '?'), name, true));
  EXPECT_TRUE(MatchPattern("*x", name, true));
}

TEST(MatchPattern, TakesStepsProportionalToPatternTimesNameAtMost) {
  const auto stars = [](const char* between, const char* end) {
    std::string pattern;
    for (int i = 0; i < 30; ++i) pattern += std::string("*") + between;
    return pattern + end;
  };
  const std::string patterns[] = {stars("a", "*b"),
                                  stars("aa", "b"),
                                  stars("", "b"),
                                  stars("?", "b"),
                                  stars("[a]", "b"),
                                  stars("[a-cx-z]", "[!a]"),
                                  stars("[!b]", "[b]"),
                                  stars("\\a", "b"),
                                  "*" + std::string(60, 'a') + "b",
                                  std::string(500, '*') + std::string(500, 'a') + "b"};
  for (const std::string& pattern : patterns) {
    for (const std::size_t length : {1U, 64U, 1024U}) {
      const std::string name(length, 'a');
      EXPECT_FALSE(MatchPattern(pattern, name, true)) << pattern;
      // Each place of the pattern meets each place of the name, and the one behind it, twice at most.
      EXPECT_LE(CountMatchSteps(pattern, name, true), 2 * (pattern.size() + 1) * (name.size() + 1))
          << pattern;
    }
  }
}

TEST(MatchPattern, ThirtyStarsTakeNoMoreStepsThanTheNameHasCharactersAFewTimesOver) {
  std::string pattern;
  for (int i = 0; i < 30; ++i) pattern += "*a";
  EXPECT_TRUE(MatchPattern(pattern + "*", std::string(1024, 'a'), true));
  EXPECT_LE(CountMatchSteps(pattern + "*", std::string(1024, 'a'), true), 4096U);
}

TEST(MatchPattern, OneStarTakesStepsProportionalToTheNameAlone) {
  for (const std::size_t length : {64U, 256U, 1024U}) {
    const std::string half(length / 2, 'a');
    for (const std::string& pattern : {"*" + half + "?", "*" + half + "b", half + "*" + half + "[b]", "*?" + half}) {
      for (const std::string& name : {std::string(length, 'a'), std::string(length, 'a') + "cc"}) {
        EXPECT_LE(CountMatchSteps(pattern, name, true), 4 * (pattern.size() + name.size())) << pattern;
      }
    }
  }
}

struct ValidityCase {
  const char* pattern;
  const char* reason;  // null: well formed
};

constexpr char kUnclosed[] = "a \"[\" has no closing \"]\"";
constexpr char kEmpty[] = "a set has nothing between \"[\" and \"]\"";
constexpr char kReversed[] = "a range ends before it begins, as in \"[z-a]\"";
constexpr char kTrailing[] = "a \"\\\" at the end has no character behind it";

const ValidityCase kValidityCases[] = {
    {"", nullptr},        {"*", nullptr},       {"*.*", nullptr},        {"abc]", nullptr},
    {"[a-z\\]", nullptr}, {"[\\]", nullptr},    {"[a-a]", nullptr},      {"[\\[-\\]]", nullptr},
    {"i\\**", nullptr},   {"[[]", nullptr},     {"\\[", nullptr},        {"\\\\", nullptr},
    {"[A-\\]", nullptr},  {"[", kUnclosed},     {"[!", kUnclosed},       {"[abc", kUnclosed},
    {"x[a-", kUnclosed},  {"[a\\", kUnclosed},  {"[a]b[c", kUnclosed},   {"[\\]\\", kTrailing},
    {"[]", kEmpty},       {"[!]", kEmpty},      {"[]a]", kEmpty},        {"*[]*", kEmpty},
    {"[z-a]", kReversed}, {"[a-Z]", kReversed}, {"[0-9z-y]", kReversed}, {"[a-\\]", kReversed},
    {"\\", kTrailing},    {"abc\\", kTrailing}, {"\\\\\\", kTrailing},   {"[a]\\", kTrailing},
};

TEST(ValidatePattern, RefusesWhatIsIllFormedWithAReason) {
  for (const ValidityCase& validity : kValidityCases) {
    std::string reason = "untouched";
    EXPECT_EQ(ValidatePattern(validity.pattern, &reason), validity.reason == nullptr) << validity.pattern;
    EXPECT_EQ(reason, validity.reason == nullptr ? "untouched" : validity.reason) << validity.pattern;
    EXPECT_EQ(ValidatePattern(validity.pattern, nullptr), validity.reason == nullptr) << validity.pattern;
  }
}

TEST(ValidatePattern, GivesReasonsThatFitIntoAMessage) {
  for (const char* reason : {kUnclosed, kEmpty, kReversed, kTrailing}) {
    const std::string text = reason;
    EXPECT_LT(text.size(), 100u);
    EXPECT_NE(text.back(), '.');
  }
}

TEST(MatchPattern, IllFormedPatternsMatchNothing) {
  EXPECT_FALSE(MatchPattern("[", "[", false));
  EXPECT_FALSE(MatchPattern("*[", "x[", false));
  EXPECT_FALSE(MatchPattern("*[", "", false));
  EXPECT_FALSE(MatchPattern("[]", "", false));
  EXPECT_FALSE(MatchPattern("*[z-a]", "m", false));
  EXPECT_FALSE(MatchPattern("a\\", "a", false));
  EXPECT_FALSE(MatchPattern("a\\", "a\\", false));
  EXPECT_FALSE(MatchPattern("x*[", "y", false));
  EXPECT_FALSE(MatchPattern("x[", "x[", false));
  EXPECT_FALSE(MatchPattern("xyz\\", "xyz", false));
}

}  // namespace
}  // namespace workbench
