#include "workbench/app/layout/arrange.h"

#include <gtest/gtest.h>

#include <string>

namespace workbench {
namespace {

const DockMetrics kMetrics;  // splitter 5, edge strip 26, pane 60, document 80

struct Scene {
  DockModel model;

  ItemId Add(Area area, bool sharesPlace = false) {
    DockItem item;
    item.sharesPlace = sharesPlace;
    const ItemId id = model.Add(item, area, -1, -1);
    model.SetVisible(id, true);
    return id;
  }
  GroupId GroupId_(ItemId item) const { return model.GroupOf(item)->id; }
  Arrangement At(int width, int height) const { return Arrange(model, {0, 0, width, height}, kMetrics); }
  Rect PaneOf(const Arrangement& arrangement, ItemId item) const {
    const GroupPlace* pane = arrangement.FindPane(GroupId_(item));
    return pane == nullptr ? Rect{} : pane->rect;
  }
};

TEST(Arrange, AnEmptyLayoutIsAllDocument) {
  const Scene scene;
  const Arrangement arrangement = scene.At(800, 600);
  EXPECT_EQ(arrangement.document, (Rect{0, 0, 800, 600}));
  EXPECT_TRUE(arrangement.panes.empty());
  EXPECT_TRUE(arrangement.splitters.empty());
}

TEST(Arrange, EachSideTakesItsExtentAndABar) {
  struct Row {
    Area area;
    Rect pane, bar, document;
  };
  const Row rows[] = {
      {Area::Left, {0, 0, 200, 600}, {200, 0, 205, 600}, {205, 0, 800, 600}},
      {Area::Right, {600, 0, 800, 600}, {595, 0, 600, 600}, {0, 0, 595, 600}},
      {Area::Top, {0, 0, 800, 200}, {0, 200, 800, 205}, {0, 205, 800, 600}},
      {Area::Bottom, {0, 400, 800, 600}, {0, 395, 800, 400}, {0, 0, 800, 395}},
  };
  for (const Row& row : rows) {
    Scene scene;
    const ItemId item = scene.Add(row.area);
    scene.model.SetExtent(SideOf(row.area), 200);
    const Arrangement arrangement = scene.At(800, 600);
    SCOPED_TRACE(static_cast<int>(row.area));
    EXPECT_EQ(scene.PaneOf(arrangement, item), row.pane);
    ASSERT_EQ(arrangement.splitters.size(), 1u);
    EXPECT_EQ(arrangement.splitters[0].rect, row.bar);
    EXPECT_EQ(arrangement.splitters[0].movesSideways(), IsVertical(SideOf(row.area)));
    EXPECT_EQ(arrangement.document, row.document);
  }
}

TEST(Arrange, LeftAndRightTakeTheCorners) {
  Scene scene;
  const ItemId left = scene.Add(Area::Left);
  const ItemId bottom = scene.Add(Area::Bottom);
  scene.model.SetExtent(Side::Left, 300);
  scene.model.SetExtent(Side::Bottom, 270);
  const Arrangement arrangement = scene.At(1000, 600);
  EXPECT_EQ(scene.PaneOf(arrangement, left), (Rect{0, 0, 300, 600}));
  EXPECT_EQ(scene.PaneOf(arrangement, bottom), (Rect{305, 330, 1000, 600}));
}

TEST(Arrange, GroupsOfASideShareItsLengthByWeight) {
  Scene scene;
  const ItemId first = scene.Add(Area::Left);
  const ItemId second = scene.Add(Area::Left);
  scene.model.FindGroup(scene.GroupId_(first))->weight = 1000;
  scene.model.FindGroup(scene.GroupId_(second))->weight = 3000;
  const Arrangement arrangement = scene.At(800, 405);
  EXPECT_EQ(scene.PaneOf(arrangement, first).height(), 100);
  EXPECT_EQ(scene.PaneOf(arrangement, second).height(), 300);
  EXPECT_EQ(scene.PaneOf(arrangement, second).bottom, 405);
}

TEST(Arrange, HiddenAndCollapsedGroupsTakeNoRoom) {
  Scene scene;
  const ItemId hidden = scene.Add(Area::Left);
  scene.model.SetVisible(hidden, false);
  const ItemId collapsed = scene.Add(Area::Bottom);
  scene.model.SetPinned(scene.GroupId_(collapsed), false);
  const Arrangement arrangement = scene.At(800, 600);
  EXPECT_TRUE(arrangement.panes.empty());
  ASSERT_NE(arrangement.FindEdge(Side::Bottom), nullptr);
  EXPECT_EQ(arrangement.FindEdge(Side::Bottom)->rect, (Rect{0, 574, 800, 600}));
  EXPECT_EQ(arrangement.FindEdge(Side::Left), nullptr);
  EXPECT_EQ(arrangement.document, (Rect{0, 0, 800, 574}));
}

TEST(Arrange, APoppedOutGroupCoversTheContentBesideItsEdge) {
  Scene scene;
  const ItemId item = scene.Add(Area::Bottom);
  scene.model.SetExtent(Side::Bottom, 200);
  scene.model.SetPinned(scene.GroupId_(item), false);
  const Arrangement arrangement = scene.At(800, 600);
  EXPECT_EQ(PopOutRect(scene.model, arrangement, scene.GroupId_(item), kMetrics), (Rect{0, 374, 800, 574}));
  EXPECT_EQ(PopOutRect(scene.model, arrangement, 999, kMetrics), Rect{});
}

TEST(Arrange, SidesShrinkInProportionBeforeTheDocumentGoes) {
  Scene scene;
  const ItemId left = scene.Add(Area::Left);
  const ItemId right = scene.Add(Area::Right);
  scene.model.SetExtent(Side::Left, 600);
  scene.model.SetExtent(Side::Right, 300);
  const Arrangement arrangement = scene.At(690, 400);
  EXPECT_EQ(scene.PaneOf(arrangement, left).width(), 400);
  EXPECT_EQ(scene.PaneOf(arrangement, right).width(), 200);
  EXPECT_EQ(arrangement.document.width(), 80);
  // The wish stays: with more room both sides are as wide as asked for.
  EXPECT_EQ(scene.PaneOf(scene.At(2000, 400), left).width(), 600);
}

bool IsInside(const Rect& rect, const Rect& client) {
  return rect.width() >= 0 && rect.height() >= 0 && rect.left >= client.left && rect.top >= client.top &&
         rect.right <= client.right && rect.bottom <= client.bottom;
}

TEST(Arrange, EverythingStaysInsideHoweverSmallTheWindow) {
  Scene scene;
  for (int i = 0; i < 40; ++i) {
    const ItemId item = scene.Add(static_cast<Area>(i % 4));
    if (i % 5 == 0) scene.model.SetPinned(scene.GroupId_(item), false);
  }
  for (const int width : {0, 1, 5, 26, 53, 79, 120, 400, 3000}) {
    for (const int height : {0, 1, 7, 52, 61, 130, 2000}) {
      const Arrangement arrangement = scene.At(width, height);
      SCOPED_TRACE(std::to_string(width) + "x" + std::to_string(height));
      const Rect client = {0, 0, width, height};
      EXPECT_TRUE(IsInside(arrangement.document, client));
      EXPECT_EQ(arrangement.panes.size(), 32u);
      for (const GroupPlace& pane : arrangement.panes) EXPECT_TRUE(IsInside(pane.rect, client));
      for (const Splitter& splitter : arrangement.splitters) EXPECT_TRUE(IsInside(splitter.rect, client));
      for (const EdgeStrip& edge : arrangement.edges) EXPECT_TRUE(IsInside(edge.rect, client));
    }
  }
}

TEST(Arrange, ANegativeClientCountsAsEmpty) {
  Scene scene;
  scene.Add(Area::Left);
  const Arrangement arrangement = Arrange(scene.model, {10, 10, -50, -50}, kMetrics);
  EXPECT_TRUE(arrangement.document.empty());
  EXPECT_TRUE(IsInside(arrangement.panes[0].rect, {10, 10, 10, 10}));
}

TEST(MoveSplitter, GrowsAndShrinksTheSideInTheDirectionOfTheMouse) {
  struct Row {
    Area area;
    int delta, extent;
  };
  const Row rows[] = {{Area::Left, 30, 230},
                      {Area::Left, -30, 170},
                      {Area::Right, 30, 170},
                      {Area::Right, -30, 230},
                      {Area::Top, 30, 230},
                      {Area::Bottom, 30, 170},
                      {Area::Left, -500, 60},
                      {Area::Left, 5000, 800 - 5 - 80},
                      {Area::Bottom, -5000, 600 - 5 - 80}};
  for (const Row& row : rows) {
    Scene scene;
    scene.Add(row.area);
    scene.model.SetExtent(SideOf(row.area), 200);
    const Arrangement arrangement = scene.At(800, 600);
    MoveSplitter(scene.model, arrangement, arrangement.splitters[0], row.delta, kMetrics);
    EXPECT_EQ(scene.model.extent(SideOf(row.area)), row.extent)
        << static_cast<int>(row.area) << " " << row.delta;
  }
}

TEST(MoveSplitter, BetweenTwoGroupsOnlyTheNeighboursChange) {
  Scene scene;
  const ItemId a = scene.Add(Area::Left);
  const ItemId b = scene.Add(Area::Left);
  const ItemId c = scene.Add(Area::Left);
  Arrangement arrangement = scene.At(800, 610);  // three panes of 200 and two bars
  const Splitter* between = nullptr;
  for (const Splitter& splitter : arrangement.splitters) {
    if (splitter.before == scene.GroupId_(a)) between = &splitter;
  }
  ASSERT_NE(between, nullptr);
  EXPECT_FALSE(between->movesSideways());
  MoveSplitter(scene.model, arrangement, *between, 50, kMetrics);
  arrangement = scene.At(800, 610);
  EXPECT_EQ(scene.PaneOf(arrangement, a).height(), 250);
  EXPECT_EQ(scene.PaneOf(arrangement, b).height(), 150);
  EXPECT_EQ(scene.PaneOf(arrangement, c).height(), 200);
}

TEST(MoveSplitter, NeverShrinksAPaneBelowItsSmallestSize) {
  Scene scene;
  const ItemId a = scene.Add(Area::Left);
  const ItemId b = scene.Add(Area::Left);
  Arrangement arrangement = scene.At(800, 405);
  for (const Splitter& splitter : std::vector<Splitter>(arrangement.splitters)) {
    if (splitter.before != 0) MoveSplitter(scene.model, arrangement, splitter, -1000, kMetrics);
  }
  arrangement = scene.At(800, 405);
  EXPECT_EQ(scene.PaneOf(arrangement, a).height(), 60);
  EXPECT_EQ(scene.PaneOf(arrangement, b).height(), 340);
}

TEST(KeepInside, MovesAndCutsARectangleIntoTheBounds) {
  struct Row {
    Rect rect, expected;
  };
  const Rect bounds = {0, 0, 1000, 800};
  const Row rows[] = {
      {{10, 20, 110, 120}, {10, 20, 110, 120}},
      {{-50, -60, 50, 40}, {0, 0, 100, 100}},
      {{5000, 5000, 5100, 5100}, {900, 700, 1000, 800}},
      {{-10, 0, 5000, 5000}, {0, 0, 1000, 800}},
      {{50, 50, 10, 10}, {50, 50, 50, 50}},
  };
  for (const Row& row : rows) EXPECT_EQ(KeepInside(row.rect, bounds), row.expected);
}

}  // namespace
}  // namespace workbench
