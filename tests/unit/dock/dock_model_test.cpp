#include "workbench/app/layout/dock_model.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ItemId AddShown(DockModel& model, Area area, bool sharesPlace = true, int slot = -1, int order = -1) {
  DockItem item;
  item.sharesPlace = sharesPlace;
  const ItemId id = model.Add(item, area, slot, order);
  model.SetVisible(id, true);
  return id;
}

std::vector<ItemId> ItemsOf(const DockModel& model, ItemId item) {
  return model.GroupOf(item)->items;
}

TEST(DockModel, WindowsThatShareTheirPlaceBecomeTabsOfOneGroup) {
  DockModel model;
  const ItemId first = AddShown(model, Area::Bottom);
  const ItemId second = AddShown(model, Area::Bottom);
  EXPECT_THAT(ItemsOf(model, first), ElementsAre(first, second));
  EXPECT_EQ(model.FrontItem(*model.GroupOf(first)), first);
}

TEST(DockModel, WindowsOfTheirOwnPlaceGetAGroupEach) {
  DockModel model;
  const ItemId alone = AddShown(model, Area::Left, false);
  const ItemId other = AddShown(model, Area::Left, false);
  const ItemId sharing = AddShown(model, Area::Left, true);
  EXPECT_EQ(model.GroupsIn(Area::Left).size(), 3u);
  EXPECT_THAT(ItemsOf(model, alone), ElementsAre(alone));
  EXPECT_THAT(ItemsOf(model, other), ElementsAre(other));
  EXPECT_THAT(ItemsOf(model, sharing), ElementsAre(sharing));
}

TEST(DockModel, EachFloatingWindowFloatsByItself) {
  DockModel model;
  AddShown(model, Area::Floating);
  AddShown(model, Area::Floating);
  EXPECT_EQ(model.GroupsIn(Area::Floating).size(), 2u);
}

TEST(DockModel, RememberedPlacesHoldWhateverOrderTheWindowsComeIn) {
  DockModel model;
  const ItemId lastGroup = AddShown(model, Area::Bottom, true, 2, 0);
  const ItemId secondTab = AddShown(model, Area::Bottom, true, 0, 1);
  const ItemId firstTab = AddShown(model, Area::Bottom, true, 0, 0);
  const auto groups = model.GroupsIn(Area::Bottom);
  ASSERT_EQ(groups.size(), 2u);
  EXPECT_THAT(groups[0]->items, ElementsAre(firstTab, secondTab));
  EXPECT_THAT(groups[1]->items, ElementsAre(lastGroup));
}

TEST(DockModel, RemovingTheLastWindowRemovesTheGroup) {
  DockModel model;
  const ItemId item = AddShown(model, Area::Top);
  model.Remove(item);
  model.Remove(item);
  model.Remove(12345);
  EXPECT_THAT(model.groups(), IsEmpty());
  EXPECT_EQ(model.GroupOf(item), nullptr);
}

TEST(DockModel, RemovingTheFrontTabBringsAnotherOneToTheFront) {
  DockModel model;
  const ItemId first = AddShown(model, Area::Bottom);
  const ItemId second = AddShown(model, Area::Bottom);
  model.Activate(second);
  model.Remove(second);
  EXPECT_EQ(model.FrontItem(*model.GroupOf(first)), first);
}

TEST(DockModel, AHiddenFrontTabGivesWayAndComesBack) {
  DockModel model;
  const ItemId first = AddShown(model, Area::Bottom);
  const ItemId second = AddShown(model, Area::Bottom);
  EXPECT_TRUE(model.SetVisible(first, false));
  EXPECT_FALSE(model.SetVisible(first, false));
  EXPECT_EQ(model.FrontItem(*model.GroupOf(first)), second);
  model.SetVisible(first, true);
  EXPECT_EQ(model.FrontItem(*model.GroupOf(first)), first);
  model.SetVisible(first, false);
  model.SetVisible(second, false);
  EXPECT_EQ(model.FrontItem(*model.GroupOf(first)), 0);
}

TEST(DockModel, MovingOneTabLeavesTheOthersWhereTheyAre) {
  DockModel model;
  const ItemId first = AddShown(model, Area::Bottom);
  const ItemId second = AddShown(model, Area::Bottom);
  DockTarget target;
  target.area = Area::Right;
  EXPECT_TRUE(model.MoveItem(first, target));
  EXPECT_EQ(model.GroupOf(first)->area, Area::Right);
  EXPECT_EQ(model.GroupOf(second)->area, Area::Bottom);
  EXPECT_EQ(model.FrontItem(*model.GroupOf(second)), second);
}

