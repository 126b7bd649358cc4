#include "workbench/controls/operations/delete_plan.h"

#include "base/files/paths.h"

namespace controls {
namespace {

using base::FileKind;

BinRefusal RefusalOfKind(FileKind kind) {
  switch (kind) {
    case FileKind::kFileLink:
    case FileKind::kFolderLink:
    case FileKind::kMountPoint:
      return BinRefusal::kLink;
    case FileKind::kOther:
      return BinRefusal::kSpecial;
    default:
      return BinRefusal::kNone;
  }
}

class Planner {
 public:
  Planner(const DeleteWish& wish, base::FileSystem& files) : wish_(wish), files_(files) {}

  BinRefusal Judge(const std::wstring& path) {
    if (wish_.permanently) return BinRefusal::kAsked;
    base::FileStatus status;
    // What has gone meanwhile is reported when it is deleted.
    if (files_.Status(path, &status) != base::kNoError) return BinRefusal::kUnreadable;
    const BinRefusal kind = RefusalOfKind(status.kind);
    if (kind != BinRefusal::kNone) return kind;
    if (!base::ShellCanExpress(path)) return BinRefusal::kName;
    if (!wish_.hasBin(path)) return BinRefusal::kNoBin;
    return status.kind == FileKind::kFolder ? JudgeContents(path) : BinRefusal::kNone;
  }

  bool stopped() const { return stopped_; }

 private:
  // The folders that wait stand in a list, not on the stack: trees may be deep.
  BinRefusal JudgeContents(const std::wstring& folder) {
    std::vector<std::wstring> waiting = {folder};
    std::vector<base::FileEntry> entries;
    while (!waiting.empty()) {
      if (!wish_.goOn()) {
        stopped_ = true;
        return BinRefusal::kUnreadable;
      }
      const std::wstring at = std::move(waiting.back());
      waiting.pop_back();
      entries.clear();
      if (files_.List(at, &entries) != base::kNoError) return BinRefusal::kUnreadable;
      for (const base::FileEntry& entry : entries) {
        std::wstring path = base::PathInFolder(at, entry.name);
        if (RefusalOfKind(entry.status.kind) != BinRefusal::kNone || !base::ShellCanExpress(path)) {
          return BinRefusal::kContents;
        }
        if (entry.status.kind == FileKind::kFolder) waiting.push_back(std::move(path));
      }
    }
    return BinRefusal::kNone;
  }

  const DeleteWish& wish_;
  base::FileSystem& files_;
  bool stopped_ = false;
};

}  // namespace

DeletePlan PlanDelete(const DeleteWish& wish, base::FileSystem& files) {
  DeletePlan plan;
  Planner planner(wish, files);
  for (const std::wstring& path : wish.paths) {
    plan.items.push_back({path, planner.Judge(path)});
    if (plan.items.back().refusal == BinRefusal::kNone) ++plan.inBin;
    plan.stopped = planner.stopped();
    if (plan.stopped) break;
  }
  return plan;
}

}  // namespace controls
