// The transfer engine over the files of this machine: what Wine's own calls do wrong is right here.
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <windows.h>

#include "base/files/paths.h"
#include "base/files/transfer.h"
#include "base/files/undo.h"
#include "base/files/windows_file_system.h"
#include "base/files/wine_calls.h"
#include "base/files/wine_file_system.h"
#include "base/handles/unique_handle.h"
#include "tests/support/files/machine_folder.h"
#include "tests/support/machine_below.h"
#include "tests/support/temp_directory.h"

namespace {

using namespace base;
using testing::IsEmpty;

class Replacer final : public TransferObserver {
 public:
  ConflictReply OnConflict(const Conflict&) override { return {ConflictAnswer::kReplace, true}; }
  bool OnProgress(const TransferProgress&) override { return true; }
};

class MachineFilesTest : public testing::Test {
 protected:
  TransferReport Run(TransferKind kind, const std::vector<std::wstring>& sources,
                     const std::wstring& folder = {}) {
    Replacer observer;
    return RunTransfer({kind, sources, folder}, MachineFileSystem(), observer);
  }
  static std::vector<SystemError> Errors(const TransferReport& report) {
    std::vector<SystemError> errors;
    for (const TransferFailure& failure : report.failures) errors.push_back(failure.error);
    return errors;
  }

