// Taking operations back, in the list and in the tree.
#include <windows.h>

#include "tests/integration/fileops/fileops_fixture.h"

namespace fileops_test {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

class UndoTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.txt", "of a");
    fixture_.directory().AddFile(L"files\\b.txt", "of b");
    fixture_.directory().AddFile(L"files\\dir\\x.txt", "of x");
    fixture_.directory().AddFolder(L"files\\sub");
    fixture_.boxes().AnswerWith(IDYES);
    Start(4);
  }
  void Transfer(bool cut, const std::vector<std::string>& names) {
    Select(names);
    Command(cut ? file_explorer::kCommandCut : file_explorer::kCommandCopy);
    ASSERT_TRUE(GoTo("sub", 0));
    Paste();
  }
  void Rename(const std::string& from, const char* to) {
    Select({from});
    Command(file_explorer::kCommandRename);
    const auto edit = reinterpret_cast<HWND>(SendMessageA(list(), LVM_GETEDITCONTROL, 0, 0));
    ASSERT_NE(edit, nullptr);
    SendMessageA(edit, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(to));
    SendMessageA(edit, WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_TRUE(Shows(to));
  }
  void Delete(const std::vector<std::string>& names) {
    Select(names);
    Command(file_explorer::kCommandDelete);
    Finish();
  }
  // The captions of the menu of the list's empty area.
  std::vector<std::string> BackgroundMenu(const std::string& choice = {}) {
    RECT rect = {};
    GetClientRect(list(), &rect);
    POINT point = {rect.right - 20, rect.bottom - 10};
    ClientToScreen(list(), &point);
    const size_t before = driver_.menus().size();
    driver_.ChooseFromMenu(choice);
    PostMessageA(GetParent(list()), WM_CONTEXTMENU, reinterpret_cast<WPARAM>(list()),
                 MAKELPARAM(point.x, point.y));
    EXPECT_TRUE(WaitUntil([&] { return driver_.menus().size() > before; }));
    test_support::PumpMessages();
    return driver_.menus().empty() ? std::vector<std::string>() : driver_.menus().back().captions;
  }
};

TEST_F(UndoTest, ACopyIsTakenAway) {
  Transfer(false, {"a.txt", "dir"});
  EXPECT_THAT(BackgroundMenu(), Contains("Undo Copy"));
  Undo();
  EXPECT_FALSE(Exists(Path("sub\\a.txt")));
  EXPECT_FALSE(Exists(Path("sub\\dir")));
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("dir\\x.txt")), "of x");
  EXPECT_THAT(BackgroundMenu(), Contains("Undo")) << "nothing is left";
}

TEST_F(UndoTest, ACopyThatWasWorkedOnStays) {
  Transfer(false, {"a.txt", "b.txt"});
  fixture_.directory().AddFile(L"files\\sub\\a.txt", "of a, and a day's work");
  Undo();
  EXPECT_EQ(Content(Path("sub\\a.txt")), "of a, and a day's work");
  EXPECT_FALSE(Exists(Path("sub\\b.txt")));
  EXPECT_THAT(LastBox(), HasSubstr("a.txt"));
}

TEST_F(UndoTest, AMoveGoesBack) {
  Transfer(true, {"a.txt", "dir"});
  Undo();
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("dir\\x.txt")), "of x");
  EXPECT_FALSE(Exists(Path("sub\\a.txt")));
  EXPECT_THAT(fixture_.boxes().boxes(), IsEmpty());
}

TEST_F(UndoTest, AMoveDoesNotGoBackOverSomethingNew) {
  Transfer(true, {"a.txt"});
  fixture_.directory().AddFile(L"files\\a.txt", "another one");
  Undo();
  EXPECT_EQ(Content(Path("a.txt")), "another one");
  EXPECT_EQ(Content(Path("sub\\a.txt")), "of a");
  EXPECT_THAT(LastBox(), HasSubstr("a.txt"));
  // It can be tried again when the place is free.
  DeleteFileA(Path("a.txt").c_str());
  Undo();
  EXPECT_EQ(Content(Path("a.txt")), "of a");
}

