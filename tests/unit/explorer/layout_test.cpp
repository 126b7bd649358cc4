#include "src/explorer/layout.h"

#include <gtest/gtest.h>

namespace file_explorer {
namespace {

TEST(ExplorerLayout, StacksComboBoxAndFileViewUnderTheToolbar) {
  const ExplorerPanes panes = LayOutExplorer(800, 600, 28, 24);
  EXPECT_EQ(panes.combo, (PaneRect{0, 28, 800, 52}));
  EXPECT_EQ(panes.fileView, (PaneRect{0, 52, 800, 600}));
}

TEST(ExplorerLayout, FileViewStartsRightUnderTheToolbarWithoutAComboBox) {
  const ExplorerPanes panes = LayOutExplorer(800, 600, 28, 0);
  EXPECT_EQ(panes.combo, PaneRect{});
  EXPECT_EQ(panes.fileView, (PaneRect{0, 28, 800, 600}));
}

TEST(ExplorerLayout, AWindowTooLowGivesAFileViewWithoutHeight) {
  const ExplorerPanes panes = LayOutExplorer(0, 10, 28, 24);
  EXPECT_EQ(panes.fileView, (PaneRect{0, 52, 0, 52}));
}

TEST(SelectorLayout, OnlyTheFolderTreeLeavesRoomForTheCommandToolbar) {
  const SelectorPanes panes = LayOutSelector(300, 500, 26, 30);
  EXPECT_EQ(panes.history, (PaneRect{0, 26, 300, 500}));
  EXPECT_EQ(panes.folders, (PaneRect{0, 26, 300, 470}));
}

TEST(SelectorLayout, FavouritesAreOnePixelWiderAndHigherDeliberately) {
  EXPECT_EQ(LayOutSelector(300, 500, 26, 30).favorites, (PaneRect{0, 26, 301, 501}));
}

TEST(SelectorLayout, WithoutToolbarsTheViewsFillThePanel) {
  const SelectorPanes panes = LayOutSelector(300, 500, 0, 0);
  EXPECT_EQ(panes.history, (PaneRect{0, 0, 300, 500}));
  EXPECT_EQ(panes.folders, (PaneRect{0, 0, 300, 500}));
}

TEST(SelectorLayout, APanelWithoutHeightTurnsNothingUpsideDown) {
  const SelectorPanes panes = LayOutSelector(-1, 10, 26, 30);
  EXPECT_EQ(panes.folders, (PaneRect{0, 26, 0, 26}));
  EXPECT_EQ(panes.history, (PaneRect{0, 26, 0, 26}));
}

TEST(FirstPlacement, PopUpsGetNineTenthsOfHalfTheHeightCut) {
  const PaneRect rectangle = {10, 0, 809, 300};  // 301 high
  for (const std::uint16_t method : {4, 5}) {
    const InitialSize size = SizeForFirstPlacement(rectangle, method);
    EXPECT_EQ(size.width, 800);
    EXPECT_EQ(size.height, 135);
  }
}

TEST(FirstPlacement, OtherMethodsGetTheWholeRectangle) {
  const InitialSize size = SizeForFirstPlacement({0, 0, 799, 300}, 1);
  EXPECT_EQ(size.width, 800);
  EXPECT_EQ(size.height, 301);
}

TEST(FirstPlacement, TheHostShowsTabsAndPopUps) {
  for (const std::uint16_t method : {0, 4, 5}) EXPECT_TRUE(HostShowsWindow(method)) << method;
  for (const std::uint16_t method : {1, 2, 3, 6, 7}) EXPECT_FALSE(HostShowsWindow(method)) << method;
}

}  // namespace
}  // namespace file_explorer
