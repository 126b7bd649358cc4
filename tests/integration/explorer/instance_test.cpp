// How an instance is created and taken down.
#include <gmock/gmock.h>

#include <algorithm>
#include <string>
#include <vector>

#include "src/host/vc64_tx.h"
#include "tests/support/explorer/blocked_class.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using test_support::BlockedClass;

constexpr char kViewingError[] =
    "An error was encountered when the File Explorer plug-in browser was being initialized (the shell controls could "
    "not be initialized).\n\nBrowsing using the Windows shell will not be possible on your computer.";

class InstanceTest : public testing::Test {
 protected:
  void Create() {
    fixture_.Start();
    created_ = fixture_.SayWithHost({{"new_instance", nullptr}});
    fixture_.workbench().Pump();
  }
  void Destroy() { fixture_.SayWithHost({{"destroy_instance", nullptr}, {"shutdown", nullptr}}); }

  // Names of the recorded calls, without those that are only questions.
  std::vector<std::string> Actions() {
    std::vector<std::string> names;
    for (const workbench::ServiceCall& call : fixture_.services().calls()) {
      if (call.operation != "GetMainWindow" && call.operation != "GetProfileFileName" &&
          call.operation != "GetNotificationMessage" && call.operation != "RedrawBracket") {
        names.push_back(call.operation);
      }
    }
    return names;
  }

  bool UserFileExists(std::string_view name) {
    return Tx_File_Exists((fixture_.UserDirectory() + "\\" + std::string(name)).c_str()) != 0;
  }

  size_t CountBoxes(const std::string& caption) {
    return static_cast<size_t>(std::count_if(fixture_.boxes().boxes().begin(), fixture_.boxes().boxes().end(),
                                             [&](const auto& box) { return box.caption == caption; }));
  }

  test_support::ExplorerFixture fixture_;
  std::uint32_t created_ = 77;
};

TEST_F(InstanceTest, RegistersPageAndWindowInTheFixedOrder) {
  Create();
  const std::vector<std::string> actions = Actions();
  const auto at = [&](const char* name) { return std::find(actions.begin(), actions.end(), name) - actions.begin(); };
  ASSERT_GE(actions.size(), 4U);
  EXPECT_EQ(actions[0], "GetHostFlags");
  EXPECT_EQ(actions[1], "CreateUtilityPanel");
  EXPECT_EQ(actions[2], "CreateDockedWindow");
  EXPECT_LT(at("CreateDockedWindow"), at("SetWindowSize"));
  EXPECT_LT(at("SetWindowSize"), at("SetWindowPosition"));
  EXPECT_LT(at("SetWindowPosition"), at("ShowManagedWindow"));
  Destroy();
}

TEST_F(InstanceTest, NamesItselfToTheHostAsStated) {
  Create();
  const std::string panel = fixture_.services().LastArguments("CreateUtilityPanel");
  EXPECT_THAT(panel, HasSubstr("Utility"));
  EXPECT_THAT(panel, HasSubstr("{ECA27FF8-F0C2-4d3c-AA22-C933EDBD0E5B}"));
  EXPECT_THAT(panel, HasSubstr("File Explorer"));
  const std::string window = fixture_.services().LastArguments("CreateDockedWindow");
  EXPECT_THAT(window, HasSubstr("{059BC39E-3113-453e-B539-A2AD04DD259E}"));
  EXPECT_THAT(window, HasSubstr("File Explorer"));
  Destroy();
}

TEST_F(InstanceTest, MakesHistoryAndFavouritesInThePanel) {
  Create();
  EXPECT_NE(fixture_.PanelChild(32000), nullptr);
  EXPECT_NE(fixture_.PanelChild(104), nullptr);
  Destroy();
}

TEST_F(InstanceTest, TheWindowCreationSettingsReachTheHost) {
  fixture_.directory().AddFile(L"profile.ini", "[Explore]\nNewWindowCreationMethod=0\nNewWindowDockingPosition=1\n");
  Create();
  EXPECT_THAT(fixture_.services().LastArguments("CreateDockedWindow"), HasSubstr("File Explorer\", 0, 1,"));
  Destroy();
}

