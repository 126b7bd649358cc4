// Archives through the explorer in the workbench.
#include <windows.h>

#include <commctrl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "src/host/vc64_tx.h"
#include "tests/support/explorer/blocked_class.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"
#include "tests/support/zip_builder.h"

namespace {

using test_support::PumpMessages;
using test_support::WaitUntil;
using test_support::ZipBuilder;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr char kZipGuid[] = "{693069FB-E6CF-4837-865E-A0B5396B39D0}";
constexpr char kZipGuidInLowerCase[] = "{693069fb-e6cf-4837-865e-a0b5396b39d0}";

class ArchiveExplorerTest : public testing::Test {
 protected:
  void Begin() {
    fixture_.directory().AddFile(
        L"files\\box.zip",
        ZipBuilder().Add("models/teapot.obj", "v 0 0 0\n").Add("readme.txt", "hello").Build());
    fixture_.directory().AddFile(L"files\\notes.txt", "text");
    fixture_.directory().AddFolder(L"files\\sub");
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFiles(3));
  }
  std::string Archive() { return fixture_.FilesFolder() + "\\box.zip"; }
  TxExecuteCallback ExecuteCallback() {
    TxExecuteCallback execute = nullptr;
    Tx_Inquire_FileFormatHandler(kZipGuid, Tx_Inquire_Token("executecallback"), &execute, 0);
    return execute;
  }
  size_t Documents() { return fixture_.workbench().documents().documents().size(); }
  bool IsInArchive() { return fixture_.IndexOf("readme.txt") >= 0 && fixture_.IndexOf("models") >= 0; }

  test_support::ExplorerFixture fixture_;
};

TEST_F(ArchiveExplorerTest, TheHostOpensAnArchiveInTheFileView) {
  Begin();
  EXPECT_TRUE(
      fixture_.workbench().OpenDocument(fixture_.directory().Join(std::wstring_view(L"files\\box.zip"))));
  EXPECT_TRUE(WaitUntil([&] { return IsInArchive(); }));
  EXPECT_EQ(Documents(), 0U) << "it is no document of the host";
}

TEST_F(ArchiveExplorerTest, OtherFilesStayDocumentsOfTheHost) {
  Begin();
  EXPECT_TRUE(
      fixture_.workbench().OpenDocument(fixture_.directory().Join(std::wstring_view(L"files\\notes.txt"))));
  EXPECT_EQ(Documents(), 1U);
}

TEST_F(ArchiveExplorerTest, ADisabledHandlerIsNotAsked) {
  Begin();
  ASSERT_TRUE(Tx_Enable_FileFormatHandler(kZipGuid, 0));
  fixture_.workbench().OpenDocument(fixture_.directory().Join(std::wstring_view(L"files\\box.zip")));
  PumpMessages();
  EXPECT_FALSE(IsInArchive());
  Tx_Enable_FileFormatHandler(kZipGuid, 1);
}

TEST_F(ArchiveExplorerTest, TheExecuteCallbackShowsTheArchiveAndBringsTheExplorerForward) {
  Begin();
  fixture_.services().ClearCalls();
  ASSERT_NE(ExecuteCallback(), nullptr);
  EXPECT_EQ(ExecuteCallback()(1, kZipGuid, Archive().c_str()), 0);
  EXPECT_EQ(fixture_.services().CountCalls("ShowManagedWindow"), 1);
  EXPECT_TRUE(WaitUntil([&] { return IsInArchive(); }));
}

TEST_F(ArchiveExplorerTest, AnyOtherActionOrGuidIsIgnored) {
  Begin();
  fixture_.services().ClearCalls();
  const std::string path = Archive();
  const std::string longer = std::string(kZipGuid) + " ";
  const std::string shorter = std::string(kZipGuid).substr(0, 37);
  for (const std::int16_t action : {2, 0, -1, 257})
    EXPECT_EQ(ExecuteCallback()(action, kZipGuid, path.c_str()), 0);
  EXPECT_EQ(ExecuteCallback()(1, kZipGuidInLowerCase, path.c_str()), 0);
  EXPECT_EQ(ExecuteCallback()(1, longer.c_str(), path.c_str()), 0);
  EXPECT_EQ(ExecuteCallback()(1, shorter.c_str(), path.c_str()), 0);
  EXPECT_EQ(ExecuteCallback()(1, "", path.c_str()), 0);
  EXPECT_EQ(ExecuteCallback()(1, nullptr, path.c_str()), 0);
  EXPECT_EQ(ExecuteCallback()(1, kZipGuid, nullptr), 0);
  PumpMessages();
  EXPECT_EQ(fixture_.services().CountCalls("ShowManagedWindow"), 0);
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("sub", "box.zip", "notes.txt"));
}

