// The conversation through the entry point.
#include <gmock/gmock.h>

#include <array>
#include <string>
#include <vector>

#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/unexpected_boxes.h"
#include "tests/support/wait_until.h"

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using test_support::ExplorerFixture;

class ProtocolTest : public testing::Test {
 protected:
  void SetUp() override { fixture_.Start(); }

  char help_[16] = "c:\\help";
  ExplorerFixture fixture_;
};

TEST_F(ProtocolTest, ANullKeywordArrayIsDoneAtOnce) {
  std::uint32_t status = 77;
  fixture_.EntryPoint()(nullptr, nullptr, &status);
  EXPECT_EQ(status, 0U);
  EXPECT_THAT(fixture_.services().calls(), IsEmpty());
}

TEST_F(ProtocolTest, AnEmptyFirstKeywordEndsTheWalk) {
  EXPECT_EQ(fixture_.SayWithHost({{"", nullptr}, {"initialize", help_}}), 0U);
  EXPECT_EQ(fixture_.Say({{"", nullptr}, {"menu_item_clicked", nullptr}}), 0U);
  EXPECT_EQ(fixture_.services().CountCalls("GetHostVersion"), 0);
}

TEST_F(ProtocolTest, MenuItemClickedStopsTheWalk) {
  EXPECT_EQ(fixture_.SayWithHost({{"menu_item_clicked", nullptr}, {"initialize", help_}}), 1U);
  EXPECT_EQ(fixture_.services().CountCalls("GetHostVersion"), 0);
}

TEST_F(ProtocolTest, KeywordsAreComparedWholeAndByCase) {
  EXPECT_EQ(fixture_.Say({{"menu_item_clicked ", nullptr},
                          {"Menu_Item_Clicked", nullptr},
                          {"menu_item", nullptr},
                          {"nonsense", nullptr}}),
            0U);
}

TEST_F(ProtocolTest, ShutdownChangesNothingAndTheWalkGoesOn) {
  EXPECT_EQ(fixture_.Say({{"shutdown", nullptr}, {"menu_item_clicked", nullptr}}), 1U);
}

struct VersionCase {
  std::int16_t major;
  std::int16_t minor;
  std::int16_t release;
  bool accepted;
};

class HostVersionProtocolTest : public ProtocolTest, public testing::WithParamInterface<VersionCase> {};

TEST_P(HostVersionProtocolTest, DecidesOverTheStatus) {
  fixture_.workbench().facts().majorVersion = GetParam().major;
  fixture_.workbench().facts().minorVersion = GetParam().minor;
  fixture_.workbench().facts().release = GetParam().release;
  EXPECT_EQ(fixture_.SayWithHost({{"initialize", help_}}), GetParam().accepted ? 0U : 2U);
  EXPECT_THAT(fixture_.boxes().boxes(), SizeIs(GetParam().accepted ? 0 : 1));
}

INSTANTIATE_TEST_SUITE_P(Versions, HostVersionProtocolTest,
                         testing::Values(VersionCase{4, 1, 5, false}, VersionCase{4, 1, 6, true},
                                         VersionCase{4, 2, 0, true}, VersionCase{5, 0, 0, true},
                                         VersionCase{3, 9, 9, false}),
                         [](const auto& info) {
                           return "v" + std::to_string(info.param.major) + "_" + std::to_string(info.param.minor) +
                                  "_" + std::to_string(info.param.release);
                         });

TEST_F(ProtocolTest, RefusalNamesTheModuleAndWhereToGetHelp) {
  fixture_.workbench().facts().majorVersion = 3;
  fixture_.SayWithHost({{"initialize", help_}});
  ASSERT_THAT(fixture_.boxes().boxes(), SizeIs(1));
  const auto& box = fixture_.boxes().boxes()[0];
  std::array<char, 300> path = {};
  GetModuleFileNameA(GetModuleHandleA("ui_file_explorer.dll"), path.data(), 300);
  EXPECT_EQ(box.caption, "Wrong Version of Software");
  EXPECT_THAT(box.text, StartsWith("The system-level plug-in named '" + std::string(path.data()) +
                                   "' requires a newer version of software (v4.1.6 or newer).\n\n"));
  EXPECT_THAT(box.text, HasSubstr("support@"));
  EXPECT_THAT(box.buttons, ElementsAre(IDOK));
  EXPECT_EQ(box.owner, fixture_.workbench().window());
}

TEST_F(ProtocolTest, ARefusalDoesNotStopNewInstanceInTheSameCall) {
  fixture_.workbench().facts().majorVersion = 3;
  std::vector<void*> values;
  EXPECT_EQ(fixture_.SayWithHost({{"initialize", help_}, {"new_instance", nullptr}}, &values), 2U);
  EXPECT_NE(values[3], nullptr);
  EXPECT_NE(fixture_.ExplorerWindow(), nullptr);
  fixture_.SayWithHost({{"destroy_instance", nullptr}, {"shutdown", nullptr}});
}

