#include <gtest/gtest.h>

#include <random>
#include <string>

#include "tests/unit/wildcard/pattern_reference.h"
#include "workbench/app/text/wildcard.h"

namespace workbench {
namespace {

constexpr int kPairs = 1'000'000;

std::string RandomText(std::mt19937& random, std::string_view alphabet, size_t longest) {
  std::string text(std::uniform_int_distribution<size_t>(0, longest)(random), '\0');
  std::uniform_int_distribution<size_t> pick(0, alphabet.size() - 1);
  for (char& c : text) c = alphabet[pick(random)];
  return text;
}

// Few letters and many special characters, so that well-formed sets and matches are frequent.
TEST(MatchPattern, AgreesWithThePlainReferenceOnRandomPairs) {
  std::mt19937 random(20240607);
  int wellFormed = 0;
  int matches = 0;
  for (int i = 0; i < kPairs; ++i) {
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
  EXPECT_GT(wellFormed, kPairs / 10);
  EXPECT_LT(wellFormed, kPairs - kPairs / 10);
  EXPECT_GT(matches, kPairs / 100);
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

}  // namespace
}  // namespace workbench
