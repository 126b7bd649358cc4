// Cut, copy, paste, rename, delete and new folder from the toolbars, on real files.
#include <windows.h>

#include <shellapi.h>
#include <shlobj.h>

#include "tests/integration/fileops/fileops_fixture.h"

namespace fileops_test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class FileCommandsTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt", "of a");
    fixture_.directory().AddFile(L"files\\b.txt", "of b");
    fixture_.directory().AddFolder(L"files\\sub");
  }
  void Begin() { Start(3); }

  HWND EditOf(HWND view) const {
    return reinterpret_cast<HWND>(SendMessageA(view, LVM_GETEDITCONTROL, 0, 0));
  }
  HWND ListEdit() const { return EditOf(list()); }
  HWND TreeEdit() const { return reinterpret_cast<HWND>(SendMessageA(tree(), TVM_GETEDITCONTROL, 0, 0)); }
  // Types a name over what stands in the edit box and presses a key.
  void TypeAndPress(HWND edit, const char* text, WPARAM key) {
    SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    PostMessageA(edit, WM_KEYDOWN, key, 1);
    PostMessageA(edit, WM_KEYUP, key, 1);
    EXPECT_TRUE(WaitUntil([edit] { return !IsWindow(edit) || !IsWindowVisible(edit); }));
  }
};

TEST_F(FileCommandsTest, CutAndPasteMoveIntoTheOtherFolder) {
  Begin();
  Select({"a.txt", "b.txt"});
  Command(file_explorer::kCommandCut);
  ASSERT_TRUE(GoTo("sub", 0));
  Paste();
  EXPECT_TRUE(fixture_.WaitForFiles(2));
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("a.txt", "b.txt"));
  EXPECT_EQ(Content(Path("sub\\a.txt")), "of a");
  EXPECT_FALSE(Exists(Path("a.txt")));
  EXPECT_FALSE(Exists(Path("b.txt")));
  EXPECT_FALSE(IsClipboardFormatAvailable(CF_HDROP)) << "what was moved cannot be moved again";
}

TEST_F(FileCommandsTest, CopyAndPasteLeaveTheOriginal) {
  Begin();
  Select({"a.txt"});
  Command(file_explorer::kCommandCopy);
  ASSERT_TRUE(GoTo("sub", 0));
  Paste();
  EXPECT_TRUE(Shows("a.txt"));
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("sub\\a.txt")), "of a");
  EXPECT_TRUE(IsClipboardFormatAvailable(CF_HDROP)) << "it can be pasted again";
}

TEST_F(FileCommandsTest, PastingBesideTheOriginalMakesACopyOfAnotherName) {
  Begin();
  Select({"a.txt"});
  Command(file_explorer::kCommandCopy);
  Paste();
  EXPECT_TRUE(Shows("a - Copy.txt"));
  Paste();
  EXPECT_TRUE(Shows("a - Copy (2).txt"));
  EXPECT_EQ(Content(Path("a - Copy (2).txt")), "of a");
}

TEST_F(FileCommandsTest, TheClipboardCarriesTheShellsFormats) {
  Begin();
  const UINT effectFormat = RegisterClipboardFormatA("Preferred DropEffect");
  for (const bool cut : {true, false}) {
    Select({"a.txt", "sub"});
    Command(cut ? file_explorer::kCommandCut : file_explorer::kCommandCopy);
    ASSERT_TRUE(OpenClipboard(nullptr));
    const auto drop = static_cast<HDROP>(GetClipboardData(CF_HDROP));
    ASSERT_NE(drop, nullptr);
    std::vector<std::string> paths;
    for (UINT i = 0; i < DragQueryFileA(drop, 0xFFFFFFFF, nullptr, 0); ++i) {
      char path[MAX_PATH] = "";
      DragQueryFileA(drop, i, path, sizeof(path));
      paths.emplace_back(path);
    }
    const HGLOBAL block = GetClipboardData(effectFormat);
    ASSERT_NE(block, nullptr);
    const DWORD effect = *static_cast<const DWORD*>(GlobalLock(block));
    GlobalUnlock(block);
    CloseClipboard();
    EXPECT_THAT(paths, UnorderedElementsAre(Path("a.txt"), Path("sub")));
    EXPECT_EQ((effect & DROPEFFECT_MOVE) != 0, cut);
    EXPECT_EQ((effect & DROPEFFECT_COPY) != 0, !cut);
  }
}

TEST_F(FileCommandsTest, AFolderCannotBePastedIntoItself) {
  Begin();
  Select({"sub"});
  Command(file_explorer::kCommandCut);
  ASSERT_TRUE(GoTo("sub", 0));
  Paste();
  EXPECT_TRUE(Exists(Path("sub")));
  EXPECT_EQ(fixture_.boxes().boxes().size(), 1U) << "says why";
  EXPECT_THAT(fixture_.FileNames(), IsEmpty());
}

