#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>
#include <random>
#include <string>
#include <string_view>

#include "tests/unit/wildcard/pattern_reference.h"
#include "workbench/app/text/wildcard.h"

namespace workbench {
namespace {

// How many random pairs a test compares; a longer run asks for more.
int Pairs() {
  const char* const asked = std::getenv("WILDCARD_TEST_PAIRS");
  return asked != nullptr ? std::atoi(asked) : 60'000;
}

std::string RandomText(std::mt19937& random, std::string_view alphabet, size_t longest) {
  std::string text(std::uniform_int_distribution<size_t>(0, longest)(random), '\0');
  std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1);
  for (char& c : text) c = alphabet[pick(random)];
  return text;
}

// Few letters and many special characters, so that well-formed sets and matches are frequent.
TEST(MatchPattern, AgreesWithThePlainReferenceOnRandomPairs) {
  std::mt19937 random(20240607);
  const int pairs = Pairs();
  int wellFormed = 0;
  int matches = 0;
  for (int i = 0; i < pairs; ++i) {
    const std::string pattern = RandomText(random, "aabbcA*?[]]!-\\", 12);
    const std::string name = RandomText(random, "aabcABC]\\-[", 8);
    const bool ignoreCase = (random() & 1u) != 0;
    const auto elements = pattern_reference::Parse(pattern, ignoreCase);
    const bool valid = elements.has_value();
    const bool match = pattern_reference::Matches(elements, name);
    ASSERT_EQ(ValidatePattern(pattern, nullptr), valid) << pattern;
    ASSERT_EQ(MatchPattern(pattern, name, ignoreCase), match)
        << pattern << " with " << name << ", " << ignoreCase;
    wellFormed += valid;
    matches += match;
  }
  // The comparison says something only when both answers are frequent.
  EXPECT_GT(wellFormed, pairs / 10);
  EXPECT_LT(wellFormed, pairs - pairs / 10);
  EXPECT_GT(matches, pairs / 100);
}

// Patterns of stars over one letter: the many ways to share the letters out must all come to the same answer.
TEST(MatchPattern, AgreesWithThePlainReferenceOnManyStars) {
  std::mt19937 random(7);
  for (int i = 0; i < 20'000; ++i) {
    const std::string pattern = RandomText(random, "a*b*?", 24);
    const std::string name = RandomText(random, "aaaab", 40);
    ASSERT_EQ(MatchPattern(pattern, name, false),
              pattern_reference::Matches(pattern_reference::Parse(pattern, false), name))
        << pattern << " with " << name;
  }
}

// Long plain parts around few special characters, as users type them, against names long enough for the
// search of sixteen places at a time.
TEST(MatchPattern, AgreesWithThePlainReferenceOnLongNames) {
  std::mt19937 random(11);
  int matches = 0;
  const int pairs = Pairs() / 4;
  for (int i = 0; i < pairs; ++i) {
    const std::string name = RandomText(random, "abAB.", 70);
    std::string pattern;
    for (unsigned parts = random() % 4; parts != 0; --parts) {
      const size_t from = name.empty() ? 0 : random() % name.size();
      pattern += name.substr(from, random() % 6);
      pattern += std::string_view("***?[a]\\b").substr(random() % 9, 1 + random() % 2);
    }
    pattern += name.substr(name.size() - std::min<size_t>(name.size(), random() % 5));
    const bool ignoreCase = (random() & 1u) != 0;
    const bool match = pattern_reference::Matches(pattern_reference::Parse(pattern, ignoreCase), name);
    ASSERT_EQ(MatchPattern(pattern, name, ignoreCase), match)
        << pattern << " with " << name << ", " << ignoreCase;
    matches += match;
  }
  EXPECT_GT(matches, pairs / 50);
}

// A character outside ASCII, or a byte that is none, and the ASCII character that stands for it before the
// reference: letters have their other case at the same distance there.
struct StandIn {
  std::string_view text;
  char reference;
};
constexpr StandIn kStandIns[] = {
    {"a", 'a'},        {"A", 'A'},        {"\xC3\xA4", 'x'},
    {"\xC3\x84", 'X'}, {"\xD1\x81", 'y'}, {"\xD0\xA1", 'Y'},
    {"\xD0\xB0", 'z'}, {"\xD0\x90", 'Z'}, {"\xE6\x97\xA5", '7'},
    {"\x81", '1'},     {"\xFF", '2'},     {"*", '*'},
    {"*", '*'},        {"?", '?'},        {"[", '['},
    {"]", ']'},        {"!", '!'},        {"\\", '\\'},
};

TEST(MatchPattern, AgreesWithThePlainReferenceOnCharactersOutsideAscii) {
  std::mt19937 random(23);
  int matches = 0;
  const int pairs = Pairs();
  const auto make = [&](size_t longest, std::string* text, std::string* reference) {
    for (size_t left = random() % (longest + 1); left != 0; --left) {
      const StandIn& next = kStandIns[random() % std::size(kStandIns)];
      *text += next.text;
      *reference += next.reference;
    }
  };
  for (int i = 0; i < pairs; ++i) {
    std::string pattern, name, referencePattern, referenceName;
    make(8, &pattern, &referencePattern);
    make(10, &name, &referenceName);
    const bool ignoreCase = (random() & 1u) != 0;
    const bool match =
        pattern_reference::Matches(pattern_reference::Parse(referencePattern, ignoreCase), referenceName);
    ASSERT_EQ(MatchPattern(pattern, name, ignoreCase), match)
        << referencePattern << " with " << referenceName << ", " << ignoreCase;
    matches += match;
  }
  EXPECT_GT(matches, pairs / 50);
}

}  // namespace
}  // namespace workbench
