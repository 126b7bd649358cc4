// How an instance is created and taken down.
#include <gmock/gmock.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "src/host/vc64_tx.h"
#include "tests/support/explorer/blocked_class.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/scripted_control.h"
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
  // Links are then kept under their bare names, in the current directory: that is the test's own.
  std::array<char, MAX_PATH> before = {};
  GetCurrentDirectoryA(MAX_PATH, before.data());
  SetCurrentDirectoryA(fixture_.directory().narrow().c_str());
  Create();
  const HWND tree = fixture_.PanelChild(104);
  ASSERT_NE(tree, nullptr);
  Destroy();
  SetCurrentDirectoryA(before.data());
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

TEST_F(InstanceTest, AMissingFolderTreeLeavesTheFileViewAndIsToldAtEachTry) {
  const BlockedClass folderView(test_support::kFolderViewClassId);
  Create();
  ASSERT_GE(folderView.attempts(), 1);
  EXPECT_EQ(CountBoxes("Shell Viewing Error"), 1U);
  EXPECT_NE(fixture_.FileList(), nullptr);
  EXPECT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  EXPECT_GE(folderView.attempts(), 2) << "the next show tries again";
  EXPECT_EQ(CountBoxes("Shell Viewing Error"), 2U);
  EXPECT_EQ(fixture_.SayWithHost({{"showhistorypanel", nullptr}}), 0U);
  EXPECT_EQ(CountBoxes("Shell Viewing Error"), 3U);
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

TEST_F(InstanceTest, APathBoxThatRefusesAPropertyEndsTheFilePaneAndIsReported) {
  const IID comboDispatch = {0x20B7F96F, 0x5D6D, 0x436C, {0x8E, 0x1B, 0x2C, 0x69, 0x52, 0x8C, 0x19, 0xBE}};
  const IID comboEvents = {0x10EAEFBF, 0xC1E8, 0x43E0, {0xA3, 0xFF, 0xF1, 0xEA, 0x28, 0x83, 0x92, 0x0D}};
  test_support::ControlScript script;
  script.dispatchId = comboDispatch;
  script.eventId = comboEvents;
  script.members[12] = [](WORD, DISPPARAMS*, VARIANT*) { return E_FAIL; };
  CoInitialize(nullptr);
  {
    test_support::ScriptedClass combo(test_support::kComboViewClassId, script);
    std::vector<void*> values;
    fixture_.Start();
    EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}, {"menu_item_clicked", nullptr}}, &values), 1U);
    EXPECT_NE(values[2], nullptr);
    EXPECT_EQ(combo.created, 1);
    EXPECT_EQ(combo.alive, 0);
    EXPECT_EQ(CountBoxes("Fatal COM Error"), 1U);
    EXPECT_NE(fixture_.ExplorerWindow(), nullptr);
    EXPECT_EQ(fixture_.PanelChild(32000), nullptr);
    Destroy();
    EXPECT_EQ(fixture_.Panel(), nullptr);
  }
  CoUninitialize();
}

test_support::ControlScript FolderTreeScript() {
  test_support::ControlScript script;
  script.dispatchId = {0x5B17B3F2, 0x89DA, 0x4045, {0x8D, 0xE1, 0xC4, 0xBA, 0xEE, 0x6F, 0xCC, 0x46}};
  script.eventId = {0x6755F807, 0x572E, 0x4D81, {0x97, 0x61, 0x35, 0x48, 0xE3, 0x41, 0xCF, 0x55}};
  return script;
}

HRESULT Refuse(WORD, DISPPARAMS*, VARIANT*) { return E_FAIL; }

TEST_F(InstanceTest, AFolderTreeThatRefusesAnOptionGetsAllTheOthersAndKeepsItsToolbars) {
  fixture_.directory().AddFile(L"files\\here.obj");
  test_support::ControlScript script = FolderTreeScript();
  script.members[4] = Refuse;
  CoInitialize(nullptr);
  {
    test_support::ScriptedClass tree(test_support::kFolderViewClassId, script);
    Create();
    EXPECT_EQ(tree.created, 1);
    EXPECT_EQ(tree.alive, 1);
    EXPECT_THAT(tree.log, testing::IsSupersetOf({"put 4 bool 0", "put 5 bool -1", "put 22 bool -1"}));
    for (const int toolbar : {32001, 32002, 32003, 32004}) EXPECT_NE(fixture_.PanelChild(toolbar), nullptr);
    EXPECT_TRUE(fixture_.WaitForFile("here.obj")) << "the start directory is applied all the same";
    fixture_.SayWithHost({{"showhistorypanel", nullptr}});
    EXPECT_EQ(tree.created, 1);
    Destroy();
    EXPECT_EQ(tree.alive, 0);
  }
  CoUninitialize();
}

