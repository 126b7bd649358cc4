// What a paste does with what stands in its way, and what it says when it can't be done.
#include <windows.h>

#include "tests/integration/fileops/fileops_fixture.h"
#include "tests/support/only_wine.h"

namespace fileops_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

// Keeps a file to itself, so that nobody else can read, move or replace it.
class HeldFile {
 public:
  explicit HeldFile(const std::string& path)
      : file_(
            CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, OPEN_EXISTING, 0, nullptr)) {
    EXPECT_NE(file_, INVALID_HANDLE_VALUE);
  }
  ~HeldFile() { CloseHandle(file_); }
  HeldFile(const HeldFile&) = delete;
  HeldFile& operator=(const HeldFile&) = delete;

 private:
  HANDLE file_;
};

class FileTransferTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt", "of a");
    fixture_.directory().AddFile(L"files\\b.txt", "of b");
    fixture_.directory().AddFile(L"files\\dir\\x.txt", "new x");
    fixture_.directory().AddFile(L"files\\dir\\inner\\y.txt", "new y");
    fixture_.directory().AddFolder(L"files\\sub");
  }
  void Begin() { Start(4); }
  // Cuts or copies the names and goes to the folder "sub", which has that many items.
  void Take(bool cut, const std::vector<std::string>& names, size_t files) {
    Select(names);
    Command(cut ? file_explorer::kCommandCut : file_explorer::kCommandCopy);
    ASSERT_TRUE(GoTo("sub", files));
  }
};

TEST_F(FileTransferTest, EachFileInTheWayIsAskedAbout) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  fixture_.directory().AddFile(L"files\\sub\\b.txt", "older b");
  Begin();
  Take(true, {"a.txt", "b.txt", "dir"}, 2);
  AnswerConflicts(controls::kConflictSkipButton);
  Paste();
  ASSERT_EQ(driver_.dialogs().size(), 2U);
  EXPECT_EQ(driver_.dialogs()[0].owner, fixture_.workbench().window());
  EXPECT_EQ(driver_.dialogs()[0].caption, "Move");
  EXPECT_THAT(driver_.dialogs()[0].texts[0], HasSubstr("There is already a file named"));
  EXPECT_THAT(driver_.dialogs()[0].texts[1], HasSubstr("To be moved:  4 bytes, changed "));
  EXPECT_THAT(driver_.dialogs()[0].texts[2], HasSubstr("Already there:  7 bytes, changed "));
  EXPECT_EQ(Content(Path("sub\\dir\\x.txt")), "new x") << "the others are moved";
  EXPECT_EQ(Content(Path("sub\\a.txt")), "older a");
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("b.txt")), "of b");
  EXPECT_THAT(fixture_.boxes().boxes(), IsEmpty()) << "nobody tells the user what he said";
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_HDROP)) << "something is left to be moved";
}

TEST_F(FileTransferTest, OneAnswerCanBeForAll) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  fixture_.directory().AddFile(L"files\\sub\\b.txt", "older b");
  SetFileAttributesA((fixture_.directory().Join(std::string_view("files\\sub\\b.txt"))).c_str(),
                     FILE_ATTRIBUTE_READONLY);
  Begin();
  Take(true, {"a.txt", "b.txt"}, 2);
  AnswerConflicts(controls::kConflictReplaceButton, true);
  Paste();
  EXPECT_EQ(driver_.dialogs().size(), 1U);
  EXPECT_EQ(Content(Path("sub\\a.txt")), "of a");
  EXPECT_EQ(Content(Path("sub\\b.txt")), "of b") << "write protected or not: the user said so";
  EXPECT_FALSE(Exists(Path("a.txt")));
  EXPECT_FALSE(Exists(Path("b.txt")));
}

TEST_F(FileTransferTest, CopiesAndMovesAreAskedAboutInTheSameWords) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  Begin();
  std::vector<std::string> headings;
  for (const bool cut : {true, false}) {
    Take(cut, {"a.txt"}, 1);
    AnswerConflicts(controls::kConflictSkipButton);
    Paste();
    ASSERT_FALSE(driver_.dialogs().empty());
    EXPECT_EQ(driver_.dialogs().back().caption, cut ? "Move" : "Copy");
    headings.push_back(driver_.dialogs().back().texts[0]);
    Command(file_explorer::kCommandUpOneLevel);
    ASSERT_TRUE(fixture_.WaitForFiles(4));
  }
  EXPECT_EQ(headings[0], headings[1]);
  EXPECT_EQ(driver_.dialogs().size(), 2U);
}

