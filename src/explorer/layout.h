// Where the panes of the explorer window and of the selector area go. Pixels, client coordinates of the parent.
#pragma once

#include <cstdint>

namespace file_explorer {

struct PaneRect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const PaneRect&) const = default;
};

struct ExplorerPanes {
  PaneRect combo;  // empty without a combo box
  PaneRect fileView;
};

// Path combo box under the toolbar, file view below it. comboHeight is 0 when there is no combo box. A window too low
// for the toolbar gives panes without height, never ones upside down.
ExplorerPanes LayOutExplorer(int width, int height, int toolbarHeight, int comboHeight);

struct SelectorPanes {
  PaneRect history;
  PaneRect favorites;  // one pixel wider and higher than its room
  PaneRect folders;    // leaves room for the command toolbar at the bottom
};

// The three views below the label toolbar; only one of them is visible.
SelectorPanes LayOutSelector(int width, int height, int labelToolbarHeight, int commandToolbarHeight);

struct InitialSize {
  int width;
  int height;
};

// Size of a window that the host has never placed, from the host's rectangle (right and bottom belong to it). Pop-up
// windows (creation methods 4 and 5) get nine tenths of half the height, cut to whole pixels.
InitialSize SizeForFirstPlacement(const PaneRect& hostRectangle, std::uint16_t creationMethod);

// Creation methods under which the host itself shows the window, as a tab or pop-up.
bool HostShowsWindow(std::uint16_t creationMethod);

}  // namespace file_explorer