TEST_F(UndoTest, ARenameGoesBack) {
  Rename("a.txt", "z.txt");
  EXPECT_THAT(BackgroundMenu("Undo Rename"), Contains("Undo Rename"));
  Finish();
  EXPECT_TRUE(Shows("a.txt"));
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_FALSE(Exists(Path("z.txt")));
}

TEST_F(UndoTest, WhatWentToTheBinComesBack) {
  Delete({"a.txt", "dir"});
  ASSERT_FALSE(Exists(Path("a.txt")));
  ASSERT_FALSE(Exists(Path("dir")));
  EXPECT_THAT(BackgroundMenu(), Contains("Undo Delete"));
  Undo();
  EXPECT_EQ(Content(Path("a.txt")), "of a");
  EXPECT_EQ(Content(Path("dir\\x.txt")), "of x");
  EXPECT_TRUE(Shows("dir"));
}

TEST_F(UndoTest, OfTwoFilesOfOneNameInTheBinTheLastOneComesBack) {
  Delete({"a.txt"});
  fixture_.directory().AddFile(L"files\\a.txt", "the second");
  ASSERT_TRUE(Shows("a.txt"));
  Delete({"a.txt"});
  Undo();
  EXPECT_EQ(Content(Path("a.txt")), "the second");
}

TEST_F(UndoTest, WhatWasDeletedDoesNotComeBackOverSomethingNew) {
  Delete({"a.txt"});
  fixture_.directory().AddFile(L"files\\a.txt", "another one");
  Undo();
  EXPECT_EQ(Content(Path("a.txt")), "another one");
  EXPECT_THAT(LastBox(), HasSubstr("a.txt"));
}

TEST_F(UndoTest, WhatWasDeletedForGoodHidesNothingThatCanBeTakenBack) {
  Rename("b.txt", "c.txt");
  Select({"a.txt"});
  PressWith(list(), VK_DELETE, {VK_SHIFT});
  Finish();
  ASSERT_FALSE(Exists(Path("a.txt")));
  EXPECT_THAT(BackgroundMenu(), Contains("Undo Rename"));
}

TEST_F(UndoTest, OperationsAreTakenBackLastFirst) {
  Rename("a.txt", "z.txt");
  Rename("b.txt", "y.txt");
  Undo();
  EXPECT_TRUE(Exists(Path("b.txt")));
  EXPECT_TRUE(Exists(Path("z.txt")));
  Undo();
  EXPECT_TRUE(Exists(Path("a.txt")));
  Undo();
  EXPECT_TRUE(Exists(Path("a.txt"))) << "nothing is left to be taken back";
}

TEST_F(UndoTest, TheTreeTakesBackWhatTheListDid) {
  Rename("a.txt", "z.txt");
  SetFocus(tree());
  PressWith(tree(), 'Z', {VK_CONTROL});
  Finish();
  EXPECT_TRUE(Exists(Path("a.txt")));
  EXPECT_FALSE(Exists(Path("z.txt")));
}

TEST_F(UndoTest, TheListTakesBackWhatTheTreeDid) {
  ASSERT_TRUE(ExpandSelected({"dir", "sub"}));
  SendMessageA(tree(), TVM_SELECTITEM, TVGN_CARET,
               reinterpret_cast<LPARAM>(ChildOf(NextNode(TVGN_CARET), "dir")));
  ASSERT_TRUE(WaitUntil([this] { return fixture_.FileNames() == std::vector<std::string>{"x.txt"}; }));
  SendMessageA(tree(), WM_KEYDOWN, VK_DELETE, 1);
  Finish();
  ASSERT_FALSE(Exists(Path("dir")));
  EXPECT_TRUE(WaitUntil([this] { return SelectedNode() == "files"; }))
      << "nobody stays in a folder that has gone";
  Undo();
  EXPECT_EQ(Content(Path("dir\\x.txt")), "of x");
}

}  // namespace
}  // namespace fileops_test
