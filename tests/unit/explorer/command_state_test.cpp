#include "src/explorer/command_state.h"

#include <gmock/gmock.h>

#include "src/framework/command_ids.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;

TEST(CommandState, RefreshesInTheFixedOrder) {
  EXPECT_THAT(SelectionDependentCommands(), ElementsAre(120, 121, 123, 124, 125, 126, 110, 111, 122));
}

TEST(CommandState, FileCommandsNeedASelection) {
  for (const int command : {120, 121, 123, 124, 125, 126}) {
    EXPECT_FALSE(IsCommandEnabled(command, {.selectedItems = 0, .clipboardHasContent = true})) << command;
    EXPECT_TRUE(IsCommandEnabled(command, {.selectedItems = 1})) << command;
    EXPECT_TRUE(IsCommandEnabled(command, {.selectedItems = 5})) << command;
  }
}

TEST(CommandState, PreviousAndNextNeedExactlyOne) {
  for (const int command : {110, 111}) {
    EXPECT_FALSE(IsCommandEnabled(command, {.selectedItems = 0})) << command;
    EXPECT_TRUE(IsCommandEnabled(command, {.selectedItems = 1})) << command;
    EXPECT_FALSE(IsCommandEnabled(command, {.selectedItems = 2})) << command;
  }
}

TEST(CommandState, PasteNeedsAClipboardWithContent) {
  EXPECT_FALSE(IsCommandEnabled(kCommandPaste, {.selectedItems = 3}));
  EXPECT_TRUE(IsCommandEnabled(kCommandPaste, {.clipboardHasContent = true}));
}

TEST(CommandState, OtherCommandsAreAlwaysThere) {
  for (const int command : {99, 101, 104, 118, 127}) EXPECT_TRUE(IsCommandEnabled(command, {})) << command;
}

}  // namespace
}  // namespace file_explorer