  test_support::MachineFolder folder_;
};

TEST_F(MachineFilesTest, DeletingALinkOrAFolderWithOneLeavesItsTarget) {
  folder_.Write("target/kept.txt", "kept");
  folder_.Link("box/to folder", folder_.path() + "/target");
  folder_.Link("box/to file", folder_.path() + "/target/kept.txt");
  folder_.Link("box/dangling", "nowhere");
  folder_.Link("direct", "target");
  const TransferReport report =
      Run(TransferKind::kDelete, {folder_.Windows("box"), folder_.Windows("direct")});
  EXPECT_THAT(Errors(report), IsEmpty());
  EXPECT_EQ(report.done, 5U);
  EXPECT_EQ(folder_.Contents(),
            (test_support::FolderContents{{"target", "folder"}, {"target/kept.txt", "file:kept"}}));
}

TEST_F(MachineFilesTest, AMovedOrCopiedLinkStaysALink) {
  folder_.Write("target/kept.txt", "kept");
  folder_.Link("link", folder_.path() + "/target");
  folder_.Folder("to");
  folder_.Folder("other");
  EXPECT_THAT(Errors(Run(TransferKind::kCopy, {folder_.Windows("link")}, folder_.Windows("to"))), IsEmpty());
  EXPECT_THAT(Errors(Run(TransferKind::kMove, {folder_.Windows("link")}, folder_.Windows("other"))),
              IsEmpty());
  const test_support::FolderContents contents = folder_.Contents();
  EXPECT_EQ(contents.at("to/link"), "link:" + folder_.path() + "/target");
  EXPECT_EQ(contents.at("other/link"), "link:" + folder_.path() + "/target");
  EXPECT_EQ(contents.at("target/kept.txt"), "file:kept");
  EXPECT_FALSE(contents.contains("link"));
}

TEST_F(MachineFilesTest, NamesThatWindowsCannotOpenAreDeletedExactly) {
  for (const char* const name :
       {"img?.png", "img1.png", "img2.png", "*", "nul", "dot.", "tex\\wood.png", "tex/wood.png"}) {
    folder_.Write(name, name);
  }
  const std::wstring top = folder_.Windows("");
  const TransferReport report =
      Run(TransferKind::kDelete,
          {PathInFolder(top, L"img?.png"), PathInFolder(top, L"*"), PathInFolder(top, L"nul"),
           PathInFolder(top, L"dot."), PathInFolder(top, L"tex\\wood.png")});
  EXPECT_THAT(Errors(report), IsEmpty());
  EXPECT_EQ(report.done, 5U);
  const test_support::FolderContents contents = folder_.Contents();
  EXPECT_EQ(contents.size(), 4U);
  EXPECT_TRUE(contents.contains("img1.png") && contents.contains("img2.png") &&
              contents.contains("tex/wood.png"));
}

TEST_F(MachineFilesTest, EverythingComesAlongHoweverDeepAndOddItIs) {
  std::string deep = "from";
  for (int i = 0; i < 6; ++i) deep += "/" + std::string(80, static_cast<char>('a' + i));
  folder_.Write(deep + "/deep.txt", "deep");
  folder_.Write("from/nul", "device");
  folder_.Write("from/dot.", "dot");
  folder_.Write("from/byte\xFF", "no text");
  folder_.Folder("to");
  EXPECT_THAT(Errors(Run(TransferKind::kCopy, {folder_.Windows("from")}, folder_.Windows("to"))), IsEmpty());
  for (const std::string& name : {deep + "/deep.txt", std::string("from/nul"), std::string("from/dot."),
                                  std::string("from/byte\xFF")}) {
    EXPECT_EQ(folder_.Read("to/" + name), folder_.Read(name)) << name;
  }
}

TEST_F(MachineFilesTest, ALockedFileIsNamedAndTheOthersGoOn) {
  folder_.Write("from/a.txt", "a");
  folder_.Write("from/b.txt", "b");
  folder_.Folder("to");
  const unique_file held = OwnFile(CreateFileW(folder_.Windows("from/a.txt").c_str(), GENERIC_READ, 0,
                                               nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(held);
  for (const TransferKind kind : {TransferKind::kCopy, TransferKind::kMove}) {
    const TransferReport report =
        Run(kind, {folder_.Windows("from/a.txt"), folder_.Windows("from/b.txt")}, folder_.Windows("to"));
    EXPECT_THAT(Errors(report), testing::ElementsAre(kSharingViolation));
    EXPECT_EQ(report.failures[0].path, folder_.Windows("from/a.txt"));
    EXPECT_EQ(report.done, 1U);
    EXPECT_FALSE(folder_.Exists("to/a.txt"));
    EXPECT_EQ(folder_.Read("to/b.txt"), "b");
  }
  EXPECT_THAT(Errors(Run(TransferKind::kDelete, {folder_.Windows("from")})),
              testing::ElementsAre(kSharingViolation));
  EXPECT_EQ(folder_.Read("from/a.txt"), "a");
}

TEST_F(MachineFilesTest, AFileThatIsReplacedMustNotBeInUse) {
  folder_.Write("a.txt", "newer");
  folder_.Write("to/a.txt", "older");
  const unique_file held = OwnFile(CreateFileW(folder_.Windows("to/a.txt").c_str(), GENERIC_READ,
                                               FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  ASSERT_TRUE(held);
  EXPECT_THAT(Errors(Run(TransferKind::kCopy, {folder_.Windows("a.txt")}, folder_.Windows("to"))),
              testing::ElementsAre(kSharingViolation));
  EXPECT_EQ(folder_.Read("to/a.txt"), "older");
  EXPECT_EQ(folder_.Contents().size(), 3U) << "nothing of the copy stays";
}

TEST_F(MachineFilesTest, AnotherSpellingOfADestinationIsTheSameFolder) {
  folder_.Write("Box/Inner/x.txt", "x");
  folder_.Link("other way", "Box/Inner");
  for (const wchar_t* const way : {L"\\box\\INNER", L"\\other way"}) {
    const TransferReport report =
        Run(TransferKind::kCopy, {folder_.Windows("Box")}, folder_.Windows("") + way);
    ASSERT_EQ(report.failures.size(), 1U);
    EXPECT_EQ(report.failures[0].reason, FailureReason::kIntoItself);
  }
  EXPECT_EQ(folder_.Contents().size(), 4U);
}

TEST_F(MachineFilesTest, AFolderIntoItsChildUnderAnotherDriveLetterIsRefused) {
  folder_.Write("box/child/x.txt", "x");
  // A drive of Wine is a link beside that of C:.
  std::string drive = test_support::PathBelow(L"C:\\");
  drive = drive.substr(0, drive.rfind("c:")) + "q:";
  ASSERT_EQ(wine::MakeLink(folder_.path() + "/box", drive), 0);
  const TransferReport report = Run(TransferKind::kCopy, {folder_.Windows("box")}, L"Q:\\child");
  const TransferReport whole = Run(TransferKind::kCopy, {L"Q:\\child"}, L"Q:\\child");
  wine::Unlink(drive);
  ASSERT_EQ(report.failures.size(), 1U);
  EXPECT_EQ(report.failures[0].reason, FailureReason::kIntoItself);
  ASSERT_EQ(whole.failures.size(), 1U);
  EXPECT_EQ(whole.failures[0].reason, FailureReason::kIntoItself);
}

TEST_F(MachineFilesTest, AMoveToAnotherFileSystemLeavesTheSourceOnlyAfterTheCopyIsWhole) {
  const test_support::TempDirectory
      directory;  // in the prefix, on the disk; folder_ lies in memory where that exists
  folder_.Write("from/README", "upper");
  folder_.Write("from/readme", "lower");
  folder_.Link("from/link", "README");
  const TransferReport report = Run(TransferKind::kMove, {folder_.Windows("from")}, directory.path());
  EXPECT_THAT(Errors(report), IsEmpty());
  EXPECT_THAT(folder_.Contents(), IsEmpty());
  std::vector<FileEntry> entries;
  ASSERT_EQ(MachineFileSystem().List(directory.Join(L"from"), &entries), kNoError);
  EXPECT_EQ(entries.size(), 3U) << "both spellings and the link";
  Replacer observer;
  EXPECT_THAT(Errors(RunUndo(report.undo, MachineFileSystem(), observer)), IsEmpty());
  EXPECT_EQ(folder_.Read("from/README"), "upper");
  EXPECT_EQ(folder_.Read("from/readme"), "lower");
  EXPECT_EQ(folder_.Contents().at("from/link"), "link:README");
  EXPECT_EQ(MachineFileSystem().List(directory.path(), &entries), kNoError);
  EXPECT_THAT(entries, IsEmpty());
}

TEST_F(MachineFilesTest, TheCallsOfWindowsKeepTimesAndAttributes) {
  const test_support::TempDirectory directory;
  const std::wstring source = directory.AddFile(L"from\\a.txt", "contents");
  SetFileAttributesW(source.c_str(), FILE_ATTRIBUTE_READONLY);
  directory.AddFolder(L"to");
  WindowsFileSystem files;
  Replacer observer;
  for (int round = 0; round < 2; ++round) {
    const TransferReport report =
        RunTransfer({TransferKind::kCopy, {source}, directory.Join(L"to")}, files, observer);
    EXPECT_THAT(Errors(report), IsEmpty()) << "a read-only file is replaced, too: " << round;
  }
  FileStatus from;
  FileStatus to;
  ASSERT_EQ(files.Status(source, &from), kNoError);
  ASSERT_EQ(files.Status(directory.Join(L"to\\a.txt"), &to), kNoError);
  EXPECT_EQ(from.modified, to.modified);
  EXPECT_EQ(from.size, to.size);
  EXPECT_EQ(to.attributes & FILE_ATTRIBUTE_READONLY, DWORD{FILE_ATTRIBUTE_READONLY});
  EXPECT_THAT(
      Errors(RunTransfer({TransferKind::kDelete, {directory.Join(L"to"), source}, {}}, files, observer)),
      IsEmpty());
  EXPECT_EQ(GetFileAttributesW(directory.Join(L"to").c_str()), INVALID_FILE_ATTRIBUTES);
}

}  // namespace
