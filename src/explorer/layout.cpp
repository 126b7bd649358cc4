#include "src/explorer/layout.h"

#include <algorithm>

namespace file_explorer {
namespace {

constexpr std::uint16_t kTabbedDocument = 0;
constexpr std::uint16_t kCollapsible = 4;
constexpr std::uint16_t kTabbedCollapsible = 5;

}  // namespace

ExplorerPanes LayOutExplorer(int width, int height, int toolbarHeight, int comboHeight) {
  const int right = std::max(width, 0);
  const int comboBottom = toolbarHeight + comboHeight;
  ExplorerPanes panes;
  if (comboHeight > 0) panes.combo = {0, toolbarHeight, right, comboBottom};
  panes.fileView = {0, comboBottom, right, std::max(height, comboBottom)};
  return panes;
}

SelectorPanes LayOutSelector(int width, int height, int labelToolbarHeight, int commandToolbarHeight) {
  const int top = labelToolbarHeight;
  const int right = std::max(width, 0);
  SelectorPanes panes;
  panes.history = {0, top, right, std::max(height, top)};
  panes.favorites = {0, top, right + 1, std::max(height, top) + 1};
  panes.folders = {0, top, right, std::max(height - commandToolbarHeight, top)};
  return panes;
}

InitialSize SizeForFirstPlacement(const PaneRect& hostRectangle, std::uint16_t creationMethod) {
  InitialSize size = {hostRectangle.right - hostRectangle.left + 1, hostRectangle.bottom - hostRectangle.top + 1};
  if (creationMethod == kCollapsible || creationMethod == kTabbedCollapsible) {
    const int half = size.height / 2;  // whole pixels
    size.height = static_cast<int>(half * 0.9);
  }
  return size;
}

bool HostShowsWindow(std::uint16_t creationMethod) {
  return creationMethod == kTabbedDocument || creationMethod == kCollapsible || creationMethod == kTabbedCollapsible;
}

}  // namespace file_explorer
