#include "src/explorer/command_tables.h"

#include <algorithm>

namespace file_explorer {
namespace {

constexpr ToolbarButton kSeparator = {0, 0, ButtonStyle::Separator};

constexpr ToolbarButton kCommandToolbar[] = {
    kSeparator,
    {12, kCommandDockingMenu},
    kSeparator,
    kSeparator,
    {0, kCommandUpOneLevel},
    kSeparator,
    kSeparator,
    {2, kCommandRefresh},
    {3, kCommandHomeDirectory},
    {35, kCommandGoToMenu, ButtonStyle::WholeDropDown},
    kSeparator,
    {9, kCommandAddToFavorites},
    {4, kCommandFavoritesView},
    {25, kCommandHistoryView},
    kSeparator,
    {1, kCommandSelectionMasks},
    {8, kCommandOptions},
    {31, kCommandHelp},
    kSeparator,
    {34, kCommandNewFolder},
    kSeparator,
    {10, kCommandLoadPrevious},
    {11, kCommandLoadNext},
    kSeparator,
    {13, kCommandDetailMode},
    {14, kCommandListMode},
    {17, kCommandSmallIconMode},
    {15, kCommandLargeIconMode},
    {16, kCommandThumbnailMode},
    kSeparator,
    {19, kCommandCut},
    {20, kCommandCopy},
    {18, kCommandPaste},
    kSeparator,
    {27, kCommandMoveTo},
    {33, kCommandCopyTo},
    {28, kCommandRename},
    {21, kCommandDelete},
    kSeparator,
};

// Every label toolbar begins with the spacer under its label and the three view buttons.
constexpr ToolbarButton kLabelSpacer = {5, kCommandLabelSpacer};
constexpr ToolbarButton kFoldersView = {6, kCommandFoldersView, ButtonStyle::Check};
constexpr ToolbarButton kHistoryView = {25, kCommandHistoryView, ButtonStyle::Check};
constexpr ToolbarButton kFavoritesView = {4, kCommandFavoritesView, ButtonStyle::Check};

constexpr ToolbarButton kFoldersToolbar[] = {
    kLabelSpacer, kFoldersView, kHistoryView, kFavoritesView, kSeparator, kSeparator,
    {0, kCommandUpOneLevel},
    {9, kCommandAddToFavorites},
};

constexpr ToolbarButton kHistoryToolbar[] = {
    kLabelSpacer, kFoldersView, kHistoryView, kFavoritesView, kSeparator, kSeparator,
    {36, kCommandHistorySorting, ButtonStyle::WholeDropDown},
    {37, kCommandHistoryIcons},
    {21, kCommandClearHistory},
};

constexpr ToolbarButton kFavoritesToolbar[] = {
    kLabelSpacer, kFoldersView, kHistoryView, kFavoritesView, kSeparator, kSeparator,
    {9, kCommandAddSelectionToFavorites},
    {34, kCommandNewFavoritesFolder},
    {28, kCommandRenameFavorite},
    {21, kCommandDeleteFavorite},
};

constexpr ToolbarButton kSelectorToolbar[] = {
    {3, kCommandHomeDirectory},
    {2, kCommandRefresh},
    kSeparator,
    {1, kCommandSelectionMasks},
    {8, kCommandOptions},
    kSeparator,
    {34, kCommandNewFolder},
    {29, kCommandSearch},
    kSeparator,
    {31, kCommandHelp},
};

constexpr DisplayMode kDisplayModes[] = {
    {0, kCommandLargeIconMode, "LargeIcon"}, {1, kCommandSmallIconMode, "SmallIcon"}, {2, kCommandListMode, "List"},
    {3, kCommandDetailMode, "Report"},       {4, kCommandThumbnailMode, "Thumbnails"},
};

const DisplayMode* Find(int DisplayMode::*member, int value) {
  const auto found =
      std::find_if(std::begin(kDisplayModes), std::end(kDisplayModes),
                   [&](const DisplayMode& mode) { return mode.*member == value; });
  return found == std::end(kDisplayModes) ? nullptr : found;
}

}  // namespace

std::span<const ToolbarButton> CommandToolbarButtons() { return kCommandToolbar; }
std::span<const ToolbarButton> FoldersToolbarButtons() { return kFoldersToolbar; }
std::span<const ToolbarButton> HistoryToolbarButtons() { return kHistoryToolbar; }
std::span<const ToolbarButton> FavoritesToolbarButtons() { return kFavoritesToolbar; }
std::span<const ToolbarButton> SelectorToolbarButtons() { return kSelectorToolbar; }

std::optional<SelectorView> SelectorViewOf(int command) {
  switch (command) {
    case kCommandFoldersView:
      return SelectorView::Folders;
    case kCommandHistoryView:
      return SelectorView::History;
    case kCommandFavoritesView:
      return SelectorView::Favorites;
    default:
      return std::nullopt;
  }
}

std::span<const DisplayMode> DisplayModes() { return kDisplayModes; }
const DisplayMode* FindDisplayMode(int mode) { return Find(&DisplayMode::mode, mode); }
const DisplayMode* FindDisplayModeOfCommand(int command) { return Find(&DisplayMode::command, command); }

}  // namespace file_explorer
