#include "src/filter/stored_mask.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr MaskKind kIn = MaskKind::Inclusion;
constexpr MaskKind kEx = MaskKind::Exclusion;

bool AllValid(const std::string&, std::string*) {
  return true;
}

bool NoBrackets(const std::string& pattern, std::string* reason) {
  if (pattern.find('[') == std::string::npos) return true;
  *reason = "a bracket";
  return false;
}

std::optional<std::string> Stored(MaskKind kind, const char* text,
                                  const std::vector<std::string>& entries = {}) {
  const StoredMask mask = MakeStoredMask(kind, text, entries, AllValid);
  EXPECT_EQ(mask.complaint, "");
  return mask.text;
}

std::string Complaint(MaskKind kind, const char* text) {
  const StoredMask mask = MakeStoredMask(kind, text, {"a"}, NoBrackets);
  EXPECT_EQ(mask.text, std::nullopt);
  return mask.complaint;
}

TEST(ContentsOfMaskBox, WithoutAListInclusionShowsEverythingAndExclusionNothing) {
  const MaskBoxContents inclusion = ContentsOfMaskBox(kIn, nullptr, false);
  EXPECT_EQ(inclusion.editText, "*.*");
  EXPECT_THAT(inclusion.entries, IsEmpty());
  const MaskBoxContents exclusion = ContentsOfMaskBox(kEx, nullptr, false);
  EXPECT_EQ(exclusion.editText, "");
  EXPECT_THAT(exclusion.entries, ElementsAre(""));
}

TEST(ContentsOfMaskBox, TheFirstListIsTheTextAndEveryListAnEntry) {
  for (const MaskKind kind : {kIn, kEx}) {
    const MaskBoxContents contents = ContentsOfMaskBox(kind, "*.3ds,*.obj|a*|b", false);
    EXPECT_EQ(contents.editText, "*.3ds,*.obj");
    EXPECT_THAT(contents.entries, ElementsAre("*.3ds,*.obj", "a*", "b"));
  }
}

TEST(ContentsOfMaskBox, AnExclusionThatBeginsWithABarHasAnEmptyCurrentPart) {
  const MaskBoxContents contents = ContentsOfMaskBox(kEx, "||a|b", false);
  EXPECT_EQ(contents.editText, "");
  EXPECT_THAT(contents.entries, ElementsAre("a", "b"));
  const MaskBoxContents bar = ContentsOfMaskBox(kEx, "|", false);
  EXPECT_EQ(bar.editText, "");
  EXPECT_THAT(bar.entries, ElementsAre(""));
}

TEST(ContentsOfMaskBox, AnInclusionPassesOverBarsAtItsStart) {
  const MaskBoxContents contents = ContentsOfMaskBox(kIn, "||a|b", false);
  EXPECT_EQ(contents.editText, "a");
  EXPECT_THAT(contents.entries, ElementsAre("a", "b"));
}

TEST(ContentsOfMaskBox, RunsOfBarsAreOne) {
  EXPECT_THAT(ContentsOfMaskBox(kIn, "a|||b||", false).entries, ElementsAre("a", "b"));
}

TEST(ContentsOfMaskBox, ResetStartsTheTextAfreshAndKeepsTheHistory) {
  const MaskBoxContents inclusion = ContentsOfMaskBox(kIn, "a|b", true);
  EXPECT_EQ(inclusion.editText, "*.*");
  EXPECT_THAT(inclusion.entries, ElementsAre("a", "b"));
  const MaskBoxContents exclusion = ContentsOfMaskBox(kEx, "a|b", true);
  EXPECT_EQ(exclusion.editText, "");
  EXPECT_THAT(exclusion.entries, ElementsAre("a", "b"));
}

TEST(ContentsOfMaskBox, AnEmptyInclusionThatIsThereLeavesTheText) {
  const MaskBoxContents contents = ContentsOfMaskBox(kIn, "", false);
  EXPECT_EQ(contents.editText, std::nullopt);
  EXPECT_THAT(contents.entries, IsEmpty());
}

TEST(MakeStoredMask, JoinsThePatternsWithoutBlanksAndEmptyPieces) {
  EXPECT_EQ(Stored(kIn, " *.3ds ,, *.obj , "), "*.3ds,*.obj");
  EXPECT_EQ(Stored(kIn, " *.3ds ,, *.obj , ", {"x", "y"}), "*.3ds,*.obj|x|y");
  EXPECT_EQ(Stored(kEx, "\t*.3ds,\t,a b"), "*.3ds,a b");
}