TEST_F(ArchiveExplorerTest, AnArchiveThatIsNotThereChangesNothing) {
  Begin();
  EXPECT_EQ(ExecuteCallback()(1, kZipGuid, "q:\\no such folder\\a.zip"), 0);
  PumpMessages();
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("sub", "box.zip", "notes.txt"));
  EXPECT_THAT(fixture_.boxes().boxes(), IsEmpty());
}

TEST_F(ArchiveExplorerTest, WithoutAUsableShellNothingHappens) {
  const test_support::BlockedClass noTree(test_support::kFolderViewClassId);
  fixture_.directory().AddFile(L"files\\box.zip", ZipBuilder().Add("readme.txt").Build());
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  fixture_.SayWithHost({{"showfolderviewpanel", nullptr}});
  PumpMessages();
  const std::vector<std::string> before = fixture_.FileNames();
  const size_t boxes = fixture_.boxes().boxes().size();
  ASSERT_GE(boxes, 1U) << "the user knows that there is no shell view";
  fixture_.services().ClearCalls();
  ASSERT_NE(ExecuteCallback(), nullptr);
  EXPECT_EQ(ExecuteCallback()(1, kZipGuid, Archive().c_str()), 0);
  PumpMessages();
  EXPECT_EQ(fixture_.services().CountCalls("ShowManagedWindow"), 0);
  EXPECT_EQ(fixture_.FileNames(), before);
}

TEST_F(ArchiveExplorerTest, ADoubleClickOpensItAndLoadsNothing) {
  Begin();
  fixture_.DoubleClickFile("box.zip");
  ASSERT_TRUE(WaitUntil([&] { return IsInArchive(); }));
  EXPECT_EQ(Documents(), 0U);
  // Nor does anything inside.
  fixture_.DoubleClickFile("readme.txt");
  PumpMessages();
  EXPECT_EQ(Documents(), 0U);
  EXPECT_EQ(SendMessageA(fixture_.PanelChild(32000), LB_GETCOUNT, 0, 0), 0) << "the history stays empty";
  fixture_.DoubleClickFile("models");
  EXPECT_TRUE(fixture_.WaitForFile("teapot.obj"));
}

TEST_F(ArchiveExplorerTest, WithSingleClickLoadingAClickInsideLoadsNothing) {
  fixture_.directory().AddFile(L"profile.ini", "[Explore]\nFileView_SingleClickFileLoading=1\n");
  Begin();
  fixture_.DoubleClickFile("box.zip");
  ASSERT_TRUE(WaitUntil([&] { return IsInArchive(); }));
  fixture_.ClickFile("readme.txt");
  ASSERT_TRUE(WaitUntil([&] { return fixture_.SelectedNames().size() == 1; }));
  PumpMessages();
  EXPECT_EQ(Documents(), 0U);
}

TEST_F(ArchiveExplorerTest, UpLeadsOut) {
  Begin();
  fixture_.DoubleClickFile("box.zip");
  ASSERT_TRUE(WaitUntil([&] { return IsInArchive(); }));
  EXPECT_NE(SendMessageA(fixture_.CommandToolbar(), TB_ISBUTTONENABLED, 101, 0), 0);
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 101, 0);
  ASSERT_TRUE(fixture_.WaitForFile("notes.txt"));
  EXPECT_THAT(fixture_.FileNames(), ElementsAre("sub", "box.zip", "notes.txt"));
}

TEST_F(ArchiveExplorerTest, NothingInsideCanBecomeAFavourite) {
  Begin();
  fixture_.DoubleClickFile("box.zip");
  ASSERT_TRUE(WaitUntil([&] { return IsInArchive(); }));
  for (const char* const name : {"readme.txt", "models"}) {
    fixture_.ClickFile(name);
    ASSERT_TRUE(WaitUntil([&] { return fixture_.SelectedNames() == std::vector<std::string>{name}; }));
    const size_t before = fixture_.boxes().boxes().size();
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 109, 0);
    ASSERT_EQ(fixture_.boxes().boxes().size(), before + 1) << name;
    EXPECT_EQ(fixture_.boxes().boxes().back().caption, "Warning");
    EXPECT_THAT(fixture_.boxes().boxes().back().text, HasSubstr("virtual file system"));
  }
}

TEST_F(ArchiveExplorerTest, TheNextRunBeginsInTheArchive) {
  Begin();
  fixture_.DoubleClickFile("box.zip");
  ASSERT_TRUE(WaitUntil([&] { return IsInArchive(); }));
  fixture_.DoubleClickFile("models");
  ASSERT_TRUE(fixture_.WaitForFile("teapot.obj"));
  fixture_.Close();
  fixture_.options().folder.clear();
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_TRUE(WaitUntil([&] { return IsInArchive(); })) << "a folder inside has no list that could be kept";
}

}  // namespace
