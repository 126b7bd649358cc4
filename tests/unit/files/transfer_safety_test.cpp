// Links, other file systems, cancelling, ended processes, deleting and undo.
#include "tests/unit/files/transfer_fixture.h"

#include <set>

namespace transfer_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

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

// A folder is merged into the one that the other source still lies in, and the user replaces whatever is in the way.
TEST_F(TransferTest, AMergeReplacesNoOtherSourceOfTheOperation) {
  for (const bool folder : {false, true}) {
    for (const TransferKind kind : {TransferKind::kCopy, TransferKind::kMove}) {
      folder_.Clear();
      const std::string inside = folder ? "to/a/sub" : "to/a/f";
      const std::string file = folder ? "/x" : "";
      folder_.Write(inside + file, "named");
      folder_.Write(folder ? "from/a/sub/x" : "from/a/f", "coming");
      answers_.reply = {ConflictAnswer::kReplace, true};
      Run(kind, {"from/a", inside}, "to");
      EXPECT_EQ(folder_.Read((folder ? "to/sub" : "to/f") + file), "named");
      // A file that is copied stays as well, so what comes stands beside it.
      const bool stays = !folder && kind == TransferKind::kCopy;
      EXPECT_EQ(folder_.Read(stays ? "to/a/f - Copy" : inside + file), "coming");
      EXPECT_EQ(folder_.Read(inside + file), stays ? "named" : "coming");
    }
  }
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
}  // namespace transfer_test