TEST(DockModel, MovingAGroupMovesAllItsTabs) {
  DockModel model;
  const ItemId first = AddShown(model, Area::Bottom);
  const ItemId second = AddShown(model, Area::Bottom);
  const ItemId other = AddShown(model, Area::Left);
  DockTarget target;
  target.area = Area::Left;
  target.joins = model.GroupOf(other)->id;
  EXPECT_TRUE(model.MoveGroup(model.GroupOf(first)->id, target));
  EXPECT_THAT(ItemsOf(model, other), ElementsAre(other, first, second));
  EXPECT_THAT(model.GroupsIn(Area::Bottom), IsEmpty());
}

TEST(DockModel, ANewPlaceBesideAGroupKeepsTheOrder) {
  DockModel model;
  const ItemId first = AddShown(model, Area::Left, false);
  const ItemId second = AddShown(model, Area::Left, false);
  const ItemId moved = AddShown(model, Area::Bottom);
  DockTarget target;
  target.area = Area::Left;
  target.after = model.GroupOf(first)->id;
  EXPECT_TRUE(model.MoveItem(moved, target));
  const auto groups = model.GroupsIn(Area::Left);
  ASSERT_EQ(groups.size(), 3u);
  EXPECT_THAT(groups[1]->items, ElementsAre(moved));
  EXPECT_EQ(model.IndexInArea(model.GroupOf(second)->id), 2);
  target.after = 0;
  target.before = model.GroupOf(first)->id;
  EXPECT_TRUE(model.MoveItem(moved, target));
  EXPECT_EQ(model.IndexInArea(model.GroupOf(moved)->id), 0);
}

TEST(DockModel, MovesToPlacesThatDoNotExistChangeNothing) {
  DockModel model;
  const ItemId item = AddShown(model, Area::Bottom);
  const GroupId group = model.GroupOf(item)->id;
  DockTarget target;
  target.area = Area::Left;
  target.joins = 999;
  EXPECT_FALSE(model.MoveItem(item, target));
  target.joins = group;
  EXPECT_FALSE(model.MoveItem(item, target));
  EXPECT_FALSE(model.MoveGroup(999, {}));
  EXPECT_FALSE(model.MoveItem(999, {}));
  EXPECT_EQ(model.GroupOf(item)->area, Area::Bottom);
}

TEST(DockModel, OnlyGroupsAtASideCollapse) {
  DockModel model;
  const ItemId docked = AddShown(model, Area::Bottom);
  const ItemId floating = AddShown(model, Area::Floating);
  const ItemId document = AddShown(model, Area::Document);
  EXPECT_TRUE(model.SetPinned(model.GroupOf(docked)->id, false));
  EXPECT_FALSE(model.SetPinned(model.GroupOf(docked)->id, false));
  EXPECT_FALSE(model.SetPinned(model.GroupOf(floating)->id, false));
  EXPECT_FALSE(model.SetPinned(model.GroupOf(document)->id, false));
  EXPECT_FALSE(model.SetPinned(999, false));
}

TEST(DockModel, AMovedGroupIsPinnedAgain) {
  DockModel model;
  const ItemId item = AddShown(model, Area::Bottom);
  model.SetPinned(model.GroupOf(item)->id, false);
  DockTarget target;
  target.area = Area::Floating;
  target.floating = {10, 20, 310, 220};
  EXPECT_TRUE(model.MoveItem(item, target));
  EXPECT_TRUE(model.GroupOf(item)->pinned);
  EXPECT_EQ(model.GroupOf(item)->floating, (Rect{10, 20, 310, 220}));
}

TEST(DockModel, AFloatingPlaceIsRememberedWhileDocked) {
  DockModel model;
  const ItemId item = AddShown(model, Area::Floating);
  model.FindGroup(model.GroupOf(item)->id)->floating = {1, 2, 3, 4};
  DockTarget target;
  target.area = Area::Left;
  model.MoveItem(item, target);
  EXPECT_EQ(model.GroupOf(item)->floating, (Rect{1, 2, 3, 4}));
}

}  // namespace
}  // namespace workbench
