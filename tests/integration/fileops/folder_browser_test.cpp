// Move and copy with the shell's own folder browser and file operation.
#include <windows.h>

#include <shlobj.h>

#include "tests/integration/fileops/fileops_fixture.h"

namespace fileops_test {
namespace {

class FolderBrowserTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt", "of a");
    fixture_.directory().AddFile(L"files\\b.txt", "of b");
    fixture_.directory().AddFile(L"files\\c.txt", "of c");
    target_.AddFolder(L"target");
    Start(3);
  }
  std::string Target(const std::string& name) {
    return target_.Join(std::string_view("target")) + "\\" + name;
  }
  static std::string SelectionOf(HWND browser) {
    const HWND tree = test_support::FindDescendant(browser, WC_TREEVIEWA);
    char text[512] = "";
    TVITEMA item = {};
    item.mask = TVIF_TEXT | TVIF_HANDLE;
    item.hItem = reinterpret_cast<HTREEITEM>(SendMessageA(tree, TVM_GETNEXTITEM, TVGN_CARET, 0));
    item.pszText = text;
    item.cchTextMax = sizeof(text);
    SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return item.pszText;
  }
  // Once the browser shows the target folder as selected: as its own doing, or after it was told.
  bool WaitForTarget(HWND browser, bool tell) {
    return WaitUntil([&] {
      if (tell) {
        SendMessageA(browser, BFFM_SETSELECTIONA, TRUE,
                     reinterpret_cast<LPARAM>(target_.Join(std::string_view("target")).c_str()));
      }
      return SelectionOf(browser) == "target";
    });
  }
  static void Press(HWND dialog, int button) {
    PostMessageA(dialog, WM_COMMAND, MAKEWPARAM(button, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, button)));
  }
  // Confirms the next browsers when they have the target selected, and says no to questions.
  void ChooseTarget(bool tell) {
    driver_.OnDialog([this, tell](const SeenDialog& dialog) {
      if (test_support::FindDescendant(dialog.window, WC_TREEVIEWA) == nullptr)
        return Press(dialog.window, IDNO);
      ++browsers_;
      EXPECT_TRUE(WaitForTarget(dialog.window, tell)) << SelectionOf(dialog.window);
      Press(dialog.window, IDOK);
    });
  }

  // The browser finds a folder by the lists that it read before: nothing above it may change meanwhile.
  test_support::TempDirectory target_{test_support::TempDirectory::Place::kDriveRoot};
  int browsers_ = 0;
};

TEST_F(FolderBrowserTest, MovesAndCopiesTheSelectionAndOpensAtTheLastDestination) {
  Select({"a.txt", "b.txt"});
  ChooseTarget(true);
  Command(file_explorer::kCommandMoveTo);
  ASSERT_EQ(browsers_, 1);
  EXPECT_TRUE(Loses("a.txt")) << "the view follows";
  EXPECT_EQ(Content(Target("a.txt")), "of a");
  EXPECT_EQ(Content(Target("b.txt")), "of b");
  EXPECT_FALSE(Exists(Path("b.txt")));

  // Another action of the explorer in between.
  Command(file_explorer::kCommandNewFolder);
  ASSERT_TRUE(Shows("New folder"));
  Select({"c.txt"});
  ChooseTarget(false);
  Command(file_explorer::kCommandCopyTo);
  ASSERT_EQ(browsers_, 2);
  EXPECT_EQ(Content(Target("c.txt")), "of c");
  EXPECT_EQ(Content(Path("c.txt")), "of c");
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

TEST_F(FolderBrowserTest, OntoAFileOfTheSameNameAsksFirstAndObeysBothAnswers) {
  target_.AddFile(L"target\\a.txt", "older");
  fixture_.boxes().AnswerWith(IDNO);
  for (const UINT command : {file_explorer::kCommandCopyTo, file_explorer::kCommandMoveTo}) {
    Select({"a.txt", "b.txt"});
    ChooseTarget(command == file_explorer::kCommandCopyTo);
    Command(command);
    EXPECT_EQ(Content(Target("a.txt")), "older");
    EXPECT_EQ(Content(Path("a.txt")), "of a");
    EXPECT_EQ(Content(Target("b.txt")), "of b") << "what is not in the way goes on";
    DeleteFileA(Target("b.txt").c_str());
  }
  fixture_.boxes().AnswerWith(IDYES);
  Select({"a.txt"});
  ChooseTarget(false);
  Command(file_explorer::kCommandMoveTo);
  EXPECT_EQ(Content(Target("a.txt")), "of a");
  EXPECT_EQ(Content(Path("a.txt")), "(none)");
  ASSERT_EQ(fixture_.boxes().boxes().size(), 3U) << "one question a time, and no report of the No";
  const test_support::RecordedMessageBox& box = fixture_.boxes().boxes()[0];
  EXPECT_EQ(box.caption, "Confirm File Replace");
  EXPECT_EQ(
      box.text,
      "The folder already contains a file named \"a.txt\".\n\nDo you want to replace it?\n\nWith No this "
      "file is skipped; Cancel ends the whole operation.");
  EXPECT_EQ(box.icon, static_cast<UINT>(MB_ICONQUESTION));
  EXPECT_THAT(box.buttons, testing::ElementsAre(IDYES, IDNO, IDCANCEL));
}

}  // namespace
}  // namespace fileops_test
