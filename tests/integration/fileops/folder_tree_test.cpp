// The folder tree keeps up with the disk, and shows files when it is told to.
#include "tests/integration/fileops/fileops_fixture.h"
#include "tests/support/only_wine.h"

namespace fileops_test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class FolderTreeTest : public FileOpsTest {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\notes.txt");
    fixture_.directory().AddFolder(L"files\\one\\inner");
    fixture_.directory().AddFolder(L"files\\two");
  }
  std::vector<std::string> Children() const { return ChildrenOf(NextNode(TVGN_CARET)); }
  bool Becomes(const std::vector<std::string>& children) {
    return WaitUntil([&] { return Children() == children; });
  }
};

TEST_F(FolderTreeTest, NewRenamedAndDeletedFoldersAppearByThemselves) {
  Start(3);
  ASSERT_TRUE(ExpandSelected({"one", "two"}));
  CreateDirectoryA(Path("middle").c_str(), nullptr);
  EXPECT_TRUE(Becomes({"middle", "one", "two"}));
  MoveFileA(Path("two").c_str(), Path("another").c_str());
  EXPECT_TRUE(Becomes({"another", "middle", "one"}));
  RemoveDirectoryA(Path("middle").c_str());
  EXPECT_TRUE(Becomes({"another", "one"}));
  DeleteFileA(Path("notes.txt").c_str());
  CreateDirectoryA(Path("last").c_str(), nullptr);
  EXPECT_TRUE(Becomes({"another", "last", "one"})) << "files are not shown here";
}

TEST_F(FolderTreeTest, AFirstChildGivesTheSelectedFolderItsButton) {
  Start(3);
  ASSERT_TRUE(GoTo("two", 0));
  const HTREEITEM two = NextNode(TVGN_CARET);
  ASSERT_TRUE(ExpandSelected({}));
  CreateDirectoryA(Path("two\\child").c_str(), nullptr);
  EXPECT_TRUE(Becomes({"child"}));
  TVITEMA item = {};
  item.mask = TVIF_CHILDREN | TVIF_HANDLE;
  item.hItem = two;
  SendMessageA(tree(), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  EXPECT_EQ(item.cChildren, 1);
}

TEST_F(FolderTreeTest, AFolderThatWasClosedIsReadAgainWhenItOpens) {
  Start(3);
  ASSERT_TRUE(ExpandSelected({"one", "two"}));
  const HTREEITEM one = ChildOf(NextNode(TVGN_CARET), "one");
  SendMessageA(tree(), TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(one));
  ASSERT_TRUE(WaitUntil([&] { return ChildrenOf(one) == std::vector<std::string>{"inner"}; }));
  SendMessageA(tree(), TVM_EXPAND, TVE_COLLAPSE, reinterpret_cast<LPARAM>(one));
  RemoveDirectoryA(Path("one\\inner").c_str());
  CreateDirectoryA(Path("one\\newer").c_str(), nullptr);
  SendMessageA(tree(), TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(one));
  EXPECT_TRUE(WaitUntil([&] { return ChildrenOf(one) == std::vector<std::string>{"newer"}; }));
}

TEST_F(FolderTreeTest, TheViewsLeaveAFolderThatIsMovedAway) {
  Start(3);
  ASSERT_TRUE(ExpandSelected({"one", "two"}));
  ASSERT_TRUE(GoTo("two", 0));
  MoveFileA(Path("two").c_str(), fixture_.directory().Join(std::string_view("elsewhere")).c_str());
  EXPECT_TRUE(WaitUntil([this] { return SelectedNode() == "files"; }));
  EXPECT_TRUE(fixture_.WaitForFiles(2));
  EXPECT_TRUE(Becomes({"one"}));
}

TEST_F(FolderTreeTest, AClickThatBringsTheFocusDoesNotEditTheName) {
  Start(3);
  SetFocus(list());
  SetFocus(tree());
  // What the tree does by itself a moment after such a click.
  SendMessageA(tree(), TVM_EDITLABELA, 0, reinterpret_cast<LPARAM>(NextNode(TVGN_CARET)));
  EXPECT_EQ(SendMessageA(tree(), TVM_GETEDITCONTROL, 0, 0), 0);
  SendMessageA(tree(), WM_KEYDOWN, VK_F2, 1);
  EXPECT_NE(SendMessageA(tree(), TVM_GETEDITCONTROL, 0, 0), 0) << "the key does";
  SendMessageA(tree(), TVM_ENDEDITLABELNOW, TRUE, 0);
}

TEST_F(FolderTreeTest, AFolderThatItsParentDoesNotListStays) {
  EXPLORER_ONLY_WINE("the root of drive Z does not list the devices of the machine below, which can be gone to") {
    Start(3);
    TypePath("Z:\\dev\\shm");
    ASSERT_TRUE(WaitUntil([this] { return SelectedNode() == "shm"; }));
    const HTREEITEM dev = NextNode(TVGN_PARENT, NextNode(TVGN_CARET));
    const HTREEITEM drive = NextNode(TVGN_PARENT, dev);
    SendMessageA(tree(), TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(drive));
    ASSERT_TRUE(WaitUntil([&] { return ChildOf(drive, "usr") != nullptr; }));
    EXPECT_EQ(NodeText(dev), "dev");
    EXPECT_EQ(SelectedNode(), "shm");
  }
}

TEST_F(FolderTreeTest, FilesAreLeavesBehindTheFolders) {
  fixture_.directory().AddFile(L"files\\another.txt");
  Option("TreeView_ShowFiles", "1");
  Start(4);
  ASSERT_TRUE(ExpandSelected({"one", "two", "another.txt", "notes.txt"}));
  TVITEMA item = {};
  item.mask = TVIF_CHILDREN | TVIF_HANDLE;
  item.hItem = ChildOf(NextNode(TVGN_CARET), "notes.txt");
  SendMessageA(tree(), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
  EXPECT_EQ(item.cChildren, 0);
  fixture_.directory().AddFile(L"files\\middle.txt");
  EXPECT_TRUE(Becomes({"one", "two", "another.txt", "middle.txt", "notes.txt"}));
  DeleteFileA(Path("another.txt").c_str());
  EXPECT_TRUE(Becomes({"one", "two", "middle.txt", "notes.txt"}));
}

TEST_F(FolderTreeTest, AFileStaysSelectedWhileTheListShowsItsFolder) {
  fixture_.directory().AddFile(L"files\\one\\deep.txt");
  Option("TreeView_ShowFiles", "1");
  Start(3);
  ASSERT_TRUE(ExpandSelected({"one", "two", "notes.txt"}));
  const HTREEITEM one = ChildOf(NextNode(TVGN_CARET), "one");
  SendMessageA(tree(), TVM_EXPAND, TVE_EXPAND, reinterpret_cast<LPARAM>(one));
  ASSERT_TRUE(WaitUntil([&] { return ChildOf(one, "deep.txt") != nullptr; }));
  SendMessageA(tree(), TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(ChildOf(one, "deep.txt")));
  EXPECT_TRUE(Shows("deep.txt"));
  EXPECT_TRUE(Shows("inner"));
  EXPECT_EQ(SelectedNode(), "deep.txt");
}

}  // namespace
}  // namespace fileops_test
