#include "workbench/app/layout/tab_layout.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace workbench {
namespace {

using testing::ElementsAre;

TEST(TabLayout, TabsThatFitHaveTheLengthTheyWant) {
  EXPECT_THAT(LayOutTabs({50, 80, 60}, 400, 30).offsets, ElementsAre(0, 50, 130, 190));
  EXPECT_THAT(LayOutTabs({50, 80, 60}, 190, 30).offsets, ElementsAre(0, 50, 130, 190));
}

TEST(TabLayout, TheLongestTabsAreShortenedFirst) {
  EXPECT_THAT(LayOutTabs({40, 300, 200}, 240, 30).offsets, ElementsAre(0, 40, 140, 240));
}

TEST(TabLayout, NoTabIsShorterThanTheSmallestLength) {
  EXPECT_THAT(LayOutTabs({100, 100, 100}, 50, 36).offsets, ElementsAre(0, 36, 72, 108));
  EXPECT_THAT(LayOutTabs({5}, 100, 36).offsets, ElementsAre(0, 36));
}

TEST(TabLayout, DegenerateInputGivesALayoutAllTheSame) {
  EXPECT_EQ(LayOutTabs({}, 100, 36).count(), 0);
  EXPECT_THAT(LayOutTabs({10, 10}, 0, 0).offsets, ElementsAre(0, 1, 2));
  EXPECT_THAT(LayOutTabs({-5, 10}, -7, -3).offsets, ElementsAre(0, 1, 2));
}

TEST(TabLayout, AThousandTabsStayInOrder) {
  const TabLayout layout = LayOutTabs(std::vector<int>(1000, 120), 40000, 30);
  EXPECT_EQ(layout.count(), 1000);
  EXPECT_EQ(layout.start(999), 999 * 40);
  EXPECT_EQ(TabAt(layout, 999 * 40), 999);
}

TEST(TabLayout, FindsTheTabUnderAnOffset) {
  const TabLayout layout = LayOutTabs({50, 80}, 400, 30);
  EXPECT_EQ(TabAt(layout, -1), -1);
  EXPECT_EQ(TabAt(layout, 0), 0);
  EXPECT_EQ(TabAt(layout, 49), 0);
  EXPECT_EQ(TabAt(layout, 50), 1);
  EXPECT_EQ(TabAt(layout, 129), 1);
  EXPECT_EQ(TabAt(layout, 130), -1);
  EXPECT_EQ(TabAt(TabLayout(), 0), -1);
}

}  // namespace
}  // namespace workbench
