#include "workbench/app/layout/arrange.h"

#include <numeric>

namespace workbench {
namespace {

std::vector<const DockGroup*> PinnedGroups(const DockModel& model, Side side) {
  std::vector<const DockGroup*> groups = model.GroupsIn(AreaOf(side));
  std::erase_if(groups, [&](const DockGroup* group) { return !group->pinned || !model.IsVisible(*group); });
  return groups;
}

bool HasCollapsed(const DockModel& model, Side side) {
  const std::vector<const DockGroup*> groups = model.GroupsIn(AreaOf(side));
  return std::any_of(groups.begin(), groups.end(),
                     [&](const DockGroup* group) { return !group->pinned && model.IsVisible(*group); });
}

// Cuts a band of the given thickness off one side of rect and gives it.
Rect CutOff(Rect& rect, Side side, int thickness) {
  Rect cut = rect;
  const int room = IsVertical(side) ? rect.width() : rect.height();
  thickness = Limit(thickness, 0, std::max(room, 0));
  switch (side) {
    case Side::Left:
      cut.right = rect.left += thickness;
      break;
    case Side::Right:
      cut.left = rect.right -= thickness;
      break;
    case Side::Top:
      cut.bottom = rect.top += thickness;
      break;
    case Side::Bottom:
      cut.top = rect.bottom -= thickness;
      break;
  }
  return cut;
}

// Shrinks two opposite extents, in proportion, until room - reserved holds both.
void FitTogether(int room, int reserved, int& first, int& second) {
  const int available = std::max(room - reserved, 0);
  const int wanted = first + second;
  if (wanted <= available) return;
  const long long share = wanted == 0 ? 0 : static_cast<long long>(first) * available / wanted;
  second = std::min(second, available - static_cast<int>(share));
  first = static_cast<int>(share);
}

struct SideSizes {
  int extent[kSideCount] = {};
  bool used[kSideCount] = {};
};

SideSizes FitSides(const DockModel& model, const Rect& inner, const DockMetrics& metrics) {
  SideSizes sizes;
  for (int i = 0; i < kSideCount; ++i) {
    sizes.used[i] = !PinnedGroups(model, static_cast<Side>(i)).empty();
    if (sizes.used[i]) sizes.extent[i] = std::max(model.extent(static_cast<Side>(i)), metrics.minPane);
  }
  const auto bars = [&](int a, int b) { return (sizes.used[a] + sizes.used[b]) * metrics.splitter; };
  FitTogether(inner.width(), metrics.minDocument + bars(0, 1), sizes.extent[0], sizes.extent[1]);
  FitTogether(inner.height(), metrics.minDocument + bars(2, 3), sizes.extent[2], sizes.extent[3]);
  return sizes;
}

// Shares length among the groups by weight; the last one takes what rounding left.
std::vector<int> ShareLength(const std::vector<const DockGroup*>& groups, int length, int splitter) {
  const int count = static_cast<int>(groups.size());
  int left = std::max(length - splitter * (count - 1), 0);
  long long weights = 0;
  for (const DockGroup* group : groups) weights += std::max(group->weight, 1);
  std::vector<int> lengths;
  for (const DockGroup* group : groups) {
    const int weight = std::max(group->weight, 1);
    const int share = static_cast<int>(static_cast<long long>(left) * weight / weights);
    lengths.push_back(share);
    left -= share;
    weights -= weight;
  }
  return lengths;
}

void ArrangeSide(const DockModel& model, Side side, Rect band, const DockMetrics& metrics,
                 Arrangement& result) {
  const std::vector<const DockGroup*> groups = PinnedGroups(model, side);
  const Side along = IsVertical(side) ? Side::Top : Side::Left;
  const int length = IsVertical(side) ? band.height() : band.width();
  const std::vector<int> lengths = ShareLength(groups, length, metrics.splitter);
  for (size_t i = 0; i < groups.size(); ++i) {
    if (i > 0) {
      result.splitters.push_back(
          {side, CutOff(band, along, metrics.splitter), groups[i - 1]->id, groups[i]->id});
    }
    result.panes.push_back({groups[i]->id, side, CutOff(band, along, lengths[i])});
  }
}

}  // namespace

const GroupPlace* Arrangement::FindPane(GroupId group) const {
  const auto found =
      std::find_if(panes.begin(), panes.end(), [&](const GroupPlace& pane) { return pane.group == group; });
  return found == panes.end() ? nullptr : &*found;
}

const EdgeStrip* Arrangement::FindEdge(Side side) const {
  const auto found =
      std::find_if(edges.begin(), edges.end(), [&](const EdgeStrip& edge) { return edge.side == side; });
  return found == edges.end() ? nullptr : &*found;
}

const Splitter* Arrangement::SplitterAt(Point at) const {
  const auto found = std::find_if(splitters.begin(), splitters.end(),
                                  [&](const Splitter& splitter) { return splitter.rect.Contains(at); });
  return found == splitters.end() ? nullptr : &*found;
}

Arrangement Arrange(const DockModel& model, const Rect& client, const DockMetrics& metrics) {
  Arrangement result;
  result.client = client;
  result.client.right = std::max(client.right, client.left);
  result.client.bottom = std::max(client.bottom, client.top);
  result.inner = result.client;
  for (const Side side : {Side::Left, Side::Right, Side::Top, Side::Bottom}) {
    if (HasCollapsed(model, side)) {
      result.edges.push_back({side, CutOff(result.inner, side, metrics.edgeStrip)});
    }
  }
  const SideSizes sizes = FitSides(model, result.inner, metrics);
  Rect rest = result.inner;
  // Left and right take the corners; top and bottom lie between them.
  for (const Side side : {Side::Left, Side::Right, Side::Top, Side::Bottom}) {
    if (!sizes.used[static_cast<int>(side)]) continue;
    const Rect band = CutOff(rest, side, sizes.extent[static_cast<int>(side)]);
    result.splitters.push_back({side, CutOff(rest, side, metrics.splitter), 0, 0});
    ArrangeSide(model, side, band, metrics, result);
  }
  result.document = rest;
  return result;
}

Rect PopOutRect(const DockModel& model, const Arrangement& arrangement, GroupId group,
                const DockMetrics& metrics) {
  const DockGroup* found = model.FindGroup(group);
  if (found == nullptr || !IsSide(found->area)) return {};
  const Side side = SideOf(found->area);
  Rect room = arrangement.inner;
  const int across = IsVertical(side) ? room.width() : room.height();
  const int most = std::max(across - metrics.splitter, 0);
  return CutOff(room, side, Limit(model.extent(side), std::min(metrics.minPane, most), most));
}

void MoveSplitter(DockModel& model, const Arrangement& arrangement, const Splitter& splitter, int delta,
                  const DockMetrics& metrics) {
  const auto length = [&](const GroupPlace& pane) {
    return IsVertical(splitter.side) ? pane.rect.height() : pane.rect.width();
  };
  if (splitter.before == 0) {
    int extent = 0;
    for (const GroupPlace& pane : arrangement.panes) {
      if (pane.side == splitter.side) extent = IsVertical(pane.side) ? pane.rect.width() : pane.rect.height();
    }
    const bool grows = splitter.side == Side::Left || splitter.side == Side::Top;
    const Rect& middle = arrangement.document;
    const int spare = (IsVertical(splitter.side) ? middle.width() : middle.height()) - metrics.minDocument;
    const int moved = extent + (grows ? delta : -delta);
    model.SetExtent(splitter.side, Limit(moved, metrics.minPane, extent + std::max(spare, 0)));
    return;
  }
  // The weights of a side become its panes' lengths, so that only the two neighbours change.
  for (const GroupPlace& pane : arrangement.panes) {
    if (pane.side == splitter.side) model.FindGroup(pane.group)->weight = std::max(length(pane), 1);
  }
  DockGroup* before = model.FindGroup(splitter.before);
  DockGroup* after = model.FindGroup(splitter.after);
  if (before == nullptr || after == nullptr) return;
  const int both = before->weight + after->weight;
  const int least = std::min(metrics.minPane, both / 2);
  before->weight = std::max(Limit(before->weight + delta, least, both - least), 1);
  after->weight = std::max(both - before->weight, 1);
}

Rect KeepInside(const Rect& rect, const Rect& bounds) {
  const int width = Limit(rect.width(), 0, std::max(bounds.width(), 0));
  const int height = Limit(rect.height(), 0, std::max(bounds.height(), 0));
  const int left = Limit(rect.left, bounds.left, bounds.right - width);
  const int top = Limit(rect.top, bounds.top, bounds.bottom - height);
  return {left, top, left + width, top + height};
}

}  // namespace workbench
