#include "workbench/controls/operations/operation_text.h"

#include <gtest/gtest.h>

#include "base/files/paths.h"

namespace controls {
namespace {

using base::FailureReason;
using base::FileKind;

bool Has(const std::wstring& text, const wchar_t* part) {
  return text.find(part) != std::wstring::npos;
}

const TextFormat& Format() {
  static const TextFormat format = {
      [](int64_t time) { return L"day " + std::to_wstring(time); },
      [](base::SystemError error) { return L"System text " + std::to_wstring(error) + L"."; }};
  return format;
}

base::Conflict FileConflict() {
  base::Conflict conflict;
  conflict.source = L"C:\\from\\a.txt";
  conflict.target = L"D:\\to\\A.TXT";
  conflict.sourceStatus.kind = FileKind::kFile;
  conflict.sourceStatus.size = 1536;
  conflict.sourceStatus.modified = 2;
  conflict.targetStatus.kind = FileKind::kFile;
  conflict.targetStatus.size = 512;
  conflict.targetStatus.modified = 1;
  return conflict;
}

TEST(OperationText, AConflictOfFilesShowsBothSizesAndDates) {
  const ConflictText text = TextOfConflict(FileConflict(), Format());
  EXPECT_EQ(text.heading,
            L"There is already a file named \u201CA.TXT\u201D in \u201Cto\u201D. Do you want to replace it?");
  EXPECT_EQ(text.incoming, L"To be copied:  1.5 KB, changed day 2");
  EXPECT_EQ(text.present, L"Already there:  512 bytes, changed day 1");
  EXPECT_EQ(text.replace, L"&Replace");
}

TEST(OperationText, CopiesAndMovesAskInTheSameWords) {
  base::Conflict conflict = FileConflict();
  const ConflictText copied = TextOfConflict(conflict, Format());
  conflict.moves = true;
  const ConflictText moved = TextOfConflict(conflict, Format());
  EXPECT_EQ(copied.heading, moved.heading);
  EXPECT_EQ(copied.present, moved.present);
  EXPECT_EQ(copied.replace, moved.replace);
}

TEST(OperationText, FoldersThatMeetAreMerged) {
  base::Conflict conflict = FileConflict();
  conflict.sourceStatus.kind = conflict.targetStatus.kind = FileKind::kFolder;
  conflict.folders = true;
  const ConflictText text = TextOfConflict(conflict, Format());
  EXPECT_TRUE(Has(text.heading, L"a folder named")) << "and not a file";
  EXPECT_TRUE(Has(text.heading, L"put the contents of both folders together?"));
  EXPECT_EQ(text.replace, L"&Merge");
  EXPECT_EQ(text.incoming + text.present, L"");
}

TEST(OperationText, AFileAndAFolderNeverReplaceEachOther) {
  base::Conflict conflict = FileConflict();
  conflict.mayReplace = false;
  conflict.targetStatus.kind = FileKind::kFolder;
  EXPECT_TRUE(Has(TextOfConflict(conflict, Format()).heading, L"A file cannot replace it."));
  conflict.targetStatus.kind = FileKind::kFile;
  conflict.sourceStatus.kind = FileKind::kFolder;
  EXPECT_TRUE(Has(TextOfConflict(conflict, Format()).heading, L"A folder cannot replace it."));
}

TEST(OperationText, ProgressCountsItemsAndBytes) {
  base::TransferProgress progress;
  progress.source = L"C:\\from\\a.txt";
  progress.itemsDone = 12;
  progress.itemsTotal = 1340;
  progress.bytesDone = 1024 * 1024;
  progress.bytesTotal = 4 * 1024 * 1024;
  const ProgressText text = TextOfProgress(OperationKind::kMove, progress);
  EXPECT_EQ(text.title, L"Moving 1,340 items");
  EXPECT_EQ(text.name, L"\u201Ca.txt\u201D");
  EXPECT_EQ(text.counts, L"12 of 1,340 items, 1 MB of 4 MB");
  EXPECT_EQ(text.thousandths, 250);
}

TEST(OperationText, WithoutBytesTheItemsTell) {
  base::TransferProgress progress;
  progress.itemsDone = 1;
  progress.itemsTotal = 2;
  EXPECT_EQ(TextOfProgress(OperationKind::kDelete, progress).thousandths, 500);
  EXPECT_EQ(TextOfProgress(OperationKind::kDelete, {}).thousandths, 0) << "before anything is counted";
}

TEST(OperationText, MoreDoneThanThereSeemedToBeIsNoMoreThanAll) {
  base::TransferProgress progress;
  progress.itemsDone = progress.itemsTotal = 1;
  progress.bytesDone = 20;
  progress.bytesTotal = 10;
  EXPECT_EQ(TextOfProgress(OperationKind::kCopy, progress).thousandths, 1000);
}

TEST(OperationText, ShortOperationsShowNoProgress) {
  EXPECT_FALSE(ShowsProgress(0, 0));
  EXPECT_FALSE(ShowsProgress(499, 0));
  EXPECT_TRUE(ShowsProgress(500, 0));
  EXPECT_TRUE(ShowsProgress(60000, 899));
  EXPECT_FALSE(ShowsProgress(500, 900)) << "nearly done";
}

DeletePlan PlanOf(std::vector<DeleteItem> items) {
  DeletePlan plan;
  plan.items = std::move(items);
  for (const DeleteItem& item : plan.items) plan.inBin += item.refusal == BinRefusal::kNone ? 1U : 0U;
  return plan;
}

TEST(OperationText, TheQuestionBeforeDeletingSaysWhatIsGoneForGood) {
  const DeletePlan bin = PlanOf({{L"C:\\a.txt"}});
  EXPECT_EQ(TextOfDelete(bin), L"Do you want to move \u201Ca.txt\u201D to the recycle bin?");
  EXPECT_FALSE(DeletesForGood(bin));
  EXPECT_EQ(TextOfDelete(PlanOf({{L"C:\\a"}, {L"C:\\b"}})),
            L"Do you want to move these 2 items to the recycle bin?");

  const DeletePlan asked = PlanOf({{L"C:\\a.txt", BinRefusal::kAsked}});
  EXPECT_EQ(TextOfDelete(asked), L"Do you want to delete \u201Ca.txt\u201D permanently?");
  EXPECT_TRUE(DeletesForGood(asked));

  EXPECT_EQ(TextOfDelete(PlanOf({{L"C:\\a.txt", BinRefusal::kNoBin}})),
            L"Do you want to delete \u201Ca.txt\u201D permanently?\n\nThere is no recycle bin here: what is "
            L"deleted "
            L"cannot be brought back.");
  const std::wstring link = TextOfDelete(PlanOf({{L"C:\\l", BinRefusal::kLink}}));
  EXPECT_TRUE(Has(link, L"permanently?"));
  EXPECT_TRUE(Has(link, L"\u201Cl\u201D: it is a link; what it leads to stays."));
}

TEST(OperationText, AMixedDeletionNamesWhatTheBinCannotKeep) {
  const DeletePlan plan =
      PlanOf({{L"C:\\a"}, {L"C:\\l", BinRefusal::kLink}, {L"C:\\d", BinRefusal::kContents}});
  const std::wstring text = TextOfDelete(plan);
  EXPECT_TRUE(DeletesForGood(plan));
  EXPECT_TRUE(Has(text, L"Do you want to delete these 3 items? 1 goes to the recycle bin."));
  EXPECT_TRUE(Has(text, L"\u201Cl\u201D")) << "named";
  EXPECT_TRUE(Has(text, L"\u201Cd\u201D: it holds links"));
  EXPECT_FALSE(Has(text, L"\u201Ca\u201D"));
}

TEST(OperationText, ALongListOfItemsEnds) {
  std::vector<DeleteItem> items;
  for (int i = 0; i < 1012; ++i) items.push_back({L"C:\\l" + std::to_wstring(i), BinRefusal::kLink});
  const std::wstring text = TextOfDelete(PlanOf(items));
  EXPECT_TRUE(Has(text, L"\u201Cl9\u201D"));
  EXPECT_FALSE(Has(text, L"\u201Cl10\u201D"));
  EXPECT_TRUE(Has(text, L"... and 1,002 more."));
}

TEST(OperationText, AReportWithoutFailuresSaysNothing) {
  base::TransferReport report;
  report.done = 3;
  report.skipped = 1;
  EXPECT_EQ(TextOfReport(OperationKind::kCopy, report, Format()), L"");
  report.cancelled = true;
  EXPECT_EQ(TextOfReport(OperationKind::kCopy, report, Format()), L"") << "the user knows";
}

TEST(OperationText, AReportNamesWhatFailedAndCountsWhatWasDone) {
  base::TransferReport report;
  report.done = 2;
  report.failures.push_back({L"C:\\from\\a.txt", FailureReason::kSystem, 112});
  const std::wstring text = TextOfReport(OperationKind::kCopy, report, Format());
  EXPECT_TRUE(Has(text, L"2 items were copied. The following could not be copied:"));
  EXPECT_TRUE(Has(text, L"\u201Ca.txt\u201D: "));
  report.failures.front().path.clear();
  EXPECT_FALSE(Has(TextOfReport(OperationKind::kCopy, report, Format()), L"\u201C\u201D")) << "no empty name";
  report.done = 0;
  EXPECT_TRUE(Has(TextOfReport(OperationKind::kMove, report, Format()), L"Nothing was moved."));
  report.done = 1;
  EXPECT_TRUE(Has(TextOfReport(OperationKind::kDelete, report, Format()), L"1 item was deleted."));
  EXPECT_TRUE(Has(TextOfReport(OperationKind::kUndo, report, Format()), L"could not be taken back"));
}

TEST(OperationText, AReportOfAThousandFailuresEnds) {
  base::TransferReport report;
  for (int i = 0; i < 1000; ++i)
    report.failures.push_back({L"C:\\f" + std::to_wstring(i), FailureReason::kMountPoint, 0});
  const std::wstring text = TextOfReport(OperationKind::kCopy, report, Format());
  EXPECT_TRUE(Has(text, L"... and 990 more."));
  EXPECT_LT(text.size(), 2000U);
}

TEST(OperationText, ALongNameLosesItsMiddle) {
  const std::wstring name = L"begin" + std::wstring(300, L'x') + L"end.txt";
  const std::wstring shown = QuotedName(L"C:\\" + name);
  EXPECT_LT(shown.size(), 100U);
  EXPECT_TRUE(Has(shown, L"begin"));
  EXPECT_TRUE(Has(shown, L"end.txt\u201D"));
}

TEST(OperationText, ABackslashInANameIsShown) {
  EXPECT_EQ(QuotedName(base::PathInFolder(L"C:\\dir", L"tex\\wood.png")), L"\u201Ctex\\wood.png\u201D");
}

}  // namespace
}  // namespace controls