TEST_F(InstanceTest, AFolderTreeThatRefusesWhatEveryTreeNeedsCantBeMade) {
  test_support::ControlScript script = FolderTreeScript();
  script.members[13] = Refuse;
  CoInitialize(nullptr);
  {
    test_support::ScriptedClass tree(test_support::kFolderViewClassId, script);
    Create();
    EXPECT_GE(tree.created, 1);
    EXPECT_EQ(tree.alive, 0);
    EXPECT_EQ(CountBoxes("Shell Viewing Error"), 1U);
    EXPECT_EQ(fixture_.PanelChild(32001), nullptr);
    EXPECT_NE(fixture_.FileList(), nullptr);
  }
  fixture_.SayWithHost({{"showhistorypanel", nullptr}});
  EXPECT_NE(fixture_.FolderTree(), nullptr);
  EXPECT_NE(fixture_.PanelChild(32002), nullptr);
  Destroy();
  CoUninitialize();
}

// A tree that stands in for the real one, in the running explorer.
class StandInTreeTest : public InstanceTest {
 protected:
  static constexpr DISPID kSelectedFolder = 7;

  void SetUp() override {
    CoInitialize(nullptr);
    tree_ = std::make_unique<test_support::ScriptedClass>(test_support::kFolderViewClassId, FolderTreeScript());
    fixture_.directory().AddFile(L"files\\below\\inner.obj");
    Create();
    ASSERT_TRUE(fixture_.WaitForFile("below"));
  }
  void TearDown() override {
    fixture_.Close();
    tree_.reset();
    CoUninitialize();
  }
  void GoBelow() {
    fixture_.DoubleClickFile("below");
    ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  }

  std::unique_ptr<test_support::ScriptedClass> tree_;
};

TEST_F(StandInTreeTest, ATreeThatFailsDuringAFolderChangeCostsNothingElse) {
  const std::string link = fixture_.UserDirectory() + "\\ExploreCurrentDirectory.lnk";
  DeleteFileA(link.c_str());
  tree_->script.members[kSelectedFolder] = Refuse;
  SetWindowTextA(fixture_.SelectEdit(), "tree*");
  GoBelow();
  EXPECT_TRUE(test_support::WaitUntil([&] { return test_support::TextOf(fixture_.SelectEdit()).empty(); }));
  EXPECT_TRUE(UserFileExists("ExploreCurrentDirectory.lnk"));
  Destroy();
}

TEST_F(StandInTreeTest, ATreeThatEndsTheInstanceDuringAFolderChangeIsNoHarm) {
  bool ended = false;
  tree_->script.members[kSelectedFolder] = [&](WORD, DISPPARAMS*, VARIANT*) {
    if (!std::exchange(ended, true)) Destroy();
    return E_FAIL;
  };
  fixture_.DoubleClickFile("below");
  EXPECT_TRUE(test_support::WaitUntil([&] { return ended; }));
  fixture_.workbench().Pump();
  EXPECT_EQ(fixture_.ExplorerWindow(), nullptr);
  EXPECT_EQ(tree_->alive, 0);
}

TEST_F(InstanceTest, AFolderTreeThatDispatchesMessagesWhileItIsMadeIsMadeOnce) {
  test_support::ControlScript script = FolderTreeScript();
  CoInitialize(nullptr);
  {
    test_support::ScriptedClass tree(test_support::kFolderViewClassId, script);
    tree.script.members[13] = [this](WORD, DISPPARAMS*, VARIANT*) {
      SendMessageA(fixture_.Panel(), WM_SHOWWINDOW, TRUE, 0);
      return S_OK;
    };
    Create();
    EXPECT_EQ(tree.created, 1);
    EXPECT_NE(fixture_.PanelChild(32001), nullptr);
    Destroy();
    EXPECT_EQ(tree.alive, 0);
  }
  CoUninitialize();
}