TEST_F(ProtocolTest, HandlesAreRememberedForTheirOwnCallOnly) {
  fixture_.SayWithHost({{"nonsense", nullptr}});
  // Without the services of this call there is no version to accept.
  EXPECT_EQ(fixture_.Say({{"initialize", help_}}), 2U);
  EXPECT_EQ(fixture_.services().CountCalls("GetHostVersion"), 0);
}

TEST_F(ProtocolTest, APathForTheHistoryIsIgnoredWithoutAHistoryView) {
  EXPECT_EQ(fixture_.SayWithHost({{"addpathtohistorylist", help_}}), 0U);
}

TEST_F(ProtocolTest, ANullPathForTheHistoryIsIgnored) {
  ASSERT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  EXPECT_EQ(fixture_.SayWithHost({{"addpathtohistorylist", nullptr}}), 0U);
  EXPECT_EQ(SendMessageA(fixture_.PanelChild(32000), LB_GETCOUNT, 0, 0), 0);
  fixture_.SayWithHost({{"destroy_instance", nullptr}});
}

TEST_F(ProtocolTest, APathForTheHistoryIsShownInItsList) {
  ASSERT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}), 0U);
  char path[] = "c:\\models\\tea pot.3ds";
  EXPECT_EQ(fixture_.SayWithHost({{"addpathtohistorylist", path}}), 0U);
  EXPECT_EQ(SendMessageA(fixture_.PanelChild(32000), LB_GETCOUNT, 0, 0), 1);
  fixture_.SayWithHost({{"destroy_instance", nullptr}});
}

// Watches for the About dialog while it is modal, and tries Escape before OK.
struct AboutWatch {
  static inline HWND dialog = nullptr;
  static inline bool survivedEscape = false;
  static inline HWND owner = nullptr;

  static void CALLBACK OnTimer(HWND, UINT, UINT_PTR, DWORD) {
    const HWND found = FindWindowA(nullptr, "About File Explorer");
    if (found == nullptr) return;
    if (dialog == nullptr) {
      dialog = found;
      owner = GetWindow(found, GW_OWNER);
      SendMessageA(found, WM_COMMAND, IDCANCEL, 0);
      return;
    }
    survivedEscape = IsWindow(dialog) != FALSE;
    SendMessageA(found, WM_COMMAND, IDOK, 0);
  }
};

TEST_F(ProtocolTest, TheAboutDialogIsOwnedByTheHostAndClosesOnOkOnly) {
  AboutWatch::dialog = nullptr;
  const test_support::ExpectsBoxes expects;
  const UINT_PTR timer = SetTimer(nullptr, 0, 20, &AboutWatch::OnTimer);
  EXPECT_EQ(fixture_.SayWithHost({{"show_about_dialog", nullptr}}), 0U);
  KillTimer(nullptr, timer);
  ASSERT_NE(AboutWatch::dialog, nullptr);
  EXPECT_TRUE(AboutWatch::survivedEscape);
  EXPECT_EQ(AboutWatch::owner, fixture_.workbench().window());
  EXPECT_FALSE(IsWindow(AboutWatch::dialog));
}

TEST_F(ProtocolTest, NewInstanceGivesItsHandleAlsoWhenTheHostWantsNoExplorer) {
  fixture_.workbench().facts().flags |= host::kHostFlagNoExplorer;
  std::vector<void*> values;
  EXPECT_EQ(fixture_.SayWithHost({{"new_instance", nullptr}}, &values), 0U);
  EXPECT_NE(values[2], nullptr);
  EXPECT_EQ(fixture_.services().CountCalls("CreateUtilityPanel"), 0);
  EXPECT_EQ(fixture_.services().CountCalls("CreateDockedWindow"), 0);
  fixture_.SayWithHost({{"destroy_instance", nullptr}});
}

TEST_F(ProtocolTest, TheModulesVersionIsInTheRegistry) {
  fixture_.EntryPoint();
  std::array<char, 64> version = {};
  DWORD size = static_cast<DWORD>(version.size());
  ASSERT_EQ(RegGetValueA(HKEY_CURRENT_USER, "SOFTWARE\\Halvo Software, Inc.\\Halvo-File-Explorer-Dll", "Version",
                         RRF_RT_REG_SZ, nullptr, version.data(), &size),
            ERROR_SUCCESS);
  EXPECT_STREQ(version.data(), "1.0.0.0");
}

}  // namespace
