// What an operation comes down to, before anything is changed: which objects there are, and what is refused
// at once. Reads the file system, changes nothing.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/files/transfer.h"

namespace base {

// A file, folder or link with everything in it, as it was when it was looked at.
struct PlanNode {
  std::wstring name;
  FileStatus status;
  bool read = false;                 // folders: children and listError are known
  SystemError listError = kNoError;  // why the folder could not be listed
  std::vector<PlanNode> children;
};

struct PlannedSource {
  std::wstring path;
  PlanNode node;
  bool inDestination = false;     // its folder is the destination, however both are written
  bool belowDestination = false;  // it lies in a folder somewhere inside the destination
  bool acrossFileSystems = false;
  std::optional<TransferFailure> refusal;
};

struct TransferPlan {
  std::optional<TransferFailure> refusal;  // of the whole operation
  std::wstring folderPath;                 // of the destination, as it is written
  FileIdentity folder;
  std::vector<PlannedSource> sources;
  bool cancelled = false;
  size_t items = 0;
  uint64_t bytes = 0;
};

// goOn is asked after each folder; false ends the planning, cancelled.
TransferPlan PlanTransfer(const TransferRequest& request, FileSystem& files,
                          const std::function<bool(const TransferPlan& plan)>& goOn);

// Lists a folder and everything in it unless that has been done. Links and mount points are not entered.
// False when goOn said so.
bool ReadTree(PlanNode& node, const std::wstring& path, FileSystem& files, const std::function<bool()>& goOn);

// What a tree counts for: itself and everything in it.
struct TreeSize {
  size_t items = 0;
  uint64_t bytes = 0;
};
TreeSize SizeOfTree(const PlanNode& node);

}  // namespace base