TEST(MakeStoredMask, AnEmptyInclusionBecomesEverything) {
  EXPECT_EQ(Stored(kIn, ""), "*.*");
  EXPECT_EQ(Stored(kIn, " \t ", {"*.*", "a"}), "*.*|a");
}

TEST(MakeStoredMask, AnEmptyExclusionIsWrittenAsABar) {
  EXPECT_EQ(Stored(kEx, ""), "|");
  EXPECT_EQ(Stored(kEx, "  ", {"a", "b"}), "||a|b");
}

TEST(MakeStoredMask, WhatIsTheCurrentPartIsNotItsOwnHistory) {
  EXPECT_EQ(Stored(kIn, "b", {"a", "b", "c"}), "b|a|c");
  EXPECT_EQ(Stored(kIn, "b", {" b ", "B"}), "b|B");
}

TEST(MakeStoredMask, EntriesLoseTheirBlanks) {
  EXPECT_EQ(Stored(kIn, "x", {" a ", "\tb"}), "x|a|b");
}

TEST(MakeStoredMask, AnEmptyEntryEndsTheWalkDeliberately) {
  EXPECT_EQ(Stored(kIn, "x", {"a", " ", "b"}), "x|a");
  EXPECT_EQ(Stored(kEx, "", {"", "a", "b"}), "|");
}

TEST(MakeStoredMask, OnlyTwentyEntriesCount) {
  std::vector<std::string> entries;
  std::string expected = "x";
  for (int i = 1; i <= 21; ++i) {
    entries.push_back("e" + std::to_string(i));
    if (i <= 20) expected += "|e" + std::to_string(i);
  }
  EXPECT_EQ(Stored(kIn, "x", entries), expected);
  // One that equals the current part is not written, but counts.
  expected.resize(expected.rfind('|'));
  entries.insert(entries.begin() + 3, "x");
  EXPECT_EQ(Stored(kIn, "x", entries), expected);
}

TEST(MakeStoredMask, CommasAloneAreAnEmptyList) {
  EXPECT_EQ(Stored(kIn, " , ,"), "*.*");
  EXPECT_EQ(Stored(kIn, ",", {"a", "b"}), "*.*|a|b");
  EXPECT_EQ(Stored(kEx, ","), "|");
  EXPECT_EQ(Stored(kEx, " ,, ,", {"a", "b"}), "||a|b");
}

TEST(MakeStoredMask, ABarInAPatternIsRefused) {
  EXPECT_EQ(Complaint(kIn, "a|b"),
            "The 'inclusion' pattern matching string is not allowed to have a '|' character. Please remove "
            "'|' from "
            "the type-in box or press the Reset button.");
  EXPECT_EQ(Complaint(kEx, "ok, a|b"),
            "The 'exclusion' pattern matching string is not allowed to have a '|' character. Please remove "
            "'|' from "
            "the type-in box or press the Reset button.");
}

TEST(MakeStoredMask, AnIllFormedPatternIsRefusedWithItsReason) {
  EXPECT_EQ(
      Complaint(kIn, "ok,["),
      "The 'inclusion' pattern matching string is invalid: a bracket.\n\nPlease correct or press the 'Reset' "
      "button.");
  EXPECT_EQ(
      Complaint(kEx, "["),
      "The 'exclusion' pattern matching string is invalid: a bracket.\n\nPlease correct or press the 'Reset' "
      "button.");
}

TEST(MakeStoredMask, TheFirstPatternThatIsRefusedIsTheOneThatIsTold) {
  EXPECT_NE(Complaint(kIn, "[,a|b").find("is invalid"), std::string::npos);
  EXPECT_NE(Complaint(kIn, "a|b,[").find("not allowed"), std::string::npos);
  EXPECT_NE(Complaint(kIn, "[|").find("not allowed"), std::string::npos) << "the bar counts first";
}

TEST(MakeStoredMask, WhatItMakesShowsAgainWhatWasTyped) {
  const struct {
    MaskKind kind;
    const char* text;
    std::vector<std::string> entries;
  } cases[] = {
      {kIn, "a,b", {"c"}}, {kIn, "*.*", {}}, {kEx, "", {"c", "d"}}, {kEx, "", {}}, {kEx, "x", {"x", "y"}}};
  for (const auto& test : cases) {
    const auto stored = Stored(test.kind, test.text, test.entries);
    ASSERT_TRUE(stored);
    const MaskBoxContents contents = ContentsOfMaskBox(test.kind, stored->c_str(), false);
    EXPECT_EQ(contents.editText, test.text) << *stored;
    EXPECT_EQ(Stored(test.kind, contents.editText->c_str(), contents.entries), stored)
        << "the second time too";
  }
}

}  // namespace
}  // namespace file_explorer
