// The shell's file operation on real files: nothing is lost, and a failure has a reason.
#include "src/fileops/file_operation.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

#include "tests/support/message_box_recorder.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;

class FileOperationTest : public testing::Test {
 protected:
  void SetUp() override {
    directory_.AddFile(L"from\\a.txt", "of a");
    directory_.AddFile(L"from\\b.txt", "of b");
    directory_.AddFile(L"from\\dir\\x.txt", "of x");
    directory_.AddFolder(L"to");
  }
  std::string Path(std::string_view name) { return directory_.Join(name); }
  bool Exists(std::string_view name) {
    return GetFileAttributesA(Path(name).c_str()) != INVALID_FILE_ATTRIBUTES;
  }
  int Run(UINT operation, const std::vector<std::string>& names, std::string_view folder = "to") {
    std::string from;
    for (const std::string& name : names) from += Path("from\\" + name) + '\0';
    const std::string to = Path(folder) + '\0';
    SHFILEOPSTRUCTA request = {};
    request.wFunc = operation;
    request.pFrom = from.c_str();
    request.pTo = to.c_str();
    request.fFlags = FOF_ALLOWUNDO;
    SetLastError(ERROR_SUCCESS);
    const int result = RunFileOperation(&request);
    error_ = GetLastError();
    aborted_ = request.fAnyOperationsAborted != FALSE;
    return result;
  }

  test_support::TempDirectory directory_;
  test_support::MessageBoxRecorder boxes_;
  DWORD error_ = 0;
  bool aborted_ = false;
};

TEST_F(FileOperationTest, SeveralFilesMoveAtOnce) {
  EXPECT_EQ(Run(FO_MOVE, {"a.txt", "b.txt"}), 0);
  EXPECT_FALSE(aborted_);
  EXPECT_TRUE(Exists("to\\a.txt") && Exists("to\\b.txt"));
  EXPECT_FALSE(Exists("from\\a.txt") || Exists("from\\b.txt"));
}

TEST_F(FileOperationTest, FilesAndFoldersMoveTogether) {
  EXPECT_EQ(Run(FO_MOVE, {"a.txt", "dir"}), 0);
  EXPECT_TRUE(Exists("to\\a.txt") && Exists("to\\dir\\x.txt"));
  EXPECT_FALSE(Exists("from\\dir"));
  EXPECT_THAT(boxes_.boxes(), IsEmpty());
}

TEST_F(FileOperationTest, SeveralFilesAreCopied) {
  EXPECT_EQ(Run(FO_COPY, {"a.txt", "b.txt"}), 0);
  EXPECT_TRUE(Exists("to\\a.txt") && Exists("to\\b.txt") && Exists("from\\a.txt"));
  EXPECT_THAT(boxes_.boxes(), IsEmpty());
}

