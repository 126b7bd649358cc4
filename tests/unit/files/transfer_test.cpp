// What copies and moves do: whole files, conflicts, where things go.
#include "tests/unit/files/transfer_fixture.h"

namespace transfer_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

TEST_F(TransferTest, CopiesATreeWithItsCountsAndBytes) {
  folder_.Write("from/a.txt", "12345");
  folder_.Write("from/sub/b.txt", "678");
  folder_.Folder("to");
  const TransferReport report = Copy({"from"}, "to");
  EXPECT_THAT(report.failures, IsEmpty());
  EXPECT_EQ(report.done, 4U);
  EXPECT_THAT(report.arrived, ElementsAre(folder_.Windows("to/from")));
  EXPECT_EQ(folder_.Read("to/from/sub/b.txt"), "678");
  EXPECT_EQ(answers_.last.itemsTotal, 4U);
  EXPECT_EQ(answers_.last.bytesTotal, 8U);
}

TEST_F(TransferTest, AFullDiskLeavesNoHalfFileAndNamesTheOneThatIsMissing) {
  folder_.Write("a.txt", "first");
  folder_.Write("b.txt", "second");
  folder_.Folder("to");
  files_.after = [this](const FileCall& call) {
    if (call.name != "CopyBytes" || NameOfPath(call.path) != L"b.txt") return kNoError;
    return kDiskFull;  // with what has been written on the disk
  };
  const TransferReport report = Copy({"a.txt", "b.txt"}, "to");
  ASSERT_THAT(report.failures, SizeIs(1));
  EXPECT_EQ(report.failures[0].path, folder_.Windows("b.txt"));
  EXPECT_EQ(report.failures[0].error, kDiskFull);
  EXPECT_EQ(report.done, 1U);
  EXPECT_EQ(
      folder_.Contents(),
      (FolderContents{
          {"a.txt", "file:first"}, {"b.txt", "file:second"}, {"to", "folder"}, {"to/a.txt", "file:first"}}));
}

TEST_F(TransferTest, ACopyThatIsCutOffWithoutAWordDoesNotReplaceAnything) {
  folder_.Write("a.txt", "newer contents");
  folder_.Write("to/a.txt", "older");
  files_.after = [this](const FileCall& call) {
    if (call.name == "CopyBytes") {
      const std::string temporary =
          "to/" + std::string(NameOfPath(call.other).begin(), NameOfPath(call.other).end());
      folder_.Write(temporary, "newer");
    }
    return kNoError;
  };
  const TransferReport report = Copy({"a.txt"}, "to");
  EXPECT_THAT(Reasons(report), ElementsAre(FailureReason::kSizeDiffers));
  EXPECT_EQ(folder_.Read("to/a.txt"), "older");
  EXPECT_THAT(folder_.Contents(), SizeIs(3));
}

TEST_F(TransferTest, ASourceThatChangesWhileItIsCopiedIsCopiedAgain) {
  folder_.Write("a.txt", "1234");
  folder_.Folder("to");
  bool changed = false;
  files_.after = [&](const FileCall& call) {
    if (call.name == "CopyBytes" && !changed) folder_.Write("a.txt", "longer than before");
    changed = changed || call.name == "CopyBytes";
    return kNoError;
  };
  EXPECT_THAT(Copy({"a.txt"}, "to").failures, IsEmpty());
  EXPECT_EQ(folder_.Read("to/a.txt"), "longer than before");
}

TEST_F(TransferTest, ConflictsAreAnsweredOneByOneOrForAll) {
  for (const char* const name : {"a", "b", "c"}) {
    folder_.Write(name, std::string("new ") + name);
    folder_.Write(std::string("to/") + name, "old");
  }
  answers_.reply = {ConflictAnswer::kSkip, false};
  TransferReport report = Copy({"a", "b", "c"}, "to");
  EXPECT_EQ(report.skipped, 3U);
  EXPECT_EQ(report.done, 0U);
  EXPECT_THAT(answers_.conflicts, SizeIs(3));
  EXPECT_EQ(answers_.conflicts[0].sourceStatus.size, 5U);
  EXPECT_EQ(answers_.conflicts[0].targetStatus.size, 3U);
  answers_.conflicts.clear();
  answers_.reply = {ConflictAnswer::kKeepBoth, true};
  report = Copy({"a", "b", "c"}, "to");
  EXPECT_THAT(answers_.conflicts, SizeIs(1));
  EXPECT_THAT(report.renamed, SizeIs(3));
  EXPECT_EQ(folder_.Read("to/a - Copy"), "new a");
  answers_.reply = {ConflictAnswer::kCancel, false};
  report = Move({"a", "b", "c"}, "to");
  EXPECT_TRUE(report.cancelled);
  EXPECT_TRUE(folder_.Exists("a") && folder_.Exists("b") && folder_.Exists("c"));
  answers_.reply = {ConflictAnswer::kReplace, true};
  report = Move({"a", "b", "c"}, "to");
  EXPECT_EQ(report.done, 3U);
  EXPECT_EQ(folder_.Read("to/c"), "new c");
  EXPECT_FALSE(folder_.Exists("a"));
}

