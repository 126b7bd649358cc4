#include "workbench/controls/model/transfer_plan.h"

#include <algorithm>
#include <set>

#include "workbench/controls/model/natural_compare.h"
#include "workbench/controls/model/path_logic.h"

namespace controls {
namespace {

std::wstring Quoted(std::wstring_view path) {
  return L"\u201C" + std::wstring(NameOfPath(path)) + L"\u201D";
}

std::wstring Folded(std::wstring text) {
  std::transform(text.begin(), text.end(), text.begin(), FoldCase);
  return text;
}

class Planner {
 public:
  Planner(bool move, const DiskLook& disk) : move_(move), disk_(disk) {}

  bool Add(const std::wstring& source, const std::wstring& target, int depth) {
    if (!ShellCanExpress(source) || !ShellCanExpress(target)) {
      return Fail(Quoted(source) +
                  L" cannot be copied or moved by the system: its path is too long or its name is reserved.");
    }
    const PathKind from = disk_.kind(source);
    const PathKind to = disk_.kind(target);
    if (from == PathKind::kNothing) return Fail(Quoted(source) + L" is no longer there.");
    if (to == PathKind::kNothing || (to == PathKind::kFile && from == PathKind::kFile)) {
      // Files of one name may come from several folders.
      const bool first = targets_.insert(Folded(target)).second;
      plan_.transfers.push_back({source, target, to == PathKind::kFile || !first});
      return true;
    }
    if (from != to) {
      return Fail(
          Quoted(source) + (move_ ? L" cannot be moved: " : L" cannot be copied: ") +
          (to == PathKind::kFolder ? L"there is a folder of this name." : L"there is a file of this name."));
    }
    if (depth == 0) plan_.sharedFolders.push_back(target);
    for (const std::wstring& name : disk_.names(source)) {
      if (!Add(JoinPath(source, name), JoinPath(target, name), depth + 1)) return false;
    }
    plan_.spreadFolders.push_back(source);
    return true;
  }

  bool Fail(std::wstring error) {
    plan_ = TransferPlan();
    plan_.error = std::move(error);
    return false;
  }

  TransferPlan Take() { return std::move(plan_); }

 private:
  bool move_;
  const DiskLook& disk_;
  TransferPlan plan_;
  std::set<std::wstring> targets_;
};

std::wstring FreeCopy(const std::wstring& path, const DiskLook& disk) {
  for (int number = 1;; ++number) {
    std::wstring candidate = JoinPath(ParentOfPath(path), NameOfCopy(NameOfPath(path), number));
    if (disk.kind(candidate) == PathKind::kNothing) return candidate;
  }
}

}  // namespace

TransferPlan PlanTransfer(const std::vector<std::wstring>& sources, const std::wstring& folder, bool move,
                          const DiskLook& disk) {
  Planner planner(move, disk);
  if (disk.kind(folder) != PathKind::kFolder) {
    planner.Fail(L"The folder " + Quoted(folder) + L" is no longer there.");
    return planner.Take();
  }
  for (const std::wstring& source : sources) {
    if (IsWithin(folder, source)) {
      planner.Fail(Quoted(source) + L" cannot be copied or moved into itself.");
      break;
    }
    const bool here = SamePath(ParentOfPath(source), folder);
    if (here && move) continue;
    if (!planner.Add(source, here ? FreeCopy(source, disk) : JoinPath(folder, NameOfPath(source)), 0)) break;
  }
  return planner.Take();
}

TransferQuestions QuestionsOf(const TransferPlan& plan, bool move) {
  TransferQuestions questions;
  const auto replaces = [](const Transfer& transfer) { return transfer.replaces; };
  const auto first = std::find_if(plan.transfers.begin(), plan.transfers.end(), replaces);
  const auto count =
      static_cast<size_t>(std::count_if(plan.transfers.begin(), plan.transfers.end(), replaces));
  questions.others = count < plan.transfers.size();
  if (!plan.sharedFolders.empty()) {
    questions.share = plan.sharedFolders.size() == 1
                          ? L"There is already a folder named " + Quoted(plan.sharedFolders.front()) +
                                L" in this folder.\n\nDo you want to put the contents of both together?"
                          : L"There are already " + std::to_wstring(plan.sharedFolders.size()) +
                                L" of these folders in this folder, " + Quoted(plan.sharedFolders.front()) +
                                L" among them.\n\nDo you want to put their contents together?";
  }
  if (!move || count == 0) return questions;  // before a copy replaces a file, the system asks
  questions.replace = count == 1 ? L"There is already an item named " + Quoted(first->target) +
                                       L" in this folder.\n\nDo you want to replace it?"
                                 : L"There are already " + std::to_wstring(count) +
                                       L" items of the same names in this folder, " + Quoted(first->target) +
                                       L" among them.\n\nDo you want to replace them?";
  if (questions.others) questions.replace += L"\n\nWith No they stay, and the others are moved.";
  return questions;
}

void DropReplacements(TransferPlan& plan) {
  std::erase_if(plan.transfers, [](const Transfer& transfer) { return transfer.replaces; });
}

}  // namespace controls
