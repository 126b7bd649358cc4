// The three masks with the workbench's matcher.
#include "src/filter/mask_rules.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string_view>

#include "workbench/app/text/wildcard.h"

namespace file_explorer {
namespace {

bool Matches(const char* pattern, const char* name) {
  return workbench::MatchPattern(pattern, name, true);
}

// Types by the name's end: .3ds 3D, .png bitmap, .svg vector, .avi video, .odd only the bit of no category.
std::uint32_t TypeMask(const char* name) {
  const std::string_view text(name);
  const struct {
    std::string_view end;
    std::uint32_t bits;
  } types[] = {{".3ds", 0x0004}, {".png", 0x0002}, {".svg", 0x0400}, {".avi", 0x0008}, {".odd", 0x0001}};
  for (const auto& type : types) {
    if (text.ends_with(type.end)) return type.bits;
  }
  return 0;
}

bool Shows(const FileMasks& masks, const char* name) {
  return MaskRules(masks).Pass(name, Matches, TypeMask);
}

TEST(MaskRules, WithoutMasksEveryFilePasses) {
  for (const char* name : {"a.3ds", "readme", "", "[x]"}) EXPECT_TRUE(Shows({}, name)) << name;
}

TEST(MaskRules, InclusionAndExclusionActTogether) {
  const FileMasks masks = {"*.3ds", "test*", 0};
  EXPECT_FALSE(Shows(masks, "test1.3ds"));
  EXPECT_TRUE(Shows(masks, "a.3ds"));
  EXPECT_FALSE(Shows(masks, "a.obj"));
}

TEST(MaskRules, IgnoresTheCaseOfLetters) {
  EXPECT_TRUE(Shows({"*.3ds", nullptr, 0}, "MODEL.3DS"));
  EXPECT_FALSE(Shows({nullptr, "TEST*", 0}, "test1.obj"));
}

TEST(MaskRules, AnInclusionListWithoutACurrentPatternHidesEverything) {
  for (const char* list : {"", "|", "||a", "|*.*|*", ",|*"}) {
    EXPECT_FALSE(Shows({list, nullptr, 0}, "a.3ds")) << list;
  }
}

TEST(MaskRules, AnExclusionListWithoutACurrentPatternHidesNothing) {
  for (const char* list : {"", "|", "||a.3ds", "|*"}) EXPECT_TRUE(Shows({nullptr, list, 0}, "a.3ds")) << list;
}

TEST(MaskRules, ExclusionOfEverythingHidesEveryFile) {
  EXPECT_FALSE(Shows({"*.3ds", "*", 0}, "a.3ds"));
  EXPECT_FALSE(Shows({nullptr, "*.*|a", 0}, "name"));
}

TEST(MaskRules, InclusionOfEverythingNeverCallsTheMatcher) {
  int calls = 0;
  const auto counting = [&calls](const char*, const char*) {
    ++calls;
    return false;
  };
  for (const char* list : {"*", "*.*", "*.*|*.3ds"}) {
    EXPECT_TRUE(MaskRules(FileMasks{list, nullptr, 0}).Pass("a", counting, TypeMask)) << list;
  }
  EXPECT_EQ(calls, 0);
}

TEST(MaskRules, TheFirstMaskThatHidesIsTheLastThatIsAsked) {
  int typeQuestions = 0;
  int patternQuestions = 0;
  const auto types = [&](const char*) -> std::uint32_t {
    ++typeQuestions;
    return 0;
  };
  const auto refuses = [&](const char*, const char*) {
    ++patternQuestions;
    return false;
  };
  EXPECT_FALSE(MaskRules(FileMasks{"a", "b", 1}).Pass("name", refuses, types));
  EXPECT_EQ(patternQuestions, 1);
  EXPECT_FALSE(MaskRules(FileMasks{nullptr, "*", 1}).Pass("name", refuses, types));
  EXPECT_EQ(typeQuestions, 0);
  EXPECT_FALSE(MaskRules(FileMasks{nullptr, "b", 1}).Pass("name", refuses, types));
  EXPECT_EQ(patternQuestions, 2);
  EXPECT_EQ(typeQuestions, 1);
  EXPECT_TRUE(MaskRules(FileMasks{nullptr, nullptr, 0}).Pass("name", refuses, types));
  EXPECT_EQ(typeQuestions, 1) << "position 0 needs no type";
}

TEST(MaskRules, PositionsKeepFilesOfTheirType) {
  const struct {
    unsigned position;
    const char* name;
    bool shown;
  } cases[] = {
      {0, "readme", true}, {1, "readme", false}, {1, "a.3ds", true},   {1, "a.odd", true},
      {2, "a.3ds", true},  {2, "a.png", false},  {2, "readme", false}, {3, "a.png", true},
      {4, "a.svg", true},  {4, "a.avi", false},  {5, "a.avi", true},   {11, "a.3ds", false},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(Shows({nullptr, nullptr, test.position}, test.name), test.shown)
        << test.position << " " << test.name;
  }
}

TEST(MaskRules, APositionOutsideTheTableCountsAsShowAll) {
  for (const unsigned position : {12U, 0xFFFFU}) EXPECT_TRUE(Shows({nullptr, nullptr, position}, "readme"));
}

}  // namespace
}  // namespace file_explorer
