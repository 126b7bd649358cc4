#include "src/explorer/command_tables.h"

#include <gmock/gmock.h>

#include <string>

namespace file_explorer {
namespace {

// A toolbar as text: (command, image), "|" for a separator, "c" and "d" behind check and drop-down buttons.
std::string Describe(std::span<const ToolbarButton> buttons) {
  std::string text;
  for (const ToolbarButton& button : buttons) {
    if (button.style == ButtonStyle::Separator) {
      text += "| ";
      EXPECT_EQ(button.image, 0);
      EXPECT_EQ(button.command, 0);
      continue;
    }
    text += "(" + std::to_string(button.command) + "," + std::to_string(button.image) + ")";
    if (button.style == ButtonStyle::Check) text += "c";
    if (button.style == ButtonStyle::WholeDropDown) text += "d";
    text += " ";
  }
  return text;
}

TEST(CommandTables, CommandToolbar) {
  EXPECT_EQ(Describe(CommandToolbarButtons()),
            "| (99,12) | | (101,0) | | (102,2) (103,3) (924,35)d | (109,9) (108,4) (107,25) | (104,1) (105,8) (127,31) "
            "| (118,34) | (110,10) (111,11) | (113,13) (114,14) (116,17) (115,15) (117,16) "
            "| (120,19) (121,20) (122,18) | (123,27) (124,33) (125,28) (126,21) | ");
}

TEST(CommandTables, SelectorToolbars) {
  EXPECT_EQ(Describe(FoldersToolbarButtons()), "(128,5) (106,6)c (107,25)c (108,4)c | | (101,0) (109,9) ");
  EXPECT_EQ(Describe(HistoryToolbarButtons()), "(128,5) (106,6)c (107,25)c (108,4)c | | (134,36)d (135,37) (133,21) ");
  EXPECT_EQ(Describe(FavoritesToolbarButtons()),
            "(128,5) (106,6)c (107,25)c (108,4)c | | (132,9) (129,34) (130,28) (131,21) ");
  EXPECT_EQ(Describe(SelectorToolbarButtons()), "(103,3) (102,2) | (104,1) (105,8) | (118,34) (119,29) | (127,31) ");
}

TEST(CommandTables, SelectorViews) {
  EXPECT_EQ(SelectorViewOf(106), SelectorView::Folders);
  EXPECT_EQ(SelectorViewOf(107), SelectorView::History);
  EXPECT_EQ(SelectorViewOf(108), SelectorView::Favorites);
  EXPECT_EQ(SelectorViewOf(109), std::nullopt);
}

TEST(CommandTables, DisplayModesKeepTheirNumberingsApart) {
  struct Row {
    int mode;
    int command;
    const char* name;
  };
  for (const Row& row : {Row{0, 115, "LargeIcon"}, Row{1, 116, "SmallIcon"}, Row{2, 114, "List"}, Row{3, 113, "Report"},
                         Row{4, 117, "Thumbnails"}}) {
    ASSERT_NE(FindDisplayMode(row.mode), nullptr);
    EXPECT_EQ(FindDisplayMode(row.mode)->command, row.command);
    EXPECT_STREQ(FindDisplayMode(row.mode)->name, row.name);
    EXPECT_EQ(FindDisplayModeOfCommand(row.command), FindDisplayMode(row.mode));
  }
  EXPECT_EQ(FindDisplayMode(7), nullptr);
  EXPECT_EQ(FindDisplayMode(-1), nullptr);
  EXPECT_EQ(FindDisplayModeOfCommand(112), nullptr);
}

}  // namespace
}  // namespace file_explorer
