#include "workbench/app/layout/placement_text.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TEST(PlacementText, WhatIsWrittenIsReadBack) {
  Placement placement;
  placement.area = Area::Right;
  placement.slot = 2;
  placement.order = 3;
  placement.extent = 417;
  placement.weight = 250;
  placement.pinned = false;
  placement.front = false;
  placement.requestedMethod = 4;
  placement.requestedPosition = 1;
  placement.floating = {-100, 50, 300, 400};
  EXPECT_EQ(ReadPlacement(WritePlacement(placement)), placement);
  EXPECT_EQ(ReadPlacement(WritePlacement(Placement())), Placement());
}

TEST(PlacementText, EveryAreaHasAName) {
  for (const Area area : {Area::Left, Area::Right, Area::Top, Area::Bottom, Area::Document}) {
    Placement placement;
    placement.area = area;
    const auto read = ReadPlacement(WritePlacement(placement));
    ASSERT_TRUE(read.has_value());
    EXPECT_EQ(read->area, area);
  }
}

TEST(PlacementText, MissingPartsHaveTheirDefaultsAndUnknownOnesAreSkipped) {
  const auto read = ReadPlacement("  area=left  colour=green size=99 ");
  ASSERT_TRUE(read.has_value());
  EXPECT_EQ(read->area, Area::Left);
  EXPECT_EQ(read->extent, 99);
  EXPECT_EQ(read->weight, Placement().weight);
}

TEST(PlacementText, DamagedTextIsRefusedAsAWhole) {
  const char* const texts[] = {
      "",
      "   ",
      "group=1 tab=0",
      "area=",
      "area=middle",
      "area=Left",
      "area=left size",
      "area=left size=",
      "area=left size=abc",
      "area=left size=12px",
      "area=left size=0",
      "area=left size=-5",
      "area=left size=99999999999999999999",
      "area=left group=-1",
      "area=left expanded=2",
      "area=left share=0",
      "area=left float=1,2,3",
      "area=left float=1,2,3,4,5",
      "area=left float=1,,3,4",
      "area=left float=a,2,3,4",
      "area=left float=99999,2,3,4",
      "area=floating",
      "area=floating float=10,10,10,10",
      "area=left size=+5",
      "area=left\tsize=5",
      "\xff\xfe\x00",
  };
  for (const char* text : texts) EXPECT_EQ(ReadPlacement(text), std::nullopt) << "\"" << text << "\"";
}

TEST(PlacementText, AVeryLongTextIsReadOrRefusedWithoutHarm) {
  std::string text = "area=left";
  for (int i = 0; i < 20000; ++i) text += " size=300";
  ASSERT_TRUE(ReadPlacement(text).has_value());
  EXPECT_EQ(ReadPlacement(text + std::string(100000, '=')), std::nullopt);
}

TEST(PlacementText, NumbersAreTakenWhole) {
  EXPECT_EQ(ReadNumber("42"), 42);
  EXPECT_EQ(ReadNumber("-7"), -7);
  EXPECT_EQ(ReadNumber(""), std::nullopt);
  EXPECT_EQ(ReadNumber(" 4"), std::nullopt);
  EXPECT_EQ(ReadNumber("4 "), std::nullopt);
}

}  // namespace
}  // namespace workbench