TEST_F(InstanceTest, AWindowThatWasNeverPlacedGetsNineTenthsOfHalfTheHostsHeight) {
  fixture_.Start();
  std::string size;
  std::string position;
  fixture_.services().Override<host::op::GetStoredRectangle>([](const char* guid, RECT* rect) {
    EXPECT_STREQ(guid, "{D7B2E549-0DDC-47e7-81D5-B21C30B4943A}");
    *rect = {10, 20, 809, 320};
    return 1;
  });
  fixture_.services().Override<host::op::SetWindowSize>([&](HWND, int width, int height, int code) {
    size = std::to_string(width) + " " + std::to_string(height) + " " + std::to_string(code);
  });
  fixture_.services().Override<host::op::SetWindowPosition>([&](HWND, int left, int top) {
    position = std::to_string(left) + " " + std::to_string(top);
  });
  fixture_.SayWithHost({{"new_instance", nullptr}});
  EXPECT_EQ(size, "800 135 3");
  EXPECT_EQ(position, "10 20");
  Destroy();
}

TEST_F(InstanceTest, AWindowThatTheHostPlacedIsLeftThere) {
  fixture_.Start();
  fixture_.services().Override<host::op::CreateDockedWindow>(
      [](const char*, HWND, const char*, const char*, auto, auto, auto, auto, auto, auto, auto, auto,
         host::DockedWindowPlacement* placement) {
        placement->hasPlacement = 1;
        return 1;
      });
  fixture_.SayWithHost({{"new_instance", nullptr}});
  EXPECT_EQ(fixture_.services().CountCalls("SetWindowSize"), 0);
  EXPECT_EQ(fixture_.services().CountCalls("SetWindowPosition"), 0);
  Destroy();
}

TEST_F(InstanceTest, TheHostsDefaultMethodIsAskedForWhenTheUserWantsIt) {
  fixture_.directory().AddFile(L"profile.ini", "[Explore]\nNewWindowCreationMethod=7\n");
  Create();
  EXPECT_EQ(fixture_.services().CountCalls("GetDefaultCreationMethod"), 1);
  Destroy();
}

TEST_F(InstanceTest, WhileTheHostShowsAPopUpForTheFirstTimeItsNotificationsWait) {
  fixture_.Start();
  const UINT message = host::Call<host::op::GetNotificationMessage>(fixture_.services().services());
  LRESULT toggled = -1;
  LRESULT erased = -1;
  fixture_.services().Override<host::op::GetWindowState>([](HWND) { return host::kStateExpanded; });
  fixture_.services().Override<host::op::ShowManagedWindow>([&](HWND window, std::int32_t) {
    toggled = SendMessageA(window, message, host::kNotifyToggle, 0);
    const HDC dc = GetDC(window);
    erased = SendMessageA(window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc), 0);
    ReleaseDC(window, dc);
  });
  fixture_.SayWithHost({{"new_instance", nullptr}});
  EXPECT_EQ(toggled, 0);
  EXPECT_EQ(erased, 0);
  const HWND window = fixture_.ExplorerWindow();
  EXPECT_EQ(SendMessageA(window, message, host::kNotifyToggle, 0), 1);
  Destroy();
}

TEST_F(InstanceTest, AHostThatDestroysTheWindowItselfCanStillTearDown) {
  Create();
  DestroyWindow(fixture_.ExplorerWindow());
  fixture_.workbench().Pump();
  EXPECT_EQ(fixture_.SayWithHost({{"showhistorypanel", nullptr}}), 0U);
  Destroy();
  EXPECT_TRUE(UserFileExists("favorites.dat"));
}

TEST_F(InstanceTest, AfterTeardownTheHostIsNotCalledAnyMore) {
  Create();
  Destroy();
  fixture_.services().ClearCalls();
  EXPECT_EQ(fixture_.Say({{"showhistorypanel", nullptr}}), 0U);
  EXPECT_THAT(fixture_.services().calls(), IsEmpty());
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
