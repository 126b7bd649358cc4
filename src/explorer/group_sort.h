// Sorting the file view in groups: the keys that its items get before a sort, and the comparisons during it.
#pragma once

#include <windows.h>

#include <oaidl.h>

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "src/shellhost/shell_control_host.h"

namespace file_explorer {

// A sort is a run of comparisons behind AssignKeys. A long one asks for the same items again and again, so
// what the items say of themselves is read once and kept until Forget; the items are kept too, so that no
// other one can come to stand at the same address. Short sorts, and controls that make new objects for every
// comparison, are always read afresh.
class GroupSort {
 public:
  GroupSort() = default;
  GroupSort(const GroupSort&) = delete;
  GroupSort& operator=(const GroupSort&) = delete;

  // Gives every item with a name the sort key of its handlers. An item that refuses stays without one.
  void AssignKeys(ShellControlHost* fileView);

  // Writes -1, 0 or 1 to *order. Leaves it as it is when an item has no name or fails to say what it is.
  void Compare(IDispatch* first, IDispatch* second, LONG* order);

  // Lets go of the items and of what they said; a sort that goes on reads them afresh.
  void Forget() noexcept;

 private:
  struct Facts {
    std::string name;  // empty: the item has none, or fails to say what it is
    bool isFolder = false;
    LONG sortKey = 0;
  };
  struct KeptItem {
    ComPtr<IDispatch> item;
    Facts facts;
  };

  static Facts ReadFacts(IDispatch* item);
  // What is kept of an item; null when nothing is. Points into what Forget frees.
  const Facts* Find(IDispatch* item) const noexcept;
  void Keep(IDispatch* item, const Facts& facts);
  bool MayKeep() const noexcept {
    return comparisons_ > kComparisonsReadAfresh && kept_.size() < itemsToKeep_;
  }
  // The place of an item in the table: where it is, or the free place where it belongs.
  size_t SlotOf(IDispatch* item) const noexcept;

  static constexpr size_t kComparisonsReadAfresh = 256;

  size_t itemsToKeep_ = 0;  // at most as many as the view has
  size_t comparisons_ = 0;
  std::deque<KeptItem> kept_;  // they stay where they are when others come
  std::vector<KeptItem*>
      table_;  // by address of the item; a power of two, at most half full, null where free
};

}  // namespace file_explorer
