// What copying or moving files into a folder comes down to, one pair of paths at a time.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "base/files/paths.h"

namespace controls {

enum class PathKind { kNothing, kFile, kFolder };

// What the plan asks of the disk; paths are absolute.
struct DiskLook {
  std::function<PathKind(const std::wstring& path)>
      kind;  // a link to a folder is a file: its contents are elsewhere's
  std::function<std::vector<std::wstring>(const std::wstring& folder)> names;  // of what lies in it
};

struct Transfer {
  std::wstring source;
  std::wstring target;
  bool replaces = false;  // a file stands there already
};

struct TransferPlan {
  std::vector<Transfer> transfers;
  // Folders of the destination that have the name of a folder that comes: their contents are put together.
  std::vector<std::wstring> sharedFolders;
  // The folders whose contents go elsewhere one by one, the innermost first: empty after a move.
  std::vector<std::wstring> spreadFolders;
  // Why nothing can be done, as a sentence; empty when it can.
  std::wstring error;
};

// A folder onto a folder puts the contents of both together; what lies in the destination already is not
// moved there, and a copy of it gets another name.
TransferPlan PlanTransfer(const std::vector<std::wstring>& sources, const std::wstring& folder, bool move,
                          const DiskLook& disk);

// What the user is asked before folders are put together or files replaced; empty when there is nothing to
// ask. others: whether something is left to do for who says no.
struct TransferQuestions {
  std::wstring share;
  std::wstring replace;
  bool others = false;
};
TransferQuestions QuestionsOf(const TransferPlan& plan, bool move);

// The plan of who wants to keep the files that stand there.
void DropReplacements(TransferPlan& plan);

using base::NameOfCopy;

}  // namespace controls
