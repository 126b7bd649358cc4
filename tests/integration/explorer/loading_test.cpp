// A file on its way from the file view into the host.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <fstream>
#include <sstream>
#include <string>

#include "src/host/plugin_protocol.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using test_support::WaitUntil;

class LoadingTest : public testing::Test {
 protected:
  void Begin() {
    fixture_.directory().AddFile(L"files\\notes.txt", "some text");
    fixture_.directory().AddFile(L"files\\tea pot.obj", "v 0 0 0\n");
    fixture_.directory().AddFolder(L"files\\below");
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFiles(3));
  }
  size_t Documents() { return fixture_.workbench().documents().documents().size(); }
  std::string HandOver() {
    std::array<char, MAX_PATH> temp = {};
    GetTempPathA(MAX_PATH, temp.data());
    std::ifstream file(std::string(temp.data()) + "WM_HALVO_AUTOLOAD_FILE.txt", std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(LoadingTest, ADoubleClickHandsTheFileToTheHost) {
  Begin();
  fixture_.DoubleClickFile("tea pot.obj");
  ASSERT_TRUE(WaitUntil([&] { return Documents() == 1; }));
  EXPECT_EQ(HandOver(), fixture_.FilesFolder() + "\\tea pot.obj");
  EXPECT_EQ(fixture_.workbench().documents().documents().at(0).path, fixture_.directory().Join(std::wstring_view(L"files\\tea pot.obj")));
  // It is in the history, too.
  EXPECT_EQ(SendMessageA(fixture_.PanelChild(32000), LB_GETCOUNT, 0, 0), 1);
}

TEST_F(LoadingTest, ASingleClickOnlySelectsUnlessTheUserWantsOtherwise) {
  Begin();
  fixture_.ClickFile("notes.txt");
  ASSERT_TRUE(WaitUntil([&] { return fixture_.SelectedNames().size() == 1; }));
  EXPECT_EQ(Documents(), 0U);
}

TEST_F(LoadingTest, ASingleClickLoadsWhenTheUserWantsIt) {
  fixture_.directory().AddFile(L"profile.ini", "[Explore]\nFileView_SingleClickFileLoading=1\n");
  Begin();
  fixture_.ClickFile("notes.txt");
  ASSERT_TRUE(WaitUntil([&] { return Documents() == 1; }));
}

TEST_F(LoadingTest, WithSingleClickLoadingADoubleClickLoadsNothingMore) {
  fixture_.directory().AddFile(L"profile.ini", "[Explore]\nFileView_SingleClickFileLoading=1\n");
  Begin();
  fixture_.DoubleClickFile("notes.txt");
  ASSERT_TRUE(WaitUntil([&] { return Documents() == 1; }));
  test_support::PumpMessages();
  // Opened by the click; the double click is the control's own.
  EXPECT_EQ(SendMessageA(fixture_.PanelChild(32000), LB_GETCOUNT, 0, 0), 1);
  EXPECT_EQ(Documents(), 1U);
}

TEST_F(LoadingTest, AFolderIsOpenedAndNotLoaded) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin();
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  EXPECT_EQ(Documents(), 0U);
}

TEST_F(LoadingTest, ANewFolderIsRememberedForTheNextRun) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin();
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  fixture_.Close();
  fixture_.options().folder.clear();
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_TRUE(fixture_.WaitForFile("inner.obj"));
}

TEST_F(LoadingTest, ToolbarCommandsFollowTheSelection) {
  Begin();
  const auto enabled = [&](int command) {
    return SendMessageA(fixture_.CommandToolbar(), TB_ISBUTTONENABLED, static_cast<WPARAM>(command), 0) != 0;
  };
  ASSERT_TRUE(WaitUntil([&] { return !enabled(126); })) << "nothing is selected";
  fixture_.ClickFile("notes.txt");
  ASSERT_TRUE(WaitUntil([&] { return enabled(126); }));
  EXPECT_TRUE(enabled(110));
  EXPECT_TRUE(enabled(125));
}

}  // namespace