TEST_F(FileOperationTest, AFileInUseStaysAndIsAFailureWithAReason) {
  for (const UINT operation : {FO_MOVE, FO_COPY}) {
    directory_.AddFile(L"from\\b.txt", "of b");
    DeleteFileA(Path("to\\b.txt").c_str());
    const HANDLE held =
        CreateFileA(Path("from\\a.txt").c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(Run(operation, {"a.txt", "b.txt"}), 0);
    EXPECT_EQ(error_, 0U) << "everything has been said";
    EXPECT_FALSE(aborted_);
    CloseHandle(held);
    EXPECT_TRUE(Exists("from\\a.txt"));
    EXPECT_FALSE(Exists("to\\a.txt"));
    EXPECT_TRUE(Exists("to\\b.txt")) << "the others go on";
  }
  ASSERT_EQ(boxes_.boxes().size(), 2U);
  EXPECT_EQ(boxes_.boxes()[0].caption, "Shell Operation Error");
  EXPECT_EQ(boxes_.boxes()[0].text,
            "1 item could not be moved:\n\n\"a.txt\": It is in use by another program.\n\n1 item moved.");
  EXPECT_EQ(boxes_.boxes()[1].text,
            "1 item could not be copied:\n\n\"a.txt\": It is in use by another program.\n\n1 item copied.");
}

TEST_F(FileOperationTest, AFolderIntoItselfStaysAndIsAFailureWithAReason) {
  directory_.AddFolder(L"from\\dir\\inner");
  for (const UINT operation : {FO_MOVE, FO_COPY}) {
    EXPECT_NE(Run(operation, {"dir"}, "from\\dir\\inner"), 0);
    EXPECT_EQ(error_, 0U);
    EXPECT_THAT(boxes_.boxes().back().text,
                HasSubstr("\"dir\": A folder cannot be copied or moved into itself."));
  }
  EXPECT_EQ(boxes_.boxes().size(), 2U);
  EXPECT_TRUE(Exists("from\\dir\\x.txt"));
  EXPECT_FALSE(Exists("from\\dir\\inner\\dir"));
}

TEST_F(FileOperationTest, NothingGoesIntoAFolderOfItsName) {
  directory_.AddFolder(L"to\\a.txt");
  directory_.AddFolder(L"to\\dir");
  boxes_.AnswerWith(IDNO);
  for (const char* const name : {"a.txt", "dir"}) {
    Run(FO_MOVE, {name});
    EXPECT_FALSE(Exists(std::string("to\\") + name + "\\" + name));
    EXPECT_TRUE(Exists(std::string("from\\") + name));
  }
  ASSERT_EQ(boxes_.boxes().size(), 2U);
  EXPECT_THAT(boxes_.boxes()[0].text, HasSubstr("\"a.txt\": There is a folder"));
  EXPECT_THAT(boxes_.boxes()[1].text, HasSubstr("Do you want to put the contents together?"));
  boxes_.AnswerWith(IDYES);
  EXPECT_EQ(Run(FO_MOVE, {"dir"}), 0);
  EXPECT_TRUE(Exists("to\\dir\\x.txt"));
  EXPECT_FALSE(Exists("from\\dir"));
}

TEST_F(FileOperationTest, CancelEndsEverything) {
  directory_.AddFile(L"to\\a.txt", "older");
  boxes_.AnswerWith(IDCANCEL);
  EXPECT_NE(Run(FO_COPY, {"a.txt", "b.txt"}), 0);
  EXPECT_TRUE(aborted_);
  EXPECT_EQ(error_, 0U);
  EXPECT_FALSE(Exists("to\\b.txt"));
}

TEST_F(FileOperationTest, IntoTheSameFolderNothingHappensAndNothingIsLost) {
  Run(FO_MOVE, {"a.txt", "dir"}, "from");
  EXPECT_TRUE(Exists("from\\a.txt") && Exists("from\\dir\\x.txt"));
  EXPECT_THAT(boxes_.boxes(), IsEmpty());
}

TEST_F(FileOperationTest, SeveralFilesInTheWayAreOneQuestion) {
  directory_.AddFile(L"to\\a.txt", "older");
  directory_.AddFile(L"to\\b.txt", "older");
  boxes_.AnswerWith(IDNO);
  EXPECT_EQ(Run(FO_MOVE, {"a.txt", "b.txt", "dir"}), 0);
  EXPECT_TRUE(aborted_);
  EXPECT_EQ(error_, 0U) << "who says no knows it";
  ASSERT_EQ(boxes_.boxes().size(), 1U);
  EXPECT_EQ(boxes_.boxes()[0].text,
            "The folder already contains 2 of these files, \"a.txt\" among them.\n\nDo you want to replace "
            "them?\n\nWith No these files are skipped; Cancel ends the whole operation.");
  EXPECT_TRUE(Exists("to\\dir\\x.txt")) << "what is not in the way goes on";
  EXPECT_TRUE(Exists("from\\a.txt") && Exists("from\\b.txt"));
  boxes_.AnswerWith(IDYES);
  EXPECT_EQ(Run(FO_MOVE, {"a.txt", "b.txt"}), 0);
  EXPECT_FALSE(Exists("from\\a.txt") || Exists("from\\b.txt"));
}

// One answer goes for all of them, so that the question must not speak of one file.
TEST_F(FileOperationTest, FilesInsideOfFoldersThatArePutTogetherAreOneQuestionAboutSeveral) {
  for (const char* const name : {"one.txt", "two.txt"}) {
    const std::wstring wide(name, name + std::strlen(name));
    directory_.AddFile(L"from\\dir\\" + wide, "newer");
    directory_.AddFile(L"to\\dir\\" + wide, "older");
  }
  boxes_.AnswerWith(IDYES);
  EXPECT_EQ(Run(FO_COPY, {"dir"}), 0);
  ASSERT_EQ(boxes_.boxes().size(), 2U);
  EXPECT_THAT(boxes_.boxes()[0].text, HasSubstr("a folder named \"dir\""));
  EXPECT_THAT(boxes_.boxes()[1].text, HasSubstr("files of the same names"));
  EXPECT_THAT(boxes_.boxes()[1].text, HasSubstr("Do you want to replace them?"));
}

}  // namespace
}  // namespace file_explorer