TEST_F(InstanceTest, AHostThatRefusesTheWindowGetsAMessageAndNoOtherViews) {
  fixture_.Start();
  fixture_.services().Override<host::op::CreateDockedWindow>([](auto...) { return 0; });
  EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  ASSERT_EQ(CountBoxes("Shell Viewing Error"), 1U);
  const auto& box = fixture_.boxes().boxes()[0];
  EXPECT_EQ(box.text, kViewingError);
  EXPECT_THAT(box.buttons, ElementsAre(IDOK));
  EXPECT_EQ(box.owner, fixture_.workbench().window());
  EXPECT_EQ(fixture_.ExplorerWindow(), nullptr);
  EXPECT_EQ(fixture_.PanelChild(32000), nullptr);
  EXPECT_EQ(fixture_.PanelChild(104), nullptr);
  // Teardown takes down what there is, and the page goes in any case.
  fixture_.services().ClearCalls();
  Destroy();
  EXPECT_EQ(fixture_.services().CountCalls("RemoveUtilityPanel"), 1);
  EXPECT_EQ(fixture_.Panel(), nullptr);
}

TEST_F(InstanceTest, AHostWithoutAWindowManagerIsAHostThatRefuses) {
  fixture_.Start();
  fixture_.services().Remove<host::op::CreateDockedWindow>();
  EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  EXPECT_EQ(CountBoxes("Shell Viewing Error"), 1U);
  Destroy();
}

TEST_F(InstanceTest, AHostWithoutAPanelStillGetsItsWindow) {
  fixture_.Start();
  fixture_.services().Override<host::op::CreateUtilityPanel>([](auto...) { return HWND(nullptr); });
  EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  EXPECT_NE(fixture_.ExplorerWindow(), nullptr);
  EXPECT_EQ(fixture_.SayWithHost({{"showhistorypanel", nullptr}}), 0U);
  Destroy();
}

TEST_F(InstanceTest, TeardownPutsThePanelsProcedureBackAndRemovesThePage) {
  Create();
  const HWND panel = fixture_.Panel();
  const auto subclassed = GetWindowLongPtrA(panel, GWLP_WNDPROC);
  LONG_PTR atRemoval = 0;
  fixture_.services().Override<host::op::RemoveUtilityPanel>([&](const char*) {
    atRemoval = GetWindowLongPtrA(panel, GWLP_WNDPROC);
  });
  Destroy();
  EXPECT_NE(atRemoval, 0);
  EXPECT_NE(atRemoval, subclassed);
  fixture_.services().ClearOverride<host::op::RemoveUtilityPanel>();
}

TEST_F(InstanceTest, TeardownSavesWhatTheUserHas) {
  Create();
  Destroy();
  EXPECT_TRUE(UserFileExists("history.dat"));
  EXPECT_TRUE(UserFileExists("favorites.dat"));
  EXPECT_EQ(GetPrivateProfileIntA("Explore", "curr_fileview_display_mode", -1, fixture_.ProfilePath().c_str()), 3);
}

TEST_F(InstanceTest, WithoutAPerUserDirectoryNothingIsSavedAndTheViewsGoAllTheSame) {
  fixture_.directory().AddFile(L"user", "a file where the directory should be");
  Create();
  const HWND tree = fixture_.PanelChild(104);
  ASSERT_NE(tree, nullptr);
  Destroy();
  EXPECT_FALSE(IsWindow(tree));
  EXPECT_FALSE(UserFileExists("favorites.dat"));
}

TEST_F(InstanceTest, APanelThatWasNeverShownHasNoSelectorToolbarsToDestroy) {
  fixture_.options().visible = false;
  fixture_.Start();
  // A host that never shows the page.
  fixture_.services().Override<host::op::CreateUtilityPanel>([&](auto...) {
    return CreateWindowExA(0, "STATIC", "", WS_CHILD, 0, 0, 10, 10, fixture_.workbench().window(), nullptr, nullptr,
                           nullptr);
  });
  fixture_.services().Override<host::op::ShowUtilityPanel>([](const char*) {});
  EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  EXPECT_EQ(fixture_.FolderTree(), nullptr);
  Destroy();
  EXPECT_EQ(fixture_.services().CountCalls("RemoveUtilityPanel"), 1);
}

