#include "workbench/app/layout/drop_target.h"

namespace workbench {
namespace {

struct NearSide {
  Side side;
  int distance;
};

NearSide NearestSide(const Rect& rect, Point at) {
  const NearSide sides[] = {{Side::Left, at.x - rect.left},
                            {Side::Right, rect.right - 1 - at.x},
                            {Side::Top, at.y - rect.top},
                            {Side::Bottom, rect.bottom - 1 - at.y}};
  return *std::min_element(std::begin(sides), std::end(sides),
                           [](const NearSide& a, const NearSide& b) { return a.distance < b.distance; });
}

Rect Slice(const Rect& rect, Side side, int thickness) {
  Rect slice = rect;
  thickness = Limit(thickness, 0, IsVertical(side) ? rect.width() : rect.height());
  switch (side) {
    case Side::Left:
      slice.right = rect.left + thickness;
      break;
    case Side::Right:
      slice.left = rect.right - thickness;
      break;
    case Side::Top:
      slice.bottom = rect.top + thickness;
      break;
    case Side::Bottom:
      slice.top = rect.bottom - thickness;
      break;
  }
  return slice;
}

Rect HalfOf(const Rect& rect, Side side) {
  return Slice(rect, side, (IsVertical(side) ? rect.width() : rect.height()) / 2);
}

// Over a pane: its first and last quarter along the side make a new place before and after it, the rest joins
// it.
DropTarget OverPane(const GroupPlace& pane, Point at) {
  DropTarget target;
  target.place.area = AreaOf(pane.side);
  const bool vertical = IsVertical(pane.side);
  const int length = vertical ? pane.rect.height() : pane.rect.width();
  const int offset = vertical ? at.y - pane.rect.top : at.x - pane.rect.left;
  if (offset < length / 4) {
    target.place.before = pane.group;
    target.preview = HalfOf(pane.rect, vertical ? Side::Top : Side::Left);
  } else if (offset >= length - length / 4) {
    target.place.after = pane.group;
    target.preview = HalfOf(pane.rect, vertical ? Side::Bottom : Side::Right);
  } else {
    target.place.joins = pane.group;
    target.preview = pane.rect;
  }
  return target;
}

DropTarget AtSide(const DockModel& model, Side side, const Rect& within) {
  DropTarget target;
  target.place.area = AreaOf(side);
  const int room = IsVertical(side) ? within.width() : within.height();
  target.preview = Slice(within, side, std::min(model.extent(side), room / 2));
  return target;
}

}  // namespace

DropTarget FindDropTarget(const DockModel& model, const Arrangement& arrangement, Point at, GroupId dragged,
                          bool movesWholeGroup, int band) {
  DropTarget floating;
  floating.floats = true;
  floating.place.area = Area::Floating;
  if (!arrangement.client.Contains(at)) return floating;
  const NearSide edge = NearestSide(arrangement.client, at);
  if (edge.distance < band) return AtSide(model, edge.side, arrangement.inner);
  for (const GroupPlace& pane : arrangement.panes) {
    if (!pane.rect.Contains(at)) continue;
    DropTarget target = OverPane(pane, at);
    // A place relative to itself is no place.
    if (pane.group == dragged && (movesWholeGroup || target.place.joins != 0)) return floating;
    return target;
  }
  if (!arrangement.document.Contains(at)) return floating;
  const NearSide inner = NearestSide(arrangement.document, at);
  const int room = IsVertical(inner.side) ? arrangement.document.width() : arrangement.document.height();
  if (inner.distance < room / 5) return AtSide(model, inner.side, arrangement.document);
  DropTarget target;
  target.place.area = Area::Document;
  target.preview = arrangement.document;
  return target;
}

}  // namespace workbench
