#include "src/filter/pattern_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Calls = std::vector<std::pair<std::string, std::string>>;

// The patterns that the matcher is asked with when it refuses every one.
std::vector<std::string> AskedPatterns(const char* list) {
  std::vector<std::string> asked;
  EXPECT_FALSE(PatternList(list).Matches("name", [&](const char* pattern, const char*) {
    asked.emplace_back(pattern);
    return false;
  })) << list;
  return asked;
}

bool NeverAsked(const char*, const char*) {
  ADD_FAILURE() << "the matcher was asked";
  return false;
}

TEST(PatternList, TriesThePatternsBetweenTheCommas) {
  EXPECT_THAT(AskedPatterns("*.3ds,*.obj"), ElementsAre("*.3ds", "*.obj"));
  EXPECT_THAT(AskedPatterns(",,*.3ds,,*.obj"), ElementsAre("*.3ds", "*.obj"));
  EXPECT_THAT(AskedPatterns("*.3ds,"), ElementsAre("*.3ds"));
}

TEST(PatternList, StopsAtTheHistory) {
  EXPECT_THAT(AskedPatterns("*.3ds|*.obj"), ElementsAre("*.3ds"));
  EXPECT_THAT(AskedPatterns("*.3ds,|*"), ElementsAre("*.3ds"));
  EXPECT_THAT(AskedPatterns("|*"), IsEmpty());
  EXPECT_THAT(AskedPatterns(",|*"), IsEmpty());
}

TEST(PatternList, HasNoPatternsWithoutText) {
  EXPECT_THAT(AskedPatterns(""), IsEmpty());
  EXPECT_THAT(AskedPatterns(",,,"), IsEmpty());
  EXPECT_THAT(AskedPatterns(nullptr), IsEmpty());
}

TEST(PatternList, BlanksAroundAPatternAreNoPartOfIt) {
  EXPECT_THAT(AskedPatterns(" *.3ds , \t*.obj,  ,a b "), ElementsAre("*.3ds", "*.obj", "a b"));
  EXPECT_TRUE(PatternList(" * ").Matches("name", NeverAsked));
}

TEST(PatternList, MatchesEverythingWithoutAskingForStarAndStarDotStar) {
  EXPECT_TRUE(PatternList("*").Matches("name", NeverAsked));
  EXPECT_TRUE(PatternList("*.*").Matches("name without a dot", NeverAsked));
  EXPECT_TRUE(PatternList("*.*|a").Matches("", NeverAsked));
  EXPECT_THAT(AskedPatterns("**,*.,*.*.*,.*"), ElementsAre("**", "*.", "*.*.*", ".*"));
}

TEST(PatternList, EndsWithTheFirstPatternThatMatches) {
  Calls calls;
  EXPECT_TRUE(PatternList("a,b,c").Matches("Name.OBJ", [&](const char* pattern, const char* name) {
    calls.emplace_back(pattern, name);
    return std::string(pattern) == "b";
  }));
  EXPECT_THAT(calls, ElementsAre(std::pair("a", "Name.OBJ"), std::pair("b", "Name.OBJ")));
}

TEST(PatternList, HandsOverPatternAndNameInTheirOwnCase) {
  EXPECT_THAT(AskedPatterns("*.3DS,Abc"), ElementsAre("*.3DS", "Abc"));
}

TEST(PatternList, PassesOverAPatternThatIsTooLong) {
  const std::string longest(kPatternSize - 1, 'x');
  EXPECT_THAT(AskedPatterns((longest + "," + longest + "y,b").c_str()), ElementsAre(longest, "b"));
}

TEST(PatternList, TakesOverAnotherListAndKeepsNothingOfTheLastOne) {
  const auto equal = [](const char* pattern, const char* name) { return std::string(pattern) == name; };
  PatternList list("a,b");
  EXPECT_TRUE(list.Matches("b", equal));
  std::string text = "c,d";
  list.Assign(text.c_str());
  EXPECT_FALSE(list.Matches("b", equal));
  EXPECT_TRUE(list.Matches("d", equal));
  text[2] = 'e';  // the same place in memory, another list
  list.Assign(text.c_str());
  EXPECT_FALSE(list.Matches("d", equal));
  EXPECT_TRUE(list.Matches("e", equal));
  list.Assign(nullptr);
  EXPECT_FALSE(list.exists());
  EXPECT_FALSE(list.Matches("e", equal));
  list.Assign("");
  EXPECT_TRUE(list.exists()) << "an empty list is one without patterns";
}

}  // namespace
}  // namespace file_explorer