TEST_F(FileTransferTest, CancelEndsTheOperationThere) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  fixture_.directory().AddFile(L"files\\sub\\b.txt", "older b");
  Begin();
  Take(true, {"a.txt", "b.txt"}, 2);
  AnswerConflicts(IDCANCEL);
  Paste();
  EXPECT_EQ(driver_.dialogs().size(), 1U);
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("sub\\a.txt")), "older a");
  EXPECT_EQ(Content(Path("b.txt")), "of b");
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_HDROP));
}

TEST_F(FileTransferTest, BothCanBeKept) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  Begin();
  Take(false, {"a.txt"}, 1);
  AnswerConflicts(controls::kConflictKeepBothButton);
  Paste();
  EXPECT_EQ(Content(Path("sub\\a.txt")), "older a");
  EXPECT_EQ(Content(Path("sub\\a - Copy.txt")), "of a");
  EXPECT_TRUE(Shows("a - Copy.txt"));
  EXPECT_TRUE(WaitUntil([this] {
    return fixture_.SelectedNames() == std::vector<std::string>{"a - Copy.txt"};
  })) << "what came is selected";
}

TEST_F(FileTransferTest, FoldersThatMeetArePutTogetherAfterAQuestion) {
  fixture_.directory().AddFile(L"files\\sub\\dir\\x.txt", "older x");
  fixture_.directory().AddFile(L"files\\sub\\dir\\z.txt", "of z");
  Begin();
  Take(true, {"dir"}, 1);
  AnswerConflicts(controls::kConflictSkipButton);
  Paste();
  ASSERT_EQ(driver_.dialogs().size(), 1U);
  EXPECT_THAT(driver_.dialogs()[0].texts[0], HasSubstr("There is already a folder named"));
  EXPECT_THAT(driver_.dialogs()[0].texts, testing::Contains("&Merge"));
  EXPECT_EQ(Content(Path("dir\\inner\\y.txt")), "new y");
  EXPECT_FALSE(Exists(Path("sub\\dir\\inner")));

  AnswerConflicts(controls::kConflictReplaceButton);
  Paste();
  EXPECT_EQ(driver_.dialogs().size(), 3U) << "then about the file of the same name";
  EXPECT_EQ(Content(Path("sub\\dir\\x.txt")), "new x");
  EXPECT_EQ(Content(Path("sub\\dir\\z.txt")), "of z");
  EXPECT_EQ(Content(Path("sub\\dir\\inner\\y.txt")), "new y");
  EXPECT_FALSE(Exists(Path("sub\\dir\\dir"))) << "not one inside the other";
  EXPECT_FALSE(Exists(Path("dir")));
}

TEST_F(FileTransferTest, AFileNeverReplacesAFolderOfItsName) {
  fixture_.directory().AddFolder(L"files\\sub\\a.txt");
  Begin();
  for (const bool cut : {true, false}) {
    Take(cut, {"a.txt"}, 1);
    bool offered = true;
    driver_.OnDialog([&](const SeenDialog& dialog) {
      offered = IsWindowEnabled(GetDlgItem(dialog.window, controls::kConflictReplaceButton)) != FALSE;
      PostMessageA(dialog.window, WM_COMMAND, controls::kConflictSkipButton, 0);
    });
    Paste();
    EXPECT_FALSE(offered);
    EXPECT_FALSE(Exists(Path("sub\\a.txt\\a.txt")));
    EXPECT_EQ(Content(Path("a.txt")), "of a");
    Command(file_explorer::kCommandUpOneLevel);
    ASSERT_TRUE(fixture_.WaitForFiles(4));
  }
}

