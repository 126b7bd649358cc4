#include "base/files/transfer_plan.h"

#include <algorithm>

#include "base/files/paths.h"

namespace base {
namespace {

// Deeper folders are refused: paths that long can't be opened on most systems, and an endless tree has to
// end.
constexpr int kDepthLimit = 1000;
constexpr SystemError kPathTooLong = 206;  // ERROR_FILENAME_EXCED_RANGE

bool ReadLevel(PlanNode& node, const std::wstring& path, FileSystem& files, const std::function<bool()>& goOn,
               int depth) {
  if (node.status.kind != FileKind::kFolder || node.read) return true;
  node.read = true;
  if (depth > kDepthLimit) {
    node.listError = kPathTooLong;
    return true;
  }
  std::vector<FileEntry> entries;
  node.listError = files.List(path, &entries);
  if (!goOn()) return false;
  for (FileEntry& entry : entries) {
    PlanNode child;
    child.name = std::move(entry.name);
    child.status = entry.status;
    node.children.push_back(std::move(child));
  }
  return std::all_of(node.children.begin(), node.children.end(), [&](PlanNode& child) {
    return child.status.kind != FileKind::kFolder ||
           ReadLevel(child, PathInFolder(path, child.name), files, goOn, depth + 1);
  });
}

class Planner {
 public:
  Planner(const TransferRequest& request, FileSystem& files,
          const std::function<bool(const TransferPlan& plan)>& goOn)
      : request_(request), files_(files), goOn_(goOn) {}

  TransferPlan Run() {
    if (request_.kind != TransferKind::kDelete && !LookAtDestination()) return std::move(plan_);
    for (const std::wstring& path : request_.sources) {
      plan_.sources.push_back({});
      PlannedSource& source = plan_.sources.back();
      source.path = path;
      source.refusal = Look(source);
      source.node.name = NameOfPath(source.path);
      if (source.refusal) continue;
      if (!ReadIfNeeded(source)) {
        plan_.cancelled = true;
        break;
      }
    }
    // Sources that lie in the destination come first, so that no other one takes their places; then those
    // further inside, so that no folder that is merged into the one around them replaces them before.
    const auto rank = [](const PlannedSource& source) {
      return source.inDestination ? 0 : source.belowDestination ? 1 : 2;
    };
    std::stable_sort(plan_.sources.begin(), plan_.sources.end(),
                     [&](const PlannedSource& a, const PlannedSource& b) { return rank(a) < rank(b); });
    return std::move(plan_);
  }

 private:
  bool LookAtDestination() {
    FileStatus status;
    plan_.folderPath = request_.folder;
    SystemError error = files_.Spell(request_.folder, &plan_.folderPath);
    if (error == kNoError) error = files_.TargetStatus(plan_.folderPath, &status);
    if (error == kNoError && status.kind == FileKind::kFolder) {
      plan_.folder = status.identity;
      error = files_.PhysicalChain(plan_.folderPath, &chain_);
      if (error == kNoError) return true;
    }
    const FailureReason reason =
        error == kNoError || IsNotFound(error) ? FailureReason::kNoFolder : FailureReason::kSystem;
    plan_.refusal = TransferFailure{request_.folder, reason, error};
    return false;
  }

  std::optional<TransferFailure> Look(PlannedSource& source) {
    if (IsRootPath(source.path) && request_.kind != TransferKind::kCopy) {
      return TransferFailure{source.path, FailureReason::kSystem, kAccessDenied};
    }
    SystemError error = SpellFolderOf(&source.path);
    if (error == kNoError) error = files_.Status(source.path, &source.node.status);
    if (error != kNoError) return TransferFailure{source.path, FailureReason::kSystem, error};
    if (request_.kind == TransferKind::kDelete) return std::nullopt;
    if (source.node.status.kind == FileKind::kFolder &&
        std::find(chain_.begin(), chain_.end(), source.node.status.identity) != chain_.end()) {
      return TransferFailure{source.path, FailureReason::kIntoItself, kNoError};
    }
    // The way to the destination must not go with what moves.
    if (request_.kind == TransferKind::kMove && IsWithin(plan_.folderPath, source.path)) {
      return TransferFailure{source.path, FailureReason::kIntoItself, kNoError};
    }
    FileStatus parent;
    if (IsRootPath(source.path)) {
      parent = source.node.status;  // it is copied only, and stands in no folder
      parent.identity.index = ~plan_.folder.index;
    } else {
      error = files_.TargetStatus(ParentOfPath(source.path), &parent);
      if (error != kNoError) return TransferFailure{source.path, FailureReason::kSystem, error};
    }
    source.inDestination = parent.identity == plan_.folder;
    source.belowDestination = !IsRootPath(source.path) && !source.inDestination &&
                              parent.identity.volume == plan_.folder.volume &&
                              LiesBelow(ParentOfPath(source.path));
    source.acrossFileSystems = parent.identity.volume != plan_.folder.volume;
    return std::nullopt;
  }

  // Most sources of an operation lie in one folder.
  bool LiesBelow(const std::wstring& folder) {
    if (lastFolder_ == folder) return lastLiesBelow_;
    std::vector<FileIdentity> chain;
    lastFolder_ = folder;
    lastLiesBelow_ = files_.PhysicalChain(folder, &chain) == kNoError &&
                     std::find(chain.begin(), chain.end(), plan_.folder) != chain.end();
    return lastLiesBelow_;
  }

  // The folder may have been typed in any letter case. The name itself was chosen from a list: should it have
  // vanished, another one that differs in letter case only is not meant.
  SystemError SpellFolderOf(std::wstring* path) {
    if (IsRootPath(*path)) return kNoError;
    std::wstring folder;
    const SystemError error = files_.Spell(ParentOfPath(*path), &folder);
    if (error == kNoError) *path = PathInFolder(folder, NameOfPath(*path));
    return error;
  }

  // A folder that only gets another name needs no look at what lies in it.
  bool ReadIfNeeded(PlannedSource& source) {
    const bool renames = request_.kind == TransferKind::kMove && !source.acrossFileSystems;
    const auto goOn = [this] { return goOn_(plan_); };
    if (!renames && !ReadTree(source.node, source.path, files_, goOn)) return false;
    const TreeSize size = SizeOfTree(source.node);
    plan_.items += size.items;
    plan_.bytes += size.bytes;
    return goOn();
  }

  const TransferRequest& request_;
  FileSystem& files_;
  const std::function<bool(const TransferPlan& plan)>& goOn_;
  std::vector<FileIdentity> chain_;
  std::wstring lastFolder_;  // that LiesBelow looked at
  bool lastLiesBelow_ = false;
  TransferPlan plan_;
};

}  // namespace

TransferPlan PlanTransfer(const TransferRequest& request, FileSystem& files,
                          const std::function<bool(const TransferPlan& plan)>& goOn) {
  return Planner(request, files, goOn).Run();
}

bool ReadTree(PlanNode& node, const std::wstring& path, FileSystem& files,
              const std::function<bool()>& goOn) {
  return ReadLevel(node, path, files, goOn, 0);
}

TreeSize SizeOfTree(const PlanNode& node) {
  TreeSize size = {1, node.status.size};
  for (const PlanNode& child : node.children) {
    const TreeSize inside = SizeOfTree(child);
    size.items += inside.items;
    size.bytes += inside.bytes;
  }
  return size;
}

}  // namespace base
