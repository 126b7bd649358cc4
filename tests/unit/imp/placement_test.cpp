#include "workbench/imp/placement.h"

#include <gtest/gtest.h>

namespace workbench::imp {
namespace {

constexpr Box kScreen = {0, 0, 1600, 1000};

void ExpectCorner(const Box& window, const Box& around, const Box& workArea, int x, int y) {
  const Point corner = CenteredCorner(window, around, workArea);
  EXPECT_EQ(corner.x, x);
  EXPECT_EQ(corner.y, y);
}

TEST(CenteredCorner, IsInTheMiddleWhereverTheWindowWas) {
  ExpectCorner({900, 900, 1100, 1000}, {100, 100, 700, 500}, kScreen, 300, 250);
  ExpectCorner({0, 0, 201, 101}, {0, 0, 400, 200}, kScreen, 99, 49);
}

TEST(CenteredCorner, StaysInsideTheWorkArea) {
  ExpectCorner({0, 0, 400, 300}, {-300, -200, 100, 0}, kScreen, 0, 0);
  ExpectCorner({0, 0, 400, 300}, {1500, 900, 1900, 1200}, kScreen, 1200, 700);
}

TEST(CenteredCorner, AWindowLargerThanTheWorkAreaShowsItsTitleBar) {
  ExpectCorner({0, 0, 2000, 1200}, kScreen, kScreen, 0, 0);
}

TEST(CenteredCorner, WorksOnAMonitorLeftOfTheFirst) {
  ExpectCorner({0, 0, 100, 100}, {-1000, 100, -600, 500}, {-1600, 0, 0, 1000}, -850, 250);
}

}  // namespace
}  // namespace workbench::imp