TEST_F(FileCommandsTest, RenameInPlaceTakesTheNameWithEnter) {
  Begin();
  Select({"a.txt"});
  Command(file_explorer::kCommandRename);
  ASSERT_NE(ListEdit(), nullptr);
  EXPECT_EQ(test_support::TextOf(ListEdit()), "a.txt");
  TypeAndPress(ListEdit(), "z.txt", VK_RETURN);
  EXPECT_TRUE(Shows("z.txt"));
  EXPECT_TRUE(Loses("a.txt"));
  EXPECT_EQ(Content(Path("z.txt")), "of a");
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("z.txt"));
}

TEST_F(FileCommandsTest, RenameInPlaceKeepsTheNameWithEscape) {
  Begin();
  Select({"a.txt"});
  Command(file_explorer::kCommandRename);
  ASSERT_NE(ListEdit(), nullptr);
  TypeAndPress(ListEdit(), "z.txt", VK_ESCAPE);
  EXPECT_TRUE(Exists(Path("a.txt")));
  EXPECT_FALSE(Exists(Path("z.txt")));
  EXPECT_THAT(fixture_.SelectedNames(), ElementsAre("a.txt"));
}

TEST_F(FileCommandsTest, RenamingToANameThatIsTakenLosesNothingAndTheEditComesBack) {
  Begin();
  Select({"a.txt"});
  Command(file_explorer::kCommandRename);
  ASSERT_NE(ListEdit(), nullptr);
  TypeAndPress(ListEdit(), "b.txt", VK_RETURN);
  ASSERT_TRUE(WaitUntil([this] { return ListEdit() != nullptr; })) << "to be mended";
  EXPECT_EQ(test_support::TextOf(ListEdit()), "b.txt");
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("b.txt")), "of b");
  EXPECT_THAT(Status(), HasSubstr("There is already an item named"));
  TypeAndPress(ListEdit(), "c.txt", VK_RETURN);
  EXPECT_EQ(Content(Path("c.txt")), "of a");
  EXPECT_TRUE(Shows("c.txt"));
}

TEST_F(FileCommandsTest, RenamingToANameThatCannotBeSaysWhyAndTheEditComesBack) {
  Begin();
  const std::pair<const char*, const char*> names[] = {
      {"a/b.txt", "A name cannot contain any of the characters"},
      {"a?.txt", "A name cannot contain any of the characters"},
      {"..", "reserved"},
      {"nul", ""},
      {"con.txt", ""},
      {"dot.", ""},
      {"trail. ", ""}};
  for (const auto& [name, reason] : names) {
    Select({"a.txt"});
    Command(file_explorer::kCommandRename);
    ASSERT_NE(ListEdit(), nullptr);
    TypeAndPress(ListEdit(), name, VK_RETURN);
    ASSERT_TRUE(WaitUntil([this] { return ListEdit() != nullptr; })) << name;
    EXPECT_EQ(test_support::TextOf(ListEdit()), name);
    EXPECT_THAT(Status(), HasSubstr(reason)) << name;
    TypeAndPress(ListEdit(), name, VK_ESCAPE);
    EXPECT_EQ(Content(Path("a.txt")), "of a");
    EXPECT_EQ(fixture_.FileNames().size(), 3U) << name;
  }
}

TEST_F(FileCommandsTest, RenamingChangesTheCaseOfANameToo) {
  Begin();
  Select({"a.txt"});
  Command(file_explorer::kCommandRename);
  ASSERT_NE(ListEdit(), nullptr);
  TypeAndPress(ListEdit(), "A.TXT", VK_RETURN);
  WIN32_FIND_DATAA found = {};
  const HANDLE find = FindFirstFileA(Path("a.txt").c_str(), &found);
  ASSERT_NE(find, INVALID_HANDLE_VALUE);
  FindClose(find);
  EXPECT_STREQ(found.cFileName, "A.TXT");
  EXPECT_EQ(Content(Path("A.TXT")), "of a");
  EXPECT_TRUE(Shows("A.TXT"));
}

