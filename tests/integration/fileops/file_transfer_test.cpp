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
  void Paste() { Command(file_explorer::kCommandPaste); }
  std::string LastBox() {
    return fixture_.boxes().boxes().empty() ? "(none)" : fixture_.boxes().boxes().back().text;
  }
};

TEST_F(FileTransferTest, SeveralFilesInTheWayAreOneQuestionWithThreeAnswers) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  fixture_.directory().AddFile(L"files\\sub\\b.txt", "older b");
  Begin();
  Take(true, {"a.txt", "b.txt", "dir"}, 2);
  fixture_.boxes().AnswerWith(IDCANCEL);
  Paste();
  ASSERT_EQ(fixture_.boxes().boxes().size(), 1U);
  const test_support::RecordedMessageBox& box = fixture_.boxes().boxes()[0];
  EXPECT_EQ(box.owner, fixture_.workbench().window());
  EXPECT_EQ(box.caption, "Move");
  EXPECT_THAT(box.text, HasSubstr("There are already 2 items of the same names in this folder"));
  EXPECT_THAT(box.buttons, ElementsAre(IDYES, IDNO, IDCANCEL));
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONEXCLAMATION));
  EXPECT_TRUE(Exists(Path("dir"))) << "cancelled: nothing has moved";
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_HDROP));

  fixture_.boxes().AnswerWith(IDNO);
  Paste();
  EXPECT_EQ(Content(Path("sub\\dir\\x.txt")), "new x") << "the others are moved";
  EXPECT_EQ(Content(Path("sub\\a.txt")), "older a");
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("b.txt")), "of b");
}

TEST_F(FileTransferTest, YesReplacesThemAll) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  fixture_.directory().AddFile(L"files\\sub\\b.txt", "older b");
  SetFileAttributesA((fixture_.directory().Join(std::string_view("files\\sub\\b.txt"))).c_str(),
                     FILE_ATTRIBUTE_READONLY);
  Begin();
  Take(true, {"a.txt", "b.txt"}, 2);
  fixture_.boxes().AnswerWith(IDYES);
  Paste();
  EXPECT_EQ(fixture_.boxes().boxes().size(), 1U);
  EXPECT_EQ(Content(Path("sub\\a.txt")), "of a");
  EXPECT_EQ(Content(Path("sub\\b.txt")), "of b") << "write protected or not: the user said so";
  EXPECT_FALSE(Exists(Path("a.txt")));
}

TEST_F(FileTransferTest, MovedOntoAFolderOfItsNameAFoldersContentsGoIntoIt) {
  fixture_.directory().AddFile(L"files\\sub\\dir\\x.txt", "older x");
  fixture_.directory().AddFile(L"files\\sub\\dir\\z.txt", "of z");
  Begin();
  Take(true, {"dir"}, 1);
  fixture_.boxes().AnswerWith(IDNO);
  Paste();
  ASSERT_EQ(fixture_.boxes().boxes().size(), 1U);
  EXPECT_THAT(LastBox(), HasSubstr("There is already a folder named"));
  EXPECT_THAT(fixture_.boxes().boxes()[0].buttons, ElementsAre(IDYES, IDNO));
  EXPECT_EQ(Content(Path("dir\\inner\\y.txt")), "new y");
  EXPECT_FALSE(Exists(Path("sub\\dir\\inner")));

  fixture_.boxes().AnswerWith(IDYES);
  Paste();
  EXPECT_EQ(fixture_.boxes().boxes().size(), 3U) << "then about the file of the same name";
  EXPECT_EQ(Content(Path("sub\\dir\\x.txt")), "new x");
  EXPECT_EQ(Content(Path("sub\\dir\\z.txt")), "of z");
  EXPECT_EQ(Content(Path("sub\\dir\\inner\\y.txt")), "new y");
  EXPECT_FALSE(Exists(Path("sub\\dir\\dir"))) << "not one inside the other";
  EXPECT_FALSE(Exists(Path("dir")));
}

TEST_F(FileTransferTest, CopiedOntoAFolderOfItsNameAFoldersContentsGoIntoIt) {
  fixture_.directory().AddFile(L"files\\sub\\dir\\z.txt", "of z");
  Begin();
  Take(false, {"dir"}, 1);
  fixture_.boxes().AnswerWith(IDYES);
  Paste();
  ASSERT_EQ(fixture_.boxes().boxes().size(), 1U);
  EXPECT_EQ(fixture_.boxes().boxes()[0].caption, "Copy");
  EXPECT_EQ(Content(Path("sub\\dir\\x.txt")), "new x");
  EXPECT_EQ(Content(Path("sub\\dir\\z.txt")), "of z");
  EXPECT_EQ(Content(Path("dir\\x.txt")), "new x");
  EXPECT_FALSE(Exists(Path("sub\\dir\\dir")));
}

TEST_F(FileTransferTest, AFileNeverGoesIntoAFolderOfItsName) {
  fixture_.directory().AddFolder(L"files\\sub\\a.txt");
  Begin();
  for (const bool cut : {true, false}) {
    Take(cut, {"a.txt"}, 1);
    Paste();
    EXPECT_THAT(Status(), HasSubstr("there is a folder of this name."));
    EXPECT_FALSE(Exists(Path("sub\\a.txt\\a.txt")));
    EXPECT_EQ(Content(Path("a.txt")), "of a");
    Command(file_explorer::kCommandUpOneLevel);
    ASSERT_TRUE(fixture_.WaitForFiles(4));
  }
  EXPECT_THAT(fixture_.boxes().boxes(), IsEmpty());
}

TEST_F(FileTransferTest, AFileThatIsInUseStaysAndTheReasonIsSaid) {
  Begin();
  for (const bool cut : {true, false}) {
    Take(cut, {"a.txt"}, 0);
    {
      const HeldFile held(Path("a.txt"));
      Paste();
      EXPECT_THAT(Status(), HasSubstr(cut ? "cannot be moved: " : "cannot be copied: "));
      EXPECT_THAT(Status(), HasSubstr("a.txt"));
      EXPECT_FALSE(Exists(Path("sub\\a.txt")));
    }
    EXPECT_EQ(Content(Path("a.txt")), "of a");
    EXPECT_TRUE(IsClipboardFormatAvailable(CF_HDROP)) << "so that it can be tried again";
    Command(file_explorer::kCommandUpOneLevel);
    ASSERT_TRUE(fixture_.WaitForFiles(4));
  }
}

TEST_F(FileTransferTest, AFileInUseIsNotReplacedAndNothingIsLost) {
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "older a");
  Begin();
  Take(true, {"a.txt"}, 1);
  fixture_.boxes().AnswerWith(IDYES);
  {
    const HeldFile held(Path("sub\\a.txt"));
    Paste();
    EXPECT_THAT(Status(), HasSubstr("cannot be moved: "));
  }
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("sub\\a.txt")), "older a");
}

TEST_F(FileTransferTest, WhatHasGoneMeanwhileIsSaid) {
  Begin();
  Take(true, {"a.txt", "b.txt"}, 0);
  DeleteFileA(Path("a.txt").c_str());
  Paste();
  EXPECT_THAT(Status(), HasSubstr("is no longer there."));
  EXPECT_EQ(Content(Path("b.txt")), "of b");
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
