// Which of the items that a user deletes can go to the recycle bin. Pure: the disk is a FileSystem.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/files/file_system.h"

namespace controls {

// Why an item is deleted for good instead of going to the bin.
enum class BinRefusal {
  kNone,        // it goes to the bin
  kAsked,       // the user wants it gone
  kNoBin,       // its drive has no bin
  kLink,        // a link, junction or mount point: a bin may take what it leads to
  kSpecial,     // a pipe, socket or device
  kName,        // a name or path that the bin takes for another one
  kContents,    // a folder with one of these somewhere inside
  kUnreadable,  // a folder that can't be looked through
};

struct DeleteItem {
  std::wstring path;
  BinRefusal refusal = BinRefusal::kNone;
};

struct DeletePlan {
  std::vector<DeleteItem> items;  // in the order of the paths
  size_t inBin = 0;               // of them that go to the bin
  bool stopped = false;           // while folders were looked through
};

struct DeleteWish {
  std::vector<std::wstring> paths;  // absolute
  bool permanently = false;
  // Whether the drive that a path lies on has a bin.
  std::function<bool(const std::wstring& path)> hasBin;
  // Asked now and then while folders are looked through.
  std::function<bool()> goOn;
};

// Looks through folders to the ground, but through no link. Nothing is changed.
DeletePlan PlanDelete(const DeleteWish& wish, base::FileSystem& files);

}  // namespace controls
