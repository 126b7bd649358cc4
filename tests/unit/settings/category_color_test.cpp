#include <gtest/gtest.h>

#include "src/filter/file_category.h"

namespace file_explorer {
namespace {

TEST(CategoryColor, IsWrittenAsThreeNumbersWithSingleBlanks) {
  EXPECT_EQ(FormatCategoryColor({0.5F, 1.0F, 0.0F}), "0.5 1 0");
  EXPECT_EQ(FormatCategoryColor({0.333333F, 1e-7F, 1e9F}), "0.333333 1e-07 1e+09");
}

TEST(CategoryColor, ReadsWhatItWrote) {
  const CategoryColor color = {0.25F, 0.75F, 0.125F};
  CategoryColor read;
  ParseCategoryColor(FormatCategoryColor(color), &read);
  EXPECT_EQ(read, color);
}

TEST(CategoryColor, EmptyTextKeepsTheColour) {
  CategoryColor color = {0.1F, 0.2F, 0.3F};
  ParseCategoryColor("", &color);
  EXPECT_EQ(color, (CategoryColor{0.1F, 0.2F, 0.3F}));
}

TEST(CategoryColor, TwoNumbersKeepTheOldBlue) {
  CategoryColor color = {0.1F, 0.2F, 0.3F};
  ParseCategoryColor("0.5 0.25", &color);
  EXPECT_EQ(color, (CategoryColor{0.5F, 0.25F, 0.3F}));
}

TEST(CategoryColor, TextForANumberKeepsItAndWhatFollows) {
  CategoryColor color = {0.1F, 0.2F, 0.3F};
  ParseCategoryColor("1 red 1", &color);
  EXPECT_EQ(color, (CategoryColor{1.0F, 0.2F, 0.3F}));
  ParseCategoryColor("blue", &color);
  EXPECT_EQ(color, (CategoryColor{1.0F, 0.2F, 0.3F}));
}

TEST(FileCategories, StandInTheOrderOfTheirSlotsWithTheirBits) {
  constexpr std::uint32_t kBits[] = {4, 2, 1024, 64, 32, 8, 16, 128, 256, 512};
  for (int i = 0; i < kFileCategoryCount; ++i) {
    EXPECT_EQ(static_cast<int>(FileCategories()[static_cast<size_t>(i)].category), i);
    EXPECT_EQ(FileCategories()[static_cast<size_t>(i)].typeBit, kBits[i]);
  }
}

TEST(FileCategories, KeepTheCapitalsOfTheirLabelsAndKeysDeliberately) {
  EXPECT_STREQ(FileCategories()[2].label, "2D Vector files");
  EXPECT_STREQ(FileCategories()[2].colorKey, "default_color_2D_vector_files");
  EXPECT_STREQ(FileCategories()[1].label, "2D bitmap files");
}

}  // namespace
}  // namespace file_explorer
