// Points, sizes and rectangles of the layout arithmetic: whole pixels, right and bottom not part of the
// rectangle.
#pragma once

#include <algorithm>

namespace workbench {

struct Point {
  int x = 0;
  int y = 0;
  bool operator==(const Point&) const = default;
};

struct Size {
  int width = 0;
  int height = 0;
  bool operator==(const Size&) const = default;
};

struct Rect {
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;
  bool operator==(const Rect&) const = default;

  int width() const { return right - left; }
  int height() const { return bottom - top; }
  bool empty() const { return right <= left || bottom <= top; }
  bool Contains(Point at) const { return at.x >= left && at.x < right && at.y >= top && at.y < bottom; }
};

// value limited to low..high; low wins when the two cross.
inline int Limit(int value, int low, int high) {
  return std::max(low, std::min(value, high));
}

}  // namespace workbench