TEST_F(InstanceTest, AMissingFolderTreeLeavesTheFileViewAndIsToldOnce) {
  const BlockedClass folderView(test_support::kFolderViewClassId);
  Create();
  ASSERT_GE(folderView.attempts(), 1);
  EXPECT_EQ(CountBoxes("Shell Viewing Error"), 1U);
  EXPECT_NE(fixture_.FileList(), nullptr);
  EXPECT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_GE(folderView.attempts(), 2) << "the next show tries again";
  EXPECT_EQ(CountBoxes("Shell Viewing Error"), 1U);
  Destroy();
}

TEST_F(InstanceTest, AFolderTreeThatCanBeMadeTheNextTimeIsMadeThen) {
  {
    const BlockedClass folderView(test_support::kFolderViewClassId);
    Create();
    EXPECT_EQ(fixture_.FolderTree(), nullptr);
  }
  EXPECT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_NE(fixture_.FolderTree(), nullptr);
  Destroy();
}

TEST_F(InstanceTest, AMissingPathBoxEndsTheFilePaneWithTheControlsMessage) {
  const BlockedClass combo(test_support::kComboViewClassId);
  Create();
  ASSERT_GE(CountBoxes("ActiveX Error"), 1U);
  EXPECT_THAT(fixture_.boxes().boxes()[0].text, AllOf(HasSubstr("Could not create the Shell ComboView Control control "
                                                                "(filename = 'ssware_shellcombo64.ocx', ClassID = "
                                                                "'{1451FB53-9444-4FB0-B0AC-44F56EDBC332}')."),
                                                      HasSubstr("this page correctly references it.")));
  EXPECT_EQ(fixture_.FileList(), nullptr);
  EXPECT_EQ(fixture_.PanelChild(32000), nullptr) << "creation stops at the file pane";
  EXPECT_NE(fixture_.CommandToolbar(), nullptr);
  Destroy();
}

TEST_F(InstanceTest, AMissingFileViewLeavesThePathBox) {
  const BlockedClass fileView(test_support::kFileViewClassId);
  Create();
  EXPECT_EQ(CountBoxes("ActiveX Error"), 1U);
  EXPECT_EQ(fixture_.FileList(), nullptr);
  EXPECT_NE(fixture_.PanelChild(32000), nullptr);
  Destroy();
}

TEST_F(InstanceTest, DestroyWithoutAnInstanceDoesNoHarm) {
  fixture_.Start();
  Destroy();
  Destroy();
  EXPECT_THAT(fixture_.boxes().boxes(), IsEmpty());
}

TEST_F(InstanceTest, TheZipHandlerIsRegisteredAsAViewer) {
  Create();
  const char* fileTypes = nullptr;
  const char* name = nullptr;
  TxToken enabled = 0;
  TxToken function = 0;
  std::int64_t type = 0;
  TxVerifyHeaderCallback header = nullptr;
  TxExecuteCallback execute = nullptr;
  ASSERT_TRUE(Tx_Inquire_FileFormatHandler(
      "{693069FB-E6CF-4837-865E-A0B5396B39D0}", Tx_Inquire_Token("filetypes"), &fileTypes,
      Tx_Inquire_Token("descriptivename"), &name, Tx_Inquire_Token("enabled"), &enabled, Tx_Inquire_Token("function"),
      &function, Tx_Inquire_Token("type"), &type, Tx_Inquire_Token("verifyheadercallback"), &header,
      Tx_Inquire_Token("executecallback"), &execute, 0));
  EXPECT_STREQ(fileTypes, ".zip");
  EXPECT_STREQ(name, "ZIP Archive");
  EXPECT_EQ(enabled, Tx_Inquire_Token("on"));
  EXPECT_EQ(function, Tx_Inquire_Token("viewer"));
  EXPECT_EQ(type, 32);
  ASSERT_NE(header, nullptr);
  EXPECT_EQ(header(), -5);
  ASSERT_NE(execute, nullptr);
  fixture_.services().ClearCalls();
  EXPECT_EQ(execute(2, "{693069FB-E6CF-4837-865E-A0B5396B39D0}", "c:\\a.zip"), 0);
  EXPECT_EQ(execute(1, "{693069fb-e6cf-4837-865e-a0b5396b39d0}", "c:\\a.zip"), 0);
  EXPECT_EQ(fixture_.services().CountCalls("ShowManagedWindow"), 0);
  Destroy();
}

}  // namespace
