// The transfer engine over real files, with calls that fail.
#include "base/files/transfer.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>

#include "base/files/paths.h"
#include "base/files/temporary_name.h"
#include "base/files/undo.h"
#include "base/files/wine_file_system.h"
#include "tests/support/files/machine_folder.h"
#include "tests/support/files/test_files.h"

namespace {

using namespace base;
using test_support::FileCall;
using test_support::FolderContents;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

class Answers final : public TransferObserver {
 public:
  ConflictReply OnConflict(const Conflict& conflict) override {
    conflicts.push_back(conflict);
    if (script < 0) return reply;
    const auto answer = static_cast<ConflictAnswer>(script % 4);
    script /= 4;
    replaced = replaced || answer == ConflictAnswer::kReplace;
    return {answer, false};
  }
  bool OnProgress(const TransferProgress& progress) override {
    last = progress;
    return calls++ != cancelAt;
  }

  int script = -1;  // the answers in a row, four to a digit; below zero: reply
  bool replaced = false;
  ConflictReply reply = {ConflictAnswer::kReplace, false};
  std::vector<Conflict> conflicts;
  TransferProgress last;
  size_t calls = 0;
  size_t cancelAt = static_cast<size_t>(-1);
};

class TransferTest : public testing::Test {
 protected:
  TransferTest() { files_.otherVolume = folder_.Windows("other"); }

  TransferReport Run(TransferKind kind, const std::vector<std::string>& sources,
                     const std::string& folder = {}) {
    TransferRequest request;
    request.kind = kind;
    for (const std::string& source : sources) request.sources.push_back(folder_.Windows(source));
    if (kind != TransferKind::kDelete) request.folder = folder_.Windows(folder);
    return RunTransfer(request, files_, answers_);
  }
  TransferReport Copy(const std::vector<std::string>& sources, const std::string& folder) {
    return Run(TransferKind::kCopy, sources, folder);
  }
  TransferReport Move(const std::vector<std::string>& sources, const std::string& folder) {
    return Run(TransferKind::kMove, sources, folder);
  }
  TransferReport Undo(const TransferReport& report) { return RunUndo(report.undo, files_, answers_); }
  static std::vector<FailureReason> Reasons(const TransferReport& report) {
    std::vector<FailureReason> reasons;
    for (const TransferFailure& failure : report.failures) reasons.push_back(failure.reason);
    return reasons;
  }
  // A call of that name, on the time it comes, gets this error.
  void FailOnce(const std::string& name, SystemError error) {
    files_.before = [this, name, error](const FileCall& call) {
      if (call.name != name || failed_) return kNoError;
      failed_ = true;
      return error;
    };
  }

