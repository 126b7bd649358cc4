#include "workbench/imp/placement.h"

#include <algorithm>

namespace workbench::imp {
namespace {

int CenteredStart(int size, int aroundStart, int aroundEnd, int areaStart, int areaEnd) {
  const int start = aroundStart + (aroundEnd - aroundStart - size) / 2;
  return std::max(std::min(start, areaEnd - size), areaStart);
}

}  // namespace

Point CenteredCorner(const Box& window, const Box& around, const Box& workArea) {
  return {
      CenteredStart(window.right - window.left, around.left, around.right, workArea.left, workArea.right),
      CenteredStart(window.bottom - window.top, around.top, around.bottom, workArea.top, workArea.bottom)};
}

}  // namespace workbench::imp
