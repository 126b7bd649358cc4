#include "workbench/controls/operations/operation_text.h"

#include <algorithm>

#include "base/files/paths.h"
#include "workbench/controls/model/display_text.h"

namespace controls {
namespace {

constexpr size_t kNamedFailures = 10;
constexpr size_t kNamedItems = 10;
constexpr size_t kShownName = 90;  // characters of a name; longer ones lose their middle
constexpr unsigned kShortOperationMs = 500;
constexpr int kNearlyDone = 900;  // thousandths

struct Words {
  OperationKind kind;
  const wchar_t* caption;
  const wchar_t* doing;
  const wchar_t* done;
};
constexpr Words kWords[] = {
    {OperationKind::kCopy, L"Copy", L"Copying", L"copied"},
    {OperationKind::kMove, L"Move", L"Moving", L"moved"},
    {OperationKind::kDelete, L"Delete", L"Deleting", L"deleted"},
    {OperationKind::kUndo, L"Undo", L"Undoing", L"taken back"},
};

const Words& WordsOf(OperationKind kind) {
  return *std::find_if(std::begin(kWords), std::end(kWords),
                       [&](const Words& row) { return row.kind == kind; });
}

std::wstring Count(size_t count, const wchar_t* one, const wchar_t* many) {
  return GroupDigits(count) + L" " + (count == 1 ? one : many);
}

std::wstring Facts(const base::FileStatus& status, const TextFormat& format) {
  const bool link = status.kind == base::FileKind::kFileLink || status.kind == base::FileKind::kFolderLink;
  if (link) return L"a link";
  if (status.kind != base::FileKind::kFile) return L"a folder";
  std::wstring text = ShortSize(status.size);
  const std::wstring date = format.date(status.modified);
  if (!date.empty()) text += L", changed " + date;
  return text;
}

struct RefusalWords {
  BinRefusal refusal;
  const wchar_t* reason;
};
constexpr RefusalWords kRefusals[] = {
    {BinRefusal::kNoBin, L"its drive has no recycle bin"},
    {BinRefusal::kLink, L"it is a link; what it leads to stays"},
    {BinRefusal::kSpecial, L"it is not an ordinary file"},
    {BinRefusal::kName, L"the bin cannot keep its name"},
    {BinRefusal::kContents, L"it holds links, or names that the bin cannot keep; what links lead to stays"},
    {BinRefusal::kUnreadable, L"its contents cannot be read"},
};

const wchar_t* ReasonOf(BinRefusal refusal) {
  for (const RefusalWords& row : kRefusals) {
    if (row.refusal == refusal) return row.reason;
  }
  return L"";
}

// The names of those that the bin can't keep, with the reasons.
std::wstring RefusedItems(const DeletePlan& plan) {
  std::wstring text;
  size_t refused = 0;
  for (const DeleteItem& item : plan.items) {
    if (item.refusal == BinRefusal::kNone) continue;
    if (++refused > kNamedItems) continue;
    text += L"\n" + QuotedName(item.path) + L": " + ReasonOf(item.refusal) + L".";
  }
  if (refused > kNamedItems) text += L"\n... and " + GroupDigits(refused - kNamedItems) + L" more.";
  return text;
}

bool AllBecauseOf(const DeletePlan& plan, BinRefusal refusal) {
  return !plan.items.empty() && std::all_of(plan.items.begin(), plan.items.end(),
                                            [&](const DeleteItem& item) { return item.refusal == refusal; });
}

}  // namespace

std::wstring QuotedName(std::wstring_view path) {
  std::wstring name(base::NameOfPath(path));
  if (name.size() > kShownName) {
    constexpr size_t kEnd = kShownName / 3;
    name = name.substr(0, kShownName - kEnd) + L"\u2026" + name.substr(name.size() - kEnd);
  }
  std::replace(name.begin(), name.end(), base::kBackslashInName, L'\\');
  return L"\u201C" + name + L"\u201D";
}

const wchar_t* CaptionOf(OperationKind kind) {
  return WordsOf(kind).caption;
}

ConflictText TextOfConflict(const base::Conflict& conflict, const TextFormat& format) {
  ConflictText text;
  const bool file = conflict.targetStatus.kind != base::FileKind::kFolder;
  text.heading = std::wstring(L"There is already a ") + (file ? L"file" : L"folder") + L" named " +
                 QuotedName(conflict.target) + L" in " + QuotedName(base::ParentOfPath(conflict.target)) +
                 L".";
  if (conflict.folders) {
    text.heading += L" Do you want to put the contents of both folders together?";
    text.replace = L"&Merge";
    return text;
  }
  text.heading += conflict.mayReplace ? L" Do you want to replace it?"
                  : file              ? L" A folder cannot replace it."
                                      : L" A file cannot replace it.";
  text.incoming =
      (conflict.moves ? L"To be moved:  " : L"To be copied:  ") + Facts(conflict.sourceStatus, format);
  text.present = L"Already there:  " + Facts(conflict.targetStatus, format);
  text.replace = L"&Replace";
  return text;
}

ProgressText TextOfProgress(OperationKind kind, const base::TransferProgress& progress) {
  ProgressText text;
  text.title = std::wstring(WordsOf(kind).doing);
  text.name = progress.source.empty() ? L"" : QuotedName(progress.source);
  if (progress.itemsTotal != 0) {
    text.title += L" " + Count(progress.itemsTotal, L"item", L"items");
    text.counts = GroupDigits(progress.itemsDone) + L" of " + Count(progress.itemsTotal, L"item", L"items");
    text.thousandths =
        static_cast<int>(std::min(progress.itemsDone, progress.itemsTotal) * 1000 / progress.itemsTotal);
  }
  if (progress.bytesTotal != 0) {
    text.counts += L", " + ShortSize(progress.bytesDone) + L" of " + ShortSize(progress.bytesTotal);
    const double part = static_cast<double>(std::min(progress.bytesDone, progress.bytesTotal)) /
                        static_cast<double>(progress.bytesTotal);
    text.thousandths = static_cast<int>(part * 1000);
  }
  return text;
}

bool ShowsProgress(unsigned elapsedMs, int thousandths) {
  return elapsedMs >= kShortOperationMs && thousandths < kNearlyDone;
}

bool DeletesForGood(const DeletePlan& plan) {
  return plan.inBin != plan.items.size();
}

std::wstring TextOfDelete(const DeletePlan& plan) {
  const std::wstring things = plan.items.size() == 1
                                  ? QuotedName(plan.items.front().path)
                                  : L"these " + Count(plan.items.size(), L"item", L"items");
  if (!DeletesForGood(plan)) return L"Do you want to move " + things + L" to the recycle bin?";
  if (AllBecauseOf(plan, BinRefusal::kAsked)) return L"Do you want to delete " + things + L" permanently?";
  if (AllBecauseOf(plan, BinRefusal::kNoBin)) {
    return L"Do you want to delete " + things +
           L" permanently?\n\nThere is no recycle bin here: what is deleted cannot be brought back.";
  }
  if (plan.inBin == 0) {
    return L"Do you want to delete " + things + L" permanently?\n\nThe recycle bin cannot keep " +
           (plan.items.size() == 1 ? L"it:" : L"them:") + RefusedItems(plan);
  }
  return L"Do you want to delete " + things + L"? " + Count(plan.inBin, L"goes", L"go") +
         L" to the recycle bin.\n\nThe bin cannot keep the following, which will be deleted permanently:" +
         RefusedItems(plan);
}

std::wstring TextOfReport(OperationKind kind, const base::TransferReport& report, const TextFormat& format) {
  if (report.failures.empty()) return {};
  const wchar_t* const done = WordsOf(kind).done;
  const size_t failures = report.failures.size();
  std::wstring text;
  if (report.cancelled) text += L"The operation was cancelled.\n";
  text += report.done == 0 ? std::wstring(L"Nothing was ") + done + L"."
                           : Count(report.done, L"item was ", L"items were ") + done + L".";
  text += L" The following could not be " + std::wstring(done) + L":\n";
  for (size_t i = 0; i < std::min(failures, kNamedFailures); ++i) {
    const base::TransferFailure& failure = report.failures[i];
    text += L"\n";
    if (!failure.path.empty()) text += QuotedName(failure.path) + L": ";
    text += base::TextOfFailure(failure, format.error);
  }
  if (failures > kNamedFailures) text += L"\n... and " + GroupDigits(failures - kNamedFailures) + L" more.";
  return text;
}

}  // namespace controls