  test_support::MachineFolder folder_;
  wine::WineFileSystem machine_{{[](const std::wstring&) { return std::string("/."); }, nullptr}};
  test_support::TestFiles files_{machine_};
  Answers answers_;
  bool failed_ = false;
};

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

TEST_F(TransferTest, LinksAreCopiedMovedAndDeletedAsLinks) {
  folder_.Write("keep/x", "kept");
  folder_.Link("tree/folder", "../keep");
  folder_.Link("tree/file", "../keep/x");
  folder_.Link("tree/dangling", "nowhere");
  folder_.Link("tree/loop", ".");
  folder_.Folder("to");
  folder_.Folder("other");
  EXPECT_THAT(Copy({"tree"}, "to").failures, IsEmpty());
  EXPECT_THAT(Move({"to/tree"}, "other").failures, IsEmpty());
  EXPECT_EQ(folder_.Contents().at("other/tree/folder"), "link:../keep");
  EXPECT_EQ(folder_.Contents().at("other/tree/dangling"), "link:nowhere");
  EXPECT_THAT(Run(TransferKind::kDelete, {"tree", "other/tree"}).failures, IsEmpty());
  EXPECT_EQ(
      folder_.Contents(),
      (FolderContents{{"keep", "folder"}, {"keep/x", "file:kept"}, {"to", "folder"}, {"other", "folder"}}));
}

TEST_F(TransferTest, ALinkThatCannotBeMadeIsReportedAndItsContentsAreNotCopied) {
  folder_.Write("keep/x", "kept");
  folder_.Link("link", "keep");
  folder_.Folder("to");
  FailOnce("CopyLink", kNotSupported);
  EXPECT_THAT(Reasons(Copy({"link"}, "to")), ElementsAre(FailureReason::kLinkNotMade));
  EXPECT_FALSE(folder_.Exists("to/link"));
}

TEST_F(TransferTest, ALinkWhereAFileShouldGoIsReplacedItselfNotItsTarget) {
  folder_.Write("keep.txt", "kept");
  folder_.Write("a.txt", "new");
  folder_.Link("to/a.txt", "../keep.txt");
  EXPECT_THAT(Copy({"a.txt"}, "to").failures, IsEmpty());
  EXPECT_EQ(folder_.Contents().at("to/a.txt"), "file:new");
  EXPECT_EQ(folder_.Read("keep.txt"), "kept");
}

TEST_F(TransferTest, AMoveToAnotherFileSystemKeepsASourceThatChangedMeanwhile) {
  folder_.Write("from/a.txt", "a");
  folder_.Write("from/b.txt", "b");
  folder_.Folder("other");
  files_.after = [this](const FileCall& call) {
    if (call.name == "Flush") folder_.Write("from/a.txt", "changed");
    return kNoError;
  };
  const TransferReport report = Move({"from"}, "other");
  EXPECT_THAT(Reasons(report), ElementsAre(FailureReason::kSourceChanged));
  EXPECT_EQ(folder_.Read("from/a.txt"), "changed");
  EXPECT_FALSE(folder_.Exists("from/b.txt"));
  EXPECT_EQ(folder_.Read("other/from/b.txt"), "b");
}

TEST_F(TransferTest, AMoveToAnotherFileSystemRemovesNoSourceThatItCannotLookAtAgain) {
  folder_.Write("from/a.txt", "a");
  folder_.Folder("other");
  bool copied = false;
  files_.before = [&](const FileCall& call) {
    copied = copied || call.name == "Flush";
    return copied && call.name == "Status" && call.path == folder_.Windows("from/a.txt") ? kAccessDenied
                                                                                         : kNoError;
  };
  EXPECT_THAT(Reasons(Move({"from"}, "other")), ElementsAre(FailureReason::kSystem));
  EXPECT_EQ(folder_.Read("from/a.txt"), "a");
}

TEST_F(TransferTest, AMoveToAnotherFileSystemRemovesNothingThatIsNotOnTheDisk) {
  folder_.Write("from/a.txt", "a");
  folder_.Folder("other");
  FailOnce("Flush", kDiskFull);
  EXPECT_EQ(Move({"from"}, "other").failures.size(), 1U);
  EXPECT_EQ(folder_.Read("from/a.txt"), "a");
}

TEST_F(TransferTest, CancellingAMoveToAnotherFileSystemTakesTheSourceAtHandBack) {
  folder_.Write("first", "1");
  folder_.Write("tree/a", "a");
  folder_.Write("tree/b", "b");
  folder_.Folder("other");
  answers_.cancelAt = 6;  // at the second file of the tree
  const TransferReport report = Move({"first", "tree"}, "other");
  EXPECT_TRUE(report.cancelled);
  EXPECT_EQ(report.done, 1U);
  EXPECT_EQ(folder_.Read("tree/a") + folder_.Read("tree/b"), "ab");
  EXPECT_EQ(folder_.Read("other/first"), "1");
  EXPECT_FALSE(folder_.Exists("other/tree"));
  EXPECT_FALSE(folder_.Exists("first"));
}

TEST_F(TransferTest, CancellingAMergeToAnotherFileSystemKeepsEmptyFoldersThatMovedAlready) {
  bool cancelled = true;
  for (size_t at = 0; cancelled; ++at) {
    folder_.Clear();
    for (const char* const name : {"d/a", "d/m", "d/z", "d/x/inner", "other/d"}) folder_.Folder(name);
    folder_.Write("d/b.txt", "b");
    folder_.Write("d/y.txt", "y");
    answers_.calls = 0;
    answers_.cancelAt = at;
    const TransferReport report = Move({"d"}, "other");
    cancelled = report.cancelled;
    for (const char* const name : {"d/a", "d/m", "d/z", "d/x/inner", "d/b.txt", "d/y.txt"}) {
      EXPECT_TRUE(folder_.Exists(name) || folder_.Exists(std::string("other/") + name)) << name << " " << at;
    }
    answers_.cancelAt = static_cast<size_t>(-1);
    Undo(report);
    for (const char* const name : {"d/a", "d/m", "d/z", "d/x/inner", "d/b.txt", "d/y.txt"}) {
      EXPECT_TRUE(folder_.Exists(name)) << name << " " << at;
      EXPECT_FALSE(folder_.Exists(std::string("other/") + name)) << name << " " << at;
    }
  }
}

TEST_F(TransferTest, CancellingACopyLeavesNothingOfTheSourceAtHand) {
  folder_.Write("first", "1");
  for (int i = 0; i < 5; ++i) folder_.Write("tree/" + std::to_string(i), "x");
  folder_.Folder("to");
  answers_.cancelAt = 8;
  const TransferReport report = Copy({"first", "tree"}, "to");
  EXPECT_TRUE(report.cancelled);
  EXPECT_EQ(report.done, 1U);
  EXPECT_TRUE(folder_.Exists("to/first"));
  EXPECT_FALSE(folder_.Exists("to/tree"));
}

TEST_F(TransferTest, AProcessThatEndsLeavesOnlyATemporaryFileWhichTheNextOperationRemoves) {
  folder_.Write("a.txt", "newer");
  folder_.Write("to/a.txt", "older");
  files_.after = [](const FileCall& call) -> SystemError {
    if (call.name == "CopyBytes") throw test_support::Killed();
    return kNoError;
  };
  EXPECT_THROW(Copy({"a.txt"}, "to"), test_support::Killed);
  const std::wstring temporary = TemporaryName(files_.token, 1);
  EXPECT_TRUE(folder_.Exists("to/" + std::string(temporary.begin(), temporary.end())));
  EXPECT_EQ(folder_.Read("to/a.txt"), "older");
  files_.after = nullptr;
  folder_.Write("b.txt", "b");
  EXPECT_EQ(Copy({"b.txt"}, "to").done, 1U);
  EXPECT_TRUE(folder_.Exists("to/" + std::string(temporary.begin(), temporary.end())))
      << "that process may run still";
  files_.endedTokens.insert(files_.token);
  folder_.Write("c.txt", "c");
  EXPECT_EQ(Copy({"c.txt"}, "to").done, 1U);
  EXPECT_FALSE(folder_.Exists("to/" + std::string(temporary.begin(), temporary.end())));
}

TEST_F(TransferTest, WhatCannotBeDeletedIsNamedAndTheRestGoes) {
  folder_.Write("dir/a", "a");
  folder_.Write("dir/b", "b");
  files_.before = [](const FileCall& call) {
    return call.name == "RemoveFile" && NameOfPath(call.path) == L"a" ? kSharingViolation : kNoError;
  };
  const TransferReport report = Run(TransferKind::kDelete, {"dir"});
  ASSERT_THAT(report.failures, SizeIs(1));
  EXPECT_EQ(report.failures[0].path, folder_.Windows("dir/a"));
  EXPECT_EQ(report.done, 1U);
  EXPECT_EQ(folder_.Contents(), (FolderContents{{"dir", "folder"}, {"dir/a", "file:a"}}));
}

TEST_F(TransferTest, AFolderThatBecameALinkIsNotDeletedThrough) {
  folder_.Write("keep/x", "kept");
  folder_.Write("dir/x", "x");
  bool swapped = false;
  files_.after = [&](const FileCall& call) {
    if (call.name == "List" && !swapped) {
      folder_.Remove("dir");
      folder_.Link("dir", "keep");
      swapped = true;
    }
    return kNoError;
  };
  EXPECT_THAT(Reasons(Run(TransferKind::kDelete, {"dir"})), ElementsAre(FailureReason::kSourceChanged));
  EXPECT_EQ(folder_.Read("keep/x"), "kept");
}

TEST_F(TransferTest, AnotherFileThatDiffersInLetterCaseIsNeverTakenForOneThatVanished) {
  folder_.Write("from/readme", "lower");
  folder_.Folder("to");
  for (const TransferKind kind : {TransferKind::kMove, TransferKind::kCopy, TransferKind::kDelete}) {
    folder_.Write("from/README", "upper");
    bool planned = false;
    files_.after = [&](const FileCall& call) {
      if (call.name == "Status" && !planned) folder_.Remove("from/README");
      planned = planned || call.name == "Status";
      return kNoError;
    };
    Run(kind, {"from/README"}, "to");
    EXPECT_EQ(folder_.Read("from/readme"), "lower");
    EXPECT_FALSE(folder_.Exists("to/README"));
  }
}

TEST_F(TransferTest, AFolderInAnotherLetterCaseIsFoundWhereOnlyOneCanBeMeant) {
  folder_.Write("Folder/File.txt", "x");
  folder_.Folder("To");
  EXPECT_EQ(Copy({"folder/File.txt"}, "TO").done, 1U);
  EXPECT_EQ(folder_.Read("To/File.txt"), "x");
  EXPECT_THAT(Copy({"folder/FILE.TXT"}, "TO").failures, SizeIs(1)) << "a name is meant as it is";
  folder_.Folder("FOLDER");
  EXPECT_THAT(Copy({"folder/File.txt"}, "TO").failures, SizeIs(1)) << "either could be meant";
}

TEST_F(TransferTest, ASourceThatLiesAtTheDestinationIsNotReplacedByAnotherSource) {
  folder_.Write("to/a", "in place");
  folder_.Write("from/a", "coming");
  for (const TransferKind kind : {TransferKind::kCopy, TransferKind::kMove}) {
    Run(kind, {"from/a", "to/a"}, "to");
    EXPECT_EQ(folder_.Read("to/a"), "in place");
  }
  EXPECT_THAT(answers_.conflicts, IsEmpty());
}

TEST_F(TransferTest, TheLinkThatLeadsToTheDestinationDoesNotMoveThere) {
  folder_.Folder("real");
  folder_.Link("way", "real");
  EXPECT_THAT(Reasons(Move({"way"}, "way")), ElementsAre(FailureReason::kIntoItself));
  EXPECT_EQ(folder_.Contents().at("way"), "link:real");
}

// As through a share of the own machine: neither the volume nor anything else tells that it is one folder.
TEST_F(TransferTest, OneFolderThatLooksLikeTwoLosesNothing) {
  const std::vector<std::vector<std::string>> orders = {{"c/a", "other/a", "other/a - Copy"},
                                                        {"other/a", "other/a - Copy", "c/a"},
                                                        {"other/a", "c/a", "other/a - Copy"}};
  for (const std::vector<std::string>& sources : orders) {
    for (int answers = 0; answers < 64; ++answers) {
      folder_.Clear();
      folder_.Write("c/a", "first");
      folder_.Write("other/a", "second");
      folder_.Write("other/a - Copy", "third");
      folder_.Link("other/way", "../c");
      answers_.script = answers;
      answers_.replaced = false;
      Move(sources, "other/way");
      std::set<std::string> contents;
      for (const auto& [path, what] : folder_.Contents()) contents.insert(what);
      const bool mayReplace = answers_.replaced;
      EXPECT_TRUE(mayReplace || contents.contains("file:first")) << answers << " " << sources[0];
      EXPECT_TRUE(contents.contains("file:second") && contents.contains("file:third"))
          << answers << " " << sources[0];
    }
  }
}

TEST_F(TransferTest, DrivesAreNeverMovedOrDeleted) {
  answers_.cancelAt = 0;  // should it begin all the same
  for (const TransferKind kind : {TransferKind::kDelete, TransferKind::kMove}) {
    const TransferReport report = RunTransfer({kind, {L"Z:\\"}, folder_.Windows("")}, files_, answers_);
    EXPECT_THAT(report.failures, SizeIs(1));
  }
}

TEST_F(TransferTest, UndoOfACopyLeavesWhatHasChangedSince) {
  folder_.Write("tree/a", "a");
  folder_.Write("tree/b", "b");
  folder_.Folder("to");
  const TransferReport report = Copy({"tree"}, "to");
  folder_.Write("to/tree/a", "worked on");
  const TransferReport undone = Undo(report);
  EXPECT_THAT(Reasons(undone), ElementsAre(FailureReason::kChangedSince, FailureReason::kChangedSince));
  EXPECT_EQ(folder_.Read("to/tree/a"), "worked on");
  EXPECT_FALSE(folder_.Exists("to/tree/b"));
}

TEST_F(TransferTest, UndoOfAMoveTakesNobodysPlace) {
  folder_.Write("a", "a");
  folder_.Write("b", "b");
  folder_.Folder("to");
  const TransferReport report = Move({"a", "b"}, "to");
  folder_.Write("a", "somebody else's");
  const TransferReport undone = Undo(report);
  EXPECT_THAT(Reasons(undone), ElementsAre(FailureReason::kPlaceTaken));
  EXPECT_EQ(undone.done, 1U);
  EXPECT_EQ(folder_.Read("a"), "somebody else's");
  EXPECT_EQ(folder_.Read("to/a"), "a");
  EXPECT_EQ(folder_.Read("b"), "b");
}

TEST_F(TransferTest, UndoSaysThatAReplacedFileIsGone) {
  folder_.Write("a", "new");
  folder_.Write("to/a", "old");
  const TransferReport report = Move({"a"}, "to");
  EXPECT_THAT(Reasons(Undo(report)), ElementsAre(FailureReason::kWasReplaced));
  EXPECT_EQ(folder_.Read("a"), "new");
}

TEST_F(TransferTest, UndoOfARename) {
  folder_.Write("new name", "x");
  const UndoRecord record = RecordRename(folder_.Windows("old name"), folder_.Windows("new name"), files_);
  EXPECT_EQ(record.kind, UndoKind::kRename);
  EXPECT_EQ(RunUndo(record, files_, answers_).done, 1U);
  EXPECT_EQ(folder_.Read("old name"), "x");
  EXPECT_TRUE(RecordRename(L"Z:\\a", L"Z:\\nothing here", files_).empty());
}

TEST(TemporaryNames, AreRecognised) {
  const std::wstring token = MakeProcessToken(0x12345678, 0xAB, 0xFFFFFFFF);
  EXPECT_EQ(token, L"12345678000000abffffffff");
  const std::wstring name = TemporaryName(token, 7);
  EXPECT_EQ(TokenOfTemporaryName(name), token);
  EXPECT_EQ(PartsOfProcessToken(token)->process, 0xABU);
  for (const std::wstring& other :
       {name + L"x", name.substr(1), std::wstring(L".transfer-.part"), std::wstring(L"a")}) {
    EXPECT_FALSE(TokenOfTemporaryName(other)) << testing::PrintToString(other);
  }
}

TEST(FailureTexts, SayTheReasonOfEach) {
  const auto system = [](SystemError error) { return L"system " + std::to_wstring(error); };
  EXPECT_EQ(TextOfFailure({L"x", FailureReason::kSystem, kSharingViolation}, system),
            L"It is in use by another program.");
  EXPECT_EQ(TextOfFailure({L"x", FailureReason::kSystem, 1921}, system), L"system 1921");
  EXPECT_EQ(TextOfFailure({L"x", FailureReason::kLinkNotMade, kNotSupported}, system),
            L"The link could not be made there. system 50");
  for (int reason = 1; reason <= static_cast<int>(FailureReason::kWasReplaced); ++reason) {
    EXPECT_GT(TextOfFailure({L"x", static_cast<FailureReason>(reason), kNoError}, system).size(), 10U);
  }
}

}  // namespace
