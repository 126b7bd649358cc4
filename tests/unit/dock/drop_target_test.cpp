#include "workbench/app/layout/drop_target.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

// Left pane 0..200, document 205..1000, bottom pane below 400.
class DropTargetTest : public testing::Test {
 protected:
  DropTargetTest() {
    left_ = Add(Area::Left);
    bottom_ = Add(Area::Bottom);
    model_.SetExtent(Side::Left, 200);
    model_.SetExtent(Side::Bottom, 200);
    arrangement_ = Arrange(model_, {0, 0, 1000, 600}, DockMetrics());
  }

  GroupId Add(Area area) {
    DockItem item;
    item.sharesPlace = false;
    const ItemId id = model_.Add(item, area, -1, -1);
    model_.SetVisible(id, true);
    return model_.GroupOf(id)->id;
  }

  DropTarget At(int x, int y, GroupId dragged = 0, bool whole = true) const {
    return FindDropTarget(model_, arrangement_, {x, y}, dragged, whole, 20);
  }

  DockModel model_;
  GroupId left_ = 0;
  GroupId bottom_ = 0;
  Arrangement arrangement_;
};

TEST_F(DropTargetTest, OutsideTheWindowItFloats) {
  for (const auto& [x, y] : {std::pair{-1, 300}, {1000, 300}, {500, -1}, {500, 600}, {-5000, 9000}}) {
    EXPECT_TRUE(At(x, y).floats);
    EXPECT_EQ(At(x, y).place.area, Area::Floating);
  }
}

TEST_F(DropTargetTest, TheOuterBandsDockAtTheWholeSide) {
  EXPECT_EQ(At(5, 300).place.area, Area::Left);
  EXPECT_EQ(At(995, 300).place.area, Area::Right);
  EXPECT_EQ(At(500, 5).place.area, Area::Top);
  EXPECT_EQ(At(600, 595).place.area, Area::Bottom);
  EXPECT_EQ(At(995, 300).place.joins, 0);
  EXPECT_EQ(At(995, 300).preview, (Rect{700, 0, 1000, 600}));
}

TEST_F(DropTargetTest, TheMiddleOfAPaneMakesATabItsEndsANewPlace) {
  EXPECT_EQ(At(100, 300).place.joins, left_);
  EXPECT_EQ(At(100, 300).preview, (Rect{0, 0, 200, 600}));
  EXPECT_EQ(At(100, 60).place.before, left_);
  EXPECT_EQ(At(100, 540).place.after, left_);
  EXPECT_EQ(At(100, 540).preview, (Rect{0, 300, 200, 600}));
  EXPECT_EQ(At(600, 500).place.joins, bottom_);
  EXPECT_EQ(At(260, 500).place.before, bottom_);
}

TEST_F(DropTargetTest, AGroupIsNoTargetForItself) {
  EXPECT_TRUE(At(100, 300, left_).floats);
  EXPECT_TRUE(At(100, 60, left_).floats);
  EXPECT_TRUE(At(100, 300, left_, false).floats);
  EXPECT_EQ(At(100, 60, left_, false).place.before, left_);
}

TEST_F(DropTargetTest, TheMiddleOfTheDocumentAreaMakesADocumentTab) {
  EXPECT_EQ(At(600, 200).place.area, Area::Document);
  EXPECT_EQ(At(600, 200).preview, arrangement_.document);
  EXPECT_EQ(At(260, 200).place.area, Area::Left);
  EXPECT_EQ(At(940, 200).place.area, Area::Right);
  EXPECT_EQ(At(600, 370).place.area, Area::Bottom);
}

TEST_F(DropTargetTest, EveryPointOfTheWindowHasATarget) {
  for (int x = 0; x < 1000; x += 7) {
    for (int y = 0; y < 600; y += 7) {
      const DropTarget target = At(x, y);
      if (target.floats) continue;  // on a bar
      EXPECT_FALSE(target.preview.empty()) << x << "," << y;
      EXPECT_GE(target.preview.left, 0);
      EXPECT_LE(target.preview.right, 1000);
      EXPECT_LE(target.preview.bottom, 600);
    }
  }
}

}  // namespace
}  // namespace workbench
