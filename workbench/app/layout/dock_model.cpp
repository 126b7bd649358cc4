#include "workbench/app/layout/dock_model.h"

#include <algorithm>

namespace workbench {

ItemId DockModel::Add(const DockItem& item, Area area, int slot, int order) {
  DockItem added = item;
  added.id = nextItem_++;
  added.order = order;
  added.group = GroupForNewItem(added, area, slot);
  DockGroup& group = *FindGroup(added.group);
  const auto behind = [&](ItemId other) { return order >= 0 && items_.at(other).order > order; };
  const auto at = std::find_if(group.items.begin(), group.items.end(), behind);
  group.items.insert(at, added.id);
  if (group.active == 0) group.active = added.id;
  items_[added.id] = added;
  return added.id;
}

GroupId DockModel::GroupForNewItem(const DockItem& item, Area area, int slot) {
  const auto sameAreaGroup = [&](auto&& accepts) -> GroupId {
    for (const DockGroup& group : groups_) {
      if (group.area == area && accepts(group)) return group.id;
    }
    return 0;
  };
  GroupId found = 0;
  if (slot >= 0) {
    found = sameAreaGroup([&](const DockGroup& group) { return group.slot == slot; });
  } else if (item.sharesPlace && area != Area::Floating) {
    found = sameAreaGroup([&](const DockGroup& group) { return items_.at(group.items.front()).sharesPlace; });
  }
  if (found != 0) return found;
  if (slot >= 0) return InsertGroup(area, slot, EndOfArea(area, slot));
  int last = -1;
  for (const DockGroup& group : groups_) {
    if (group.area == area) last = std::max(last, group.slot);
  }
  return InsertGroup(area, last + 1, groups_.size());
}

// The position in front of the first group of the area that is remembered behind slot.
size_t DockModel::EndOfArea(Area area, int slot) const {
  const auto behind = [&](const DockGroup& group) { return group.area == area && group.slot > slot; };
  return static_cast<size_t>(std::find_if(groups_.begin(), groups_.end(), behind) - groups_.begin());
}

GroupId DockModel::InsertGroup(Area area, int slot, size_t at) {
  DockGroup group;
  group.id = nextGroup_++;
  group.area = area;
  group.slot = slot;
  groups_.insert(groups_.begin() + static_cast<std::ptrdiff_t>(at), group);
  return group.id;
}

void DockModel::Remove(ItemId item) {
  const auto found = items_.find(item);
  if (found == items_.end()) return;
  const GroupId groupId = found->second.group;
  items_.erase(found);
  DockGroup& group = *FindGroup(groupId);
  std::erase(group.items, item);
  if (group.active == item) group.active = group.items.empty() ? 0 : group.items.front();
  RemoveIfEmpty(groupId);
}

void DockModel::RemoveIfEmpty(GroupId group) {
  std::erase_if(groups_, [&](const DockGroup& other) { return other.id == group && other.items.empty(); });
}

bool DockModel::MoveItem(ItemId item, const DockTarget& target) {
  const DockGroup* group = GroupOf(item);
  if (group == nullptr) return false;
  if (group->items.size() == 1) return MoveGroup(group->id, target);
  if (target.joins == group->id) return false;
  const GroupId from = group->id;
  const Rect floating = group->floating;
  const Area area = group->area;
  // The item gets a group of its own first, which then moves like any other.
  const GroupId own = InsertGroup(area, FindGroup(from)->slot, groups_.size());
  FindGroup(own)->floating = floating;
  FindGroup(own)->items = {item};
  FindGroup(own)->active = item;
  DockGroup& old = *FindGroup(from);
  std::erase(old.items, item);
  if (old.active == item) old.active = old.items.front();
  items_[item].group = own;
  MoveGroup(own, target);
  return true;
}

bool DockModel::MoveGroup(GroupId group, const DockTarget& target) {
  const auto known = [&](GroupId id) { return id == 0 || FindGroup(id) != nullptr; };
  if (FindGroup(group) == nullptr || !known(target.joins) || !known(target.before) || !known(target.after)) {
    return false;
  }
  if (target.joins == group || target.before == group || target.after == group) return false;
  if (target.joins != 0) {
    MergeGroups(group, target.joins);
  } else {
    PlaceGroup(group, target);
  }
  return true;
}

void DockModel::MergeGroups(GroupId from, GroupId into) {
  DockGroup moved = *FindGroup(from);
  DockGroup& target = *FindGroup(into);
  for (const ItemId item : moved.items) {
    items_[item].group = into;
    target.items.push_back(item);
  }
  target.active = moved.active;
  std::erase_if(groups_, [&](const DockGroup& other) { return other.id == from; });
}

void DockModel::PlaceGroup(GroupId id, const DockTarget& target) {
  const auto isGroup = [](GroupId wanted) {
    return [wanted](const DockGroup& group) { return group.id == wanted; };
  };
  const auto from = std::find_if(groups_.begin(), groups_.end(), isGroup(id));
  DockGroup group = *from;
  groups_.erase(from);
  group.area = target.area;
  group.pinned = true;
  group.weight = 1000;
  if (target.area == Area::Floating && !target.floating.empty()) group.floating = target.floating;
  auto at = groups_.end();
  if (target.before != 0) at = std::find_if(groups_.begin(), groups_.end(), isGroup(target.before));
  if (target.after != 0) at = std::find_if(groups_.begin(), groups_.end(), isGroup(target.after)) + 1;
  groups_.insert(at, group);
  // From now on the order in the list is the remembered one.
  std::map<Area, int> next;
  for (DockGroup& other : groups_) other.slot = next[other.area]++;
}

bool DockModel::SetVisible(ItemId item, bool visible) {
  const auto found = items_.find(item);
  if (found == items_.end() || found->second.visible == visible) return false;
  found->second.visible = visible;
  return true;
}

bool DockModel::Activate(ItemId item) {
  const auto found = items_.find(item);
  if (found == items_.end()) return false;
  DockGroup& group = *FindGroup(found->second.group);
  const bool changed = FrontItem(group) != item;
  group.active = item;
  return changed;
}

bool DockModel::SetPinned(GroupId id, bool pinned) {
  DockGroup* group = FindGroup(id);
  if (group == nullptr || group->pinned == pinned) return false;
  if (!pinned && !IsSide(group->area)) return false;
  group->pinned = pinned;
  return true;
}

void DockModel::SetExtent(Side side, int extent) {
  extents_[static_cast<size_t>(side)] = std::max(extent, 0);
}

const DockItem* DockModel::FindItem(ItemId item) const {
  const auto found = items_.find(item);
  return found == items_.end() ? nullptr : &found->second;
}

const DockGroup* DockModel::FindGroup(GroupId id) const {
  const auto found =
      std::find_if(groups_.begin(), groups_.end(), [&](const DockGroup& group) { return group.id == id; });
  return found == groups_.end() ? nullptr : &*found;
}

DockGroup* DockModel::FindGroup(GroupId id) {
  return const_cast<DockGroup*>(static_cast<const DockModel*>(this)->FindGroup(id));
}

const DockGroup* DockModel::GroupOf(ItemId item) const {
  const DockItem* found = FindItem(item);
  return found == nullptr ? nullptr : FindGroup(found->group);
}

std::vector<const DockGroup*> DockModel::GroupsIn(Area area) const {
  std::vector<const DockGroup*> result;
  for (const DockGroup& group : groups_) {
    if (group.area == area) result.push_back(&group);
  }
  return result;
}

std::vector<ItemId> DockModel::VisibleItems(const DockGroup& group) const {
  std::vector<ItemId> result;
  for (const ItemId item : group.items) {
    if (items_.at(item).visible) result.push_back(item);
  }
  return result;
}

ItemId DockModel::FrontItem(const DockGroup& group) const {
  const DockItem* active = FindItem(group.active);
  if (active != nullptr && active->visible) return active->id;
  const std::vector<ItemId> visible = VisibleItems(group);
  return visible.empty() ? 0 : visible.front();
}

int DockModel::IndexInArea(GroupId id) const {
  const DockGroup* group = FindGroup(id);
  if (group == nullptr) return -1;
  int index = 0;
  for (const DockGroup& other : groups_) {
    if (other.id == id) return index;
    if (other.area == group->area) ++index;
  }
  return index;
}

}  // namespace workbench
