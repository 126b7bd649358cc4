// From what is docked where to rectangles: panes, splitters, edge strips and the document area.
#pragma once

#include <vector>

#include "workbench/app/layout/dock_model.h"

namespace workbench {

// Sizes in pixels at the screen's resolution.
struct DockMetrics {
  int splitter = 5;      // thickness of the bar between areas
  int edgeStrip = 26;    // thickness of a strip of collapsed windows' tabs
  int minPane = 60;      // smallest thickness or length of a pane that the user can drag to
  int minDocument = 80;  // what is kept of the document area while there is room for it
};

struct GroupPlace {
  GroupId group = 0;
  Side side = Side::Left;
  Rect rect;
};

struct Splitter {
  Side side = Side::Left;
  Rect rect;
  // Both 0: the bar between the side and the middle. Else: the bar between two groups of the side.
  GroupId before = 0;
  GroupId after = 0;

  // True when the bar moves left and right.
  bool movesSideways() const { return IsVertical(side) == (before == 0); }
};

struct EdgeStrip {
  Side side = Side::Left;
  Rect rect;
};

struct Arrangement {
  Rect client;    // all there is
  Rect inner;     // without the edge strips
  Rect document;  // what is left in the middle; may be empty
  std::vector<GroupPlace> panes;
  std::vector<Splitter> splitters;
  std::vector<EdgeStrip> edges;

  const GroupPlace* FindPane(GroupId group) const;
  const EdgeStrip* FindEdge(Side side) const;
  const Splitter* SplitterAt(Point at) const;
};

// Never gives a rectangle outside client or with negative sizes, however small client is.
Arrangement Arrange(const DockModel& model, const Rect& client, const DockMetrics& metrics);

// Where a collapsed group shows while it is popped out over the content.
Rect PopOutRect(const DockModel& model, const Arrangement& arrangement, GroupId group,
                const DockMetrics& metrics);

// Carries a splitter's move of delta pixels (right and down are positive) into the model, within the limits.
void MoveSplitter(DockModel& model, const Arrangement& arrangement, const Splitter& splitter, int delta,
                  const DockMetrics& metrics);

// The nearest rectangle of the same size (or smaller when it does not fit) that lies in bounds.
Rect KeepInside(const Rect& rect, const Rect& bounds);

}  // namespace workbench
