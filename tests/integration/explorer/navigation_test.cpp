// Where the explorer starts and goes.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <string>

#include "src/host/vc64_tx.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using test_support::WaitUntil;

class NavigationTest : public testing::Test {
 protected:
  void Begin() {
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  }
  bool UpIsEnabled() {
    return SendMessageA(fixture_.CommandToolbar(), TB_ISBUTTONENABLED, 101, 0) != 0;
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(NavigationTest, StartsInTheWorkingDirectoryOfTheHost) {
  fixture_.directory().AddFile(L"files\\here.obj");
  Begin();
  EXPECT_TRUE(fixture_.WaitForFile("here.obj"));
}

TEST_F(NavigationTest, StartsOnTheDesktopWithoutALinkAndAWorkingDirectory) {
  fixture_.options().folder.clear();
  Begin();
  // The desktop is the one folder that has no parent.
  EXPECT_TRUE(WaitUntil([&] { return fixture_.FileList() != nullptr && !UpIsEnabled(); }));
}

TEST_F(NavigationTest, AWorkingDirectoryThatIsGoneGivesTheDesktop) {
  fixture_.options().folder.clear();
  Tx_Set_Environment("TS_WORKING_DIR", "q:\\no such folder");
  Begin();
  EXPECT_TRUE(WaitUntil([&] { return fixture_.FileList() != nullptr && !UpIsEnabled(); }));
}

// The next run of the host, without a folder of the command line, starts where this one ended.
TEST_F(NavigationTest, AFolderOfTheLastRunThatIsGoneGivesTheWorkingDirectory) {
  fixture_.directory().AddFile(L"files\\here.obj");
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin();
  ASSERT_TRUE(fixture_.WaitForFile("below"));
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  fixture_.Close();
  fixture_.options().folder.clear();
  Begin();
  EXPECT_TRUE(fixture_.WaitForFile("inner.obj")) << "while it is there";
  fixture_.Close();
  ASSERT_TRUE(MoveFileA((fixture_.FilesFolder() + "\\below").c_str(), (fixture_.FilesFolder() + "\\moved").c_str()));
  Begin();
  EXPECT_TRUE(fixture_.WaitForFile("here.obj"));
}

TEST_F(NavigationTest, UpShowsTheFolderAbove) {
  fixture_.directory().AddFile(L"files\\here.obj");
  Begin();
  ASSERT_TRUE(fixture_.WaitForFile("here.obj"));
  EXPECT_TRUE(UpIsEnabled());
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 101, 0);
  EXPECT_TRUE(fixture_.WaitForFile("files"));
}

TEST_F(NavigationTest, HomeIsTheHomeDirectory) {
  fixture_.directory().AddFile(L"files\\here.obj");
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin();
  ASSERT_TRUE(fixture_.WaitForFile("here.obj"));
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  // Without a link of its own the home directory is the working directory.
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 103, 0);
  EXPECT_TRUE(fixture_.WaitForFile("here.obj"));
}

TEST_F(NavigationTest, WithoutALinkAndAWorkingDirectoryHomeIsTheDesktop) {
  fixture_.options().folder.clear();
  Begin();
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 2014, 0);  // somewhere else first
  ASSERT_TRUE(WaitUntil([&] { return UpIsEnabled(); }));
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 2000, 0);
  EXPECT_TRUE(WaitUntil([&] { return !UpIsEnabled(); }));
}

TEST_F(NavigationTest, RefreshShowsWhatHasCome) {
  fixture_.directory().AddFile(L"files\\here.obj");
  Begin();
  ASSERT_TRUE(fixture_.WaitForFile("here.obj"));
  fixture_.directory().AddFile(L"files\\later.obj");
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 102, 0);
  EXPECT_TRUE(fixture_.WaitForFile("later.obj"));
}

TEST_F(NavigationTest, TreeListAndPathBoxShowTheSameFolder) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin();
  ASSERT_TRUE(fixture_.WaitForFile("below"));
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  EXPECT_TRUE(WaitUntil([&] {
    char text[260] = "";
    TVITEMA item = {};
    item.mask = TVIF_TEXT;
    item.hItem = TreeView_GetSelection(fixture_.FolderTree());
    item.pszText = text;
    item.cchTextMax = sizeof(text);
    SendMessageA(fixture_.FolderTree(), TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
    return std::string(item.pszText) == "below";
  }));
}

}  // namespace