TEST_F(FileCommandsTest, AFileInUseIsNeitherRenamedNorDeletedAndTheReasonIsSaid) {
  Begin();
  const HANDLE held =
      CreateFileA(Path("a.txt").c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr);
  Select({"a.txt"});
  Command(file_explorer::kCommandRename);
  ASSERT_NE(ListEdit(), nullptr);
  TypeAndPress(ListEdit(), "z.txt", VK_RETURN);
  EXPECT_THAT(Status(), HasSubstr("cannot be renamed: "));
  fixture_.boxes().AnswerWith(IDYES);
  PressWith(list(), VK_DELETE, {VK_SHIFT});
  Finish();
  ASSERT_EQ(fixture_.boxes().boxes().size(), 2U);
  EXPECT_THAT(LastBox(), HasSubstr("The following could not be deleted:"));
  EXPECT_THAT(LastBox(), HasSubstr("a.txt"));
  CloseHandle(held);
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_GE(fixture_.IndexOf("a.txt"), 0);
}

TEST_F(FileCommandsTest, DeleteAsksOnceAndObeysBothAnswers) {
  Begin();
  Select({"a.txt"});
  fixture_.boxes().AnswerWith(IDNO);
  Command(file_explorer::kCommandDelete);
  Finish();
  ASSERT_EQ(fixture_.boxes().boxes().size(), 1U);
  const test_support::RecordedMessageBox& box = fixture_.boxes().boxes()[0];
  EXPECT_EQ(box.owner, fixture_.workbench().window());
  EXPECT_EQ(box.caption, "Delete");
  EXPECT_THAT(box.text, HasSubstr("to the recycle bin?"));
  EXPECT_THAT(box.buttons, ElementsAre(IDYES, IDNO));
  EXPECT_TRUE(Exists(Path("a.txt")));
  fixture_.boxes().AnswerWith(IDYES);
  Command(file_explorer::kCommandDelete);
  Finish();
  EXPECT_TRUE(Loses("a.txt"));
  EXPECT_FALSE(Exists(Path("a.txt")));
  EXPECT_TRUE(Exists(Path("b.txt")));
  EXPECT_EQ(fixture_.boxes().boxes().size(), 2U);
  EXPECT_EQ(SendMessageA(list(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_FOCUSED), fixture_.IndexOf("b.txt"))
      << "the keys go on with the next file";
}

TEST_F(FileCommandsTest, NewFolderIsNamedInPlace) {
  Begin();
  Command(file_explorer::kCommandNewFolder);
  EXPECT_TRUE(Exists(Path("New folder")));
  ASSERT_NE(ListEdit(), nullptr);
  EXPECT_EQ(test_support::TextOf(ListEdit()), "New folder");
  TypeAndPress(ListEdit(), "Models", VK_RETURN);
  EXPECT_TRUE(Shows("Models"));
  EXPECT_TRUE(Exists(Path("Models")));
  EXPECT_FALSE(Exists(Path("New folder")));
}

TEST_F(FileCommandsTest, NewFolderKeepsItsNameWithEscapeAndTheNextOneGetsAnother) {
  Begin();
  Command(file_explorer::kCommandNewFolder);
  ASSERT_NE(ListEdit(), nullptr);
  TypeAndPress(ListEdit(), "x", VK_ESCAPE);
  Command(file_explorer::kCommandNewFolder);
  ASSERT_NE(ListEdit(), nullptr);
  TypeAndPress(ListEdit(), "x", VK_ESCAPE);
  EXPECT_TRUE(Exists(Path("New folder")));
  EXPECT_TRUE(Exists(Path("New folder (2)")));
}

TEST_F(FileCommandsTest, ThePanelsNewFolderGoesUnderTheSelectedFolderOfTheTree) {
  Begin();
  SendMessageA(fixture_.Panel(), WM_COMMAND, file_explorer::kCommandNewFolder, 0);
  EXPECT_TRUE(Exists(Path("New folder")));
  ASSERT_NE(TreeEdit(), nullptr);
  EXPECT_EQ(test_support::TextOf(TreeEdit()), "New folder");
  TypeAndPress(TreeEdit(), "Scenes", VK_RETURN);
  EXPECT_TRUE(Exists(Path("Scenes")));
  EXPECT_TRUE(Shows("Scenes")) << "the list follows";
  EXPECT_THAT(ChildrenOf(NextNode(TVGN_CARET)), ElementsAre("Scenes", "sub"));
}

TEST_F(FileCommandsTest, CommandsWithoutASelectionDoNothing) {
  Begin();
  Select({});
  for (const int command : {file_explorer::kCommandRename, file_explorer::kCommandDelete,
                            file_explorer::kCommandMoveTo, file_explorer::kCommandCopyTo}) {
    Command(command);
  }
  EXPECT_TRUE(driver_.dialogs().empty());
  EXPECT_EQ(ListEdit(), nullptr);
  EXPECT_THAT(fixture_.FileNames(), UnorderedElementsAre("sub", "a.txt", "b.txt"));
}

}  // namespace
}  // namespace fileops_test