TEST_F(FileTransferTest, AFileThatIsInUseStaysAndTheReasonIsSaid) {
  Begin();
  for (const bool cut : {true, false}) {
    Take(cut, {"a.txt", "b.txt"}, cut ? 0 : 1);
    AnswerConflicts(controls::kConflictReplaceButton);
    {
      const HeldFile held(Path("a.txt"));
      Paste();
      EXPECT_EQ(fixture_.boxes().boxes().size(), cut ? 1U : 2U) << "one box, whatever failed";
      EXPECT_THAT(LastBox(), HasSubstr(cut ? "1 item was moved. The following could not be moved:"
                                           : "The following could not be copied:"));
      EXPECT_THAT(LastBox(), HasSubstr("a.txt"));
      EXPECT_FALSE(Exists(Path("sub\\a.txt")));
      EXPECT_EQ(Content(Path("sub\\b.txt")), "of b") << "the others went";
    }
    EXPECT_EQ(Content(Path("a.txt")), "of a");
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_HDROP)) << "so that it can be tried again";
    Command(file_explorer::kCommandUpOneLevel);
    if (cut) fixture_.directory().AddFile(L"files\\b.txt", "of b");
    ASSERT_TRUE(fixture_.WaitForFiles(4));
  }
}

TEST_F(FileTransferTest, AFileInUseIsNotReplacedAndNothingIsLost) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  Begin();
  Take(true, {"a.txt"}, 1);
  AnswerConflicts(controls::kConflictReplaceButton);
  {
    const HeldFile held(Path("sub\\a.txt"));
    Paste();
    EXPECT_THAT(LastBox(), HasSubstr("Nothing was moved."));
  }
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("sub\\a.txt")), "older a");
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("a.txt")) << "no temporary file is left";
}

TEST_F(FileTransferTest, WhatHasGoneMeanwhileIsSaid) {
  Begin();
  Take(true, {"a.txt", "b.txt"}, 0);
  DeleteFileA(Path("a.txt").c_str());
  Paste();
  EXPECT_THAT(LastBox(), HasSubstr("a.txt"));
  EXPECT_EQ(Content(Path("sub\\b.txt")), "of b") << "the other one goes all the same";
}

TEST_F(FileTransferTest, AFolderIsNotPutIntoItself) {
  Begin();
  Take(false, {"sub"}, 0);
  Paste();
  EXPECT_THAT(LastBox(), HasSubstr("Nothing was copied."));
  EXPECT_THAT(fixture_.FileNames(), IsEmpty());
}

TEST_F(FileTransferTest, WhatWasPastedIsSelected) {
  Begin();
  Take(false, {"a.txt", "dir"}, 0);
  Paste();
  EXPECT_TRUE(WaitUntil([this] { return fixture_.SelectedNames().size() == 2; }));
  EXPECT_THAT(fixture_.SelectedNames(), testing::UnorderedElementsAre("dir", "a.txt"));
}

TEST_F(FileTransferTest, AMoveIntoTheSameFolderChangesNothing) {
  Begin();
  Select({"a.txt", "dir"});
  Command(file_explorer::kCommandCut);
  Paste();
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("dir\\x.txt")), "new x");
  EXPECT_THAT(fixture_.boxes().boxes(), IsEmpty());
  EXPECT_TRUE(driver_.dialogs().empty());
}

TEST_F(FileTransferTest, AFolderMovesToAnotherDrive) {
  EXPLORER_ONLY_WINE("drive Z is the machine below, and its /dev/shm mostly a file system of its own") {
    std::string other = "Z:\\dev\\shm";
    if (!Exists(other)) other = "Z:\\tmp";
    other += "\\explorer_test_" + std::to_string(GetCurrentProcessId());
    ASSERT_TRUE(CreateDirectoryA(other.c_str(), nullptr));
    Begin();
    Select({"dir", "a.txt"});
    Command(file_explorer::kCommandCut);
    TypePath(other);
    ASSERT_TRUE(fixture_.WaitForFiles(0));
    Paste();
    EXPECT_EQ(Content(other + "\\dir\\inner\\y.txt"), "new y");
    EXPECT_EQ(Content(other + "\\a.txt"), "of a");
    EXPECT_FALSE(Exists(Path("dir")));
    EXPECT_FALSE(Exists(Path("a.txt")));
    for (const char* const name : {"\\dir\\inner\\y.txt", "\\dir\\x.txt", "\\a.txt"})
      DeleteFileA((other + name).c_str());
    for (const char* const name : {"\\dir\\inner", "\\dir", ""}) RemoveDirectoryA((other + name).c_str());
  }
}

}  // namespace
}  // namespace fileops_test
