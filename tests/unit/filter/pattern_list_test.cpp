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
  EXPECT_FALSE(MatchesPatternList(list, "name", [&](const char* pattern, const char*) {
    asked.emplace_back(pattern);
    return false;
  })) << list;
  return asked;
}

bool NeverAsked(const char*, const char*) {
  ADD_FAILURE() << "the matcher was asked";
  return false;
}

TEST(MatchesPatternList, TriesThePatternsBetweenTheCommas) {
  EXPECT_THAT(AskedPatterns("*.3ds,*.obj"), ElementsAre("*.3ds", "*.obj"));
  EXPECT_THAT(AskedPatterns(",,*.3ds,,*.obj"), ElementsAre("*.3ds", "*.obj"));
  EXPECT_THAT(AskedPatterns("*.3ds,"), ElementsAre("*.3ds"));
}

TEST(MatchesPatternList, StopsAtTheHistory) {
  EXPECT_THAT(AskedPatterns("*.3ds|*.obj"), ElementsAre("*.3ds"));
  EXPECT_THAT(AskedPatterns("*.3ds,|*"), ElementsAre("*.3ds"));
  EXPECT_THAT(AskedPatterns("|*"), IsEmpty());
  EXPECT_THAT(AskedPatterns(",|*"), IsEmpty());
}

TEST(MatchesPatternList, HasNoPatternsWithoutText) {
  EXPECT_THAT(AskedPatterns(""), IsEmpty());
  EXPECT_THAT(AskedPatterns(",,,"), IsEmpty());
  EXPECT_THAT(AskedPatterns(nullptr), IsEmpty());
}

TEST(MatchesPatternList, BlanksAroundAPatternAreNoPartOfIt) {
  EXPECT_THAT(AskedPatterns(" *.3ds , \t*.obj,  ,a b "), ElementsAre("*.3ds", "*.obj", "a b"));
  EXPECT_TRUE(MatchesPatternList(" * ", "name", NeverAsked));
}

TEST(MatchesPatternList, MatchesEverythingWithoutAskingForStarAndStarDotStar) {
  EXPECT_TRUE(MatchesPatternList("*", "name", NeverAsked));
  EXPECT_TRUE(MatchesPatternList("*.*", "name without a dot", NeverAsked));
  EXPECT_TRUE(MatchesPatternList("*.*|a", "", NeverAsked));
  EXPECT_THAT(AskedPatterns("**,*.,*.*.*,.*"), ElementsAre("**", "*.", "*.*.*", ".*"));
}

TEST(MatchesPatternList, EndsWithTheFirstPatternThatMatches) {
  Calls calls;
  EXPECT_TRUE(MatchesPatternList("a,b,c", "Name.OBJ", [&](const char* pattern, const char* name) {
    calls.emplace_back(pattern, name);
    return std::string(pattern) == "b";
  }));
  EXPECT_THAT(calls, ElementsAre(std::pair("a", "Name.OBJ"), std::pair("b", "Name.OBJ")));
}

TEST(MatchesPatternList, HandsOverPatternAndNameInTheirOwnCase) {
  EXPECT_THAT(AskedPatterns("*.3DS,Abc"), ElementsAre("*.3DS", "Abc"));
}

TEST(MatchesPatternList, PassesOverAPatternThatIsTooLong) {
  const std::string longest(kPatternSize - 1, 'x');
  EXPECT_THAT(AskedPatterns((longest + "," + longest + "y,b").c_str()), ElementsAre(longest, "b"));
}

}  // namespace
}  // namespace file_explorer
