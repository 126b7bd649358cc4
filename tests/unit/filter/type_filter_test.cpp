#include "src/filter/type_filter.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

namespace file_explorer {
namespace {

using testing::ElementsAre;

std::vector<std::string> Offered(const std::function<bool(std::uint32_t)>& isRegistered) {
  std::vector<std::string> texts;
  for (const TypeFilter* filter : OfferedTypeFilters(isRegistered)) texts.emplace_back(filter->text);
  return texts;
}

TEST(TypeFilters, HaveTheirTextsAndBitsInOrder) {
  const struct {
    const char* text;
    std::uint32_t mask;
  } rows[] = {
      {"Show all files", 0},
      {"Show only known file types", 0xFFFF},
      {"Show only known 3D object file types", 0x0004},
      {"Show only known 2D bitmap file types", 0x0002},
      {"Show only known 2D vector file types", 0x0400},
      {"Show only known video file types", 0x0008},
      {"Show only known audio file types", 0x0010},
      {"Show only known archive file types", 0x0020},
      {"Show only known text file types", 0x0040},
      {"Show only known spreadsheet file types", 0x0080},
      {"Show only known database file types", 0x0100},
      {"Show only known presentation file types", 0x0200},
  };
  unsigned position = 0;
  for (const auto& row : rows) {
    EXPECT_STREQ(TypeFilters()[position].text, row.text);
    EXPECT_EQ(TypeMaskOfPosition(position), row.mask) << position;
    ++position;
  }
  EXPECT_EQ(position, TypeFilters().size());
}

TEST(TypeFilters, OfferTheFirstFourAlways) {
  EXPECT_THAT(Offered([](std::uint32_t) { return false; }),
              ElementsAre("Show all files", "Show only known file types",
                          "Show only known 3D object file types", "Show only known 2D bitmap file types"));
}

TEST(TypeFilters, OfferEverythingWhenAllIsRegistered) {
  EXPECT_EQ(Offered([](std::uint32_t) { return true; }).size(), 12U);
}

TEST(TypeFilters, ALeftOutChoiceMovesTheOthersUpAndTheirPlaceCountsDeliberately) {
  const auto offered = OfferedTypeFilters([](std::uint32_t bit) { return bit != 0x0400; });
  ASSERT_EQ(offered.size(), 11U);
  EXPECT_STREQ(offered[4]->text, "Show only known video file types");
  EXPECT_EQ(TypeMaskOfPosition(4), 0x0400U);  // the place's row, not the video bit
}

TEST(TypeFilters, APositionOutsideTheTableTestsNothing) {
  for (const unsigned position : {12U, 13U, 100U, 0x7FFFU, 0xFFFFU}) {
    EXPECT_EQ(TypeMaskOfPosition(position), 0U) << position;
  }
}

}  // namespace
}  // namespace file_explorer