TEST_F(TransferTest, FoldersOfOneNameArePutTogetherAfterOneQuestion) {
  folder_.Write("dir/x", "new x");
  folder_.Write("dir/inner/y", "y");
  folder_.Write("to/dir/z", "z");
  folder_.Write("to/dir/inner/w", "w");
  answers_.reply = {ConflictAnswer::kReplace, true};
  const TransferReport report = Move({"dir"}, "to");
  EXPECT_THAT(report.failures, IsEmpty());
  ASSERT_THAT(answers_.conflicts, SizeIs(1));
  EXPECT_TRUE(answers_.conflicts[0].folders);
  EXPECT_FALSE(folder_.Exists("dir"));
  EXPECT_EQ(folder_.Read("to/dir/x") + folder_.Read("to/dir/inner/y") + folder_.Read("to/dir/inner/w"),
            "new xyw");
  EXPECT_THAT(Undo(report).failures, IsEmpty());
  EXPECT_EQ(folder_.Contents(), (FolderContents{{"dir", "folder"},
                                                {"dir/x", "file:new x"},
                                                {"dir/inner", "folder"},
                                                {"dir/inner/y", "file:y"},
                                                {"to", "folder"},
                                                {"to/dir", "folder"},
                                                {"to/dir/z", "file:z"},
                                                {"to/dir/inner", "folder"},
                                                {"to/dir/inner/w", "file:w"}}));
}

TEST_F(TransferTest, AFileAndAFolderNeverTakeEachOthersPlace) {
  folder_.Write("a", "file");
  folder_.Write("b/x", "x");
  folder_.Folder("to/a");
  folder_.Write("to/b", "file");
  const TransferReport report = Copy({"a", "b"}, "to");
  EXPECT_THAT(Reasons(report), ElementsAre(FailureReason::kFolderInTheWay, FailureReason::kFileInTheWay));
  EXPECT_FALSE(answers_.conflicts[0].mayReplace);
  EXPECT_EQ(folder_.Read("to/b"), "file");
}

TEST_F(TransferTest, TwoSourcesOfOneNameAreKeptBoth) {
  folder_.Write("one/a.txt", "one");
  folder_.Write("two/A.TXT", "two");
  folder_.Write("tree/README", "upper");
  folder_.Write("tree/readme", "lower");
  folder_.Folder("other");
  for (const char* const target : {"to", "other"}) {
    folder_.Folder(target);
    const std::string at = target;
    const TransferReport report = Copy({"one/a.txt", "two/A.TXT", "tree"}, at);
    EXPECT_THAT(report.failures, IsEmpty());
    EXPECT_THAT(report.renamed, SizeIs(2));
    EXPECT_EQ(folder_.Read(at + "/a.txt"), "one");
    EXPECT_EQ(folder_.Read(at + "/A - Copy.TXT"), "two");
    const FolderContents contents = folder_.Contents();
    EXPECT_EQ(std::count_if(contents.begin(), contents.end(),
                            [&](const auto& item) { return item.first.starts_with(at + "/tree/"); }),
              2);
  }
  EXPECT_THAT(answers_.conflicts, IsEmpty());
}

TEST_F(TransferTest, InItsOwnFolderACopyGetsAnotherNameAndAMoveDoesNothing) {
  folder_.Write("a.txt", "a");
  folder_.Link("way", ".");
  EXPECT_EQ(Copy({"a.txt"}, "").done, 1U);
  EXPECT_EQ(Copy({"a.txt"}, "way").done, 1U) << "by another way to the same folder";
  EXPECT_EQ(folder_.Read("a - Copy (2).txt"), "a");
  EXPECT_EQ(Move({"a.txt"}, "way").done, 0U);
  EXPECT_EQ(folder_.Read("a.txt"), "a");
  EXPECT_THAT(answers_.conflicts, IsEmpty());
}

TEST_F(TransferTest, NothingGoesIntoItselfWhateverThePathSays) {
  folder_.Write("box/child/x", "x");
  folder_.Link("way", "box/child");
  for (const char* const target : {"box", "box/child", "way"}) {
    for (const TransferKind kind : {TransferKind::kCopy, TransferKind::kMove}) {
      EXPECT_THAT(Reasons(Run(kind, {"box"}, target)), ElementsAre(FailureReason::kIntoItself));
    }
  }
  EXPECT_THAT(folder_.Contents(), SizeIs(4));
}

TEST_F(TransferTest, TheDestinationMayBeALink) {
  folder_.Write("a.txt", "a");
  folder_.Folder("real");
  folder_.Link("way", "real");
  EXPECT_EQ(Copy({"a.txt"}, "way").done, 1U);
  EXPECT_EQ(folder_.Read("real/a.txt"), "a");
  EXPECT_THAT(Reasons(Copy({"a.txt"}, "gone")), ElementsAre(FailureReason::kNoFolder));
  EXPECT_THAT(Reasons(Copy({"a.txt"}, "a.txt")), ElementsAre(FailureReason::kNoFolder));
}

}  // namespace
}  // namespace transfer_test
