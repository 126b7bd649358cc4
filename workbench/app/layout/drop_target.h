// Where a dragged window would go when it were dropped at a point.
#pragma once

#include "workbench/app/layout/arrange.h"

namespace workbench {

struct DropTarget {
  DockTarget place;
  Rect preview;         // what the preview frame shows, in the arrangement's coordinates
  bool floats = false;  // no docking place under the point
};

// at is in the arrangement's coordinates. dragged is the group that moves; with movesWholeGroup false only
// one of its tabs does, which may then be dropped beside the rest. band is the width of the strip along the
// outer edges that docks at the whole side.
DropTarget FindDropTarget(const DockModel& model, const Arrangement& arrangement, Point at, GroupId dragged,
                          bool movesWholeGroup, int band);

}  // namespace workbench
