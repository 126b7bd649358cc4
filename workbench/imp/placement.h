// Where a centred window goes. All in pixels of the screen.
#pragma once

namespace workbench::imp {

struct Point {
  int x, y;
};
struct Box {
  int left, top, right, bottom;
};

// The top left corner of window, moved to the middle of around and then into workArea; a window larger than
// the work area keeps its top left corner (and with it the title bar) inside.
Point CenteredCorner(const Box& window, const Box& around, const Box& workArea);

}  // namespace workbench::imp
