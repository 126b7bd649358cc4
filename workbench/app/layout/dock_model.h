// What is docked where: windows ("items") in groups, groups at the four sides of the main window, floating,
// or in the document area. Pure bookkeeping; arrange.h turns it into rectangles.
//
// A group is the set of items that share one place as tabs. A hidden item keeps its place in its group.
#pragma once

#include <array>
#include <map>
#include <string>
#include <vector>

#include "workbench/app/layout/geometry.h"

namespace workbench {

using ItemId = int;   // 0 is no item
using GroupId = int;  // 0 is no group

enum class Side { Left = 0, Right = 1, Top = 2, Bottom = 3 };
enum class Area { Left = 0, Right = 1, Top = 2, Bottom = 3, Document = 4, Floating = 5 };

inline constexpr int kSideCount = 4;

inline Area AreaOf(Side side) {
  return static_cast<Area>(side);
}
inline bool IsSide(Area area) {
  return area <= Area::Bottom;
}
// Only for an area that is a side.
inline Side SideOf(Area area) {
  return static_cast<Side>(area);
}
// True when the groups of a side stand above each other.
inline bool IsVertical(Side side) {
  return side == Side::Left || side == Side::Right;
}

struct DockItem {
  ItemId id = 0;
  GroupId group = 0;
  bool visible = false;
  bool collapsible = true;  // may be collapsed to the edge
  bool sharesPlace = true;  // joins a group of its kind as a tab; else it gets a group of its own
  int order = 0;            // remembered position in its group
};

struct DockGroup {
  GroupId id = 0;
  Area area = Area::Left;
  std::vector<ItemId> items;  // in tab order
  ItemId active = 0;          // the tab in front
  bool pinned = true;         // false: collapsed to the edge
  int weight = 1000;          // share of the side's length, relative to the side's other groups
  int slot = 0;               // remembered position among the groups of its area
  Rect floating;              // screen pixels; the place when it floats, or where it floated last
};

// Where an item goes.
struct DockTarget {
  Area area = Area::Left;
  GroupId joins = 0;   // not 0: becomes a tab of this group (area is then that group's)
  GroupId before = 0;  // not 0: a new group in front of this one
  GroupId after = 0;   // not 0: a new group behind this one
  Rect floating;       // for Area::Floating; empty keeps the remembered rectangle
};

class DockModel {
 public:
  // Puts a new item into the layout. With slot >= 0 it goes to the group remembered under that number, which
  // is made when it is missing; with a negative slot it joins the first group of the area when it shares its
  // place, else it gets a new group at the end.
  ItemId Add(const DockItem& item, Area area, int slot, int order);
  // Takes an item out; its group disappears with its last item. Unknown ids are ignored.
  void Remove(ItemId item);
  // Moves one item, or a whole group, to another place. False, with nothing changed, for unknown ids.
  bool MoveItem(ItemId item, const DockTarget& target);
  bool MoveGroup(GroupId group, const DockTarget& target);

  bool SetVisible(ItemId item, bool visible);  // true when it changed
  bool Activate(ItemId item);                  // brings a tab to the front; true when it changed
  bool SetPinned(GroupId group,
                 bool pinned);  // true when it changed; floating and document groups stay pinned
  void SetExtent(Side side, int extent);
  int extent(Side side) const { return extents_[static_cast<int>(side)]; }

  const DockItem* FindItem(ItemId item) const;
  const DockGroup* FindGroup(GroupId group) const;
  DockGroup* FindGroup(GroupId group);
  const DockGroup* GroupOf(ItemId item) const;
  // Groups of an area in their order, hidden ones too.
  std::vector<const DockGroup*> GroupsIn(Area area) const;
  const std::vector<DockGroup>& groups() const { return groups_; }
  std::vector<ItemId> VisibleItems(const DockGroup& group) const;
  bool IsVisible(const DockGroup& group) const { return !VisibleItems(group).empty(); }
  // The tab that shows: the active item, or the first visible one when that is hidden; 0 when all are hidden.
  ItemId FrontItem(const DockGroup& group) const;
  // Position of a group among the groups of its area.
  int IndexInArea(GroupId group) const;

 private:
  GroupId GroupForNewItem(const DockItem& item, Area area, int slot);
  GroupId InsertGroup(Area area, int slot, size_t at);
  size_t EndOfArea(Area area, int slot) const;
  void RemoveIfEmpty(GroupId group);
  void PlaceGroup(GroupId group, const DockTarget& target);
  void MergeGroups(GroupId from, GroupId into);

  std::vector<DockGroup> groups_;  // all areas mixed; the order within an area counts
  std::map<ItemId, DockItem> items_;
  std::array<int, kSideCount> extents_{300, 300, 240, 240};
  ItemId nextItem_ = 1;
  GroupId nextGroup_ = 1;
};

}  // namespace workbench
