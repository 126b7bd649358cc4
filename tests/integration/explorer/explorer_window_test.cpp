// The docked explorer window: its procedure and its panes.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <array>
#include <string>

#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace {

using testing::ElementsAre;
using testing::SizeIs;
using testing::StartsWith;

class ExplorerWindowTest : public testing::Test {
 protected:
  void SetUp() override {
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    window_ = fixture_.ExplorerWindow();
    ASSERT_NE(window_, nullptr);
    message_ = host::Call<host::op::GetNotificationMessage>(fixture_.services().services());
    fixture_.services().ClearCalls();
  }

  LRESULT Notify(int subCode) { return SendMessageA(window_, message_, static_cast<WPARAM>(subCode), 0); }

  void SetState(std::int32_t state) {
    state_ = state;
    fixture_.services().Override<host::op::GetWindowState>([this](HWND) { return state_; });
    fixture_.services().Override<host::op::SetWindowState>([this](HWND, std::int32_t state) { state_ = state; });
  }

  test_support::ExplorerFixture fixture_;
  HWND window_ = nullptr;
  UINT message_ = 0;
  std::int32_t state_ = 0;
};

TEST_F(ExplorerWindowTest, ItsClassIsAsTheHostExpects) {
  WNDCLASSEXA info = {};
  info.cbSize = sizeof(info);
  ASSERT_TRUE(GetClassInfoExA(GetModuleHandleA("ui_file_explorer.dll"), "HalvoFileViewClass", &info));
  EXPECT_EQ(info.style, static_cast<UINT>(CS_HREDRAW | CS_VREDRAW));
  EXPECT_EQ(info.cbClsExtra, 8);
  EXPECT_EQ(info.cbWndExtra, 8);
  EXPECT_EQ(info.hIcon, nullptr);
  EXPECT_EQ(info.hCursor, nullptr);
  EXPECT_EQ(info.hbrBackground, nullptr);
  EXPECT_EQ(info.lpszMenuName, nullptr);
}

TEST_F(ExplorerWindowTest, ToggleChangesExpandedAndCollapsed) {
  SetState(host::kStateExpanded);
  EXPECT_EQ(Notify(host::kNotifyToggle), 1);
  EXPECT_EQ(state_, host::kStateCollapsed);
  EXPECT_EQ(Notify(host::kNotifyToggle), 1);
  EXPECT_EQ(state_, host::kStateExpanded);
}

TEST_F(ExplorerWindowTest, ToggleLeavesOtherStatesAlone) {
  for (const std::int32_t state : {0, 1, 4, -1}) {
    SetState(state);
    EXPECT_EQ(Notify(host::kNotifyToggle), 0);
    EXPECT_EQ(state_, state);
  }
}

TEST_F(ExplorerWindowTest, AllowsClosingWhenTheHostDoes) {
  fixture_.workbench().facts().secondFlags = host::kSecondFlagCloseAllowed;
  EXPECT_EQ(Notify(host::kNotifyClose), 0);
  EXPECT_THAT(fixture_.boxes().boxes(), SizeIs(0));
}

TEST_F(ExplorerWindowTest, RefusesClosingWithAMessageOtherwise) {
  fixture_.workbench().facts().secondFlags = 0;
  EXPECT_EQ(Notify(host::kNotifyClose), 1);
  ASSERT_THAT(fixture_.boxes().boxes(), SizeIs(1));
  const auto& box = fixture_.boxes().boxes()[0];
  EXPECT_EQ(box.text, "The file explorer window is not allowed to be closed.");
  EXPECT_EQ(box.caption, "Warning");
  EXPECT_THAT(box.buttons, ElementsAre(IDOK));
  EXPECT_EQ(box.icon, 0U);
  EXPECT_EQ(box.owner, fixture_.workbench().window());
  EXPECT_TRUE(IsWindow(window_));
}

TEST_F(ExplorerWindowTest, DockingNotificationsBringThePanelToTheFront) {
  for (const int subCode : {8, 10, 12, 14, 18}) {
    fixture_.services().ClearCalls();
    Notify(subCode);
    EXPECT_EQ(fixture_.services().CountCalls("ShowUtilityPanel"), 1) << subCode;
  }
  for (const int subCode : {0, 2, 9, 23}) {
    fixture_.services().ClearCalls();
    fixture_.workbench().facts().secondFlags = host::kSecondFlagCloseAllowed;
    Notify(subCode);
    EXPECT_EQ(fixture_.services().CountCalls("ShowUtilityPanel"), 0) << subCode;
  }
}

TEST_F(ExplorerWindowTest, MovingAndStateNotificationsPlaceThePanesAgain) {
  for (const int subCode : {10, 18, 23}) {
    const HWND list = GetParent(fixture_.FileList());
    SetWindowPos(list, nullptr, 0, 0, 10, 10, SWP_NOMOVE | SWP_NOZORDER);
    Notify(subCode);
    RECT bounds = {};
    GetWindowRect(list, &bounds);
    EXPECT_GT(bounds.right - bounds.left, 10) << subCode;
  }
}

TEST_F(ExplorerWindowTest, SystemCommandsAreSwallowedDeliberately) {
  RECT before = {};
  GetWindowRect(window_, &before);
  for (const WPARAM command : {SC_SIZE, SC_MINIMIZE, SC_CLOSE, SC_MOVE, SC_MAXIMIZE, SC_RESTORE}) {
    EXPECT_EQ(SendMessageA(window_, WM_SYSCOMMAND, command, 0), 0);
  }
  RECT after = {};
  GetWindowRect(window_, &after);
  EXPECT_TRUE(EqualRect(&before, &after));
  EXPECT_TRUE(IsWindowVisible(window_));
}

TEST_F(ExplorerWindowTest, PrivateMessagesAndCommandsWithoutAHandlerGiveZero) {
  EXPECT_EQ(SendMessageA(window_, 0x414, 0, 0), 0);
  EXPECT_EQ(SendMessageA(window_, 0x418, 0, 0), 0);
  EXPECT_EQ(SendMessageA(window_, WM_SHOWWINDOW, TRUE, 0), 0);
  for (const WPARAM command : {98, 100, 112, 128, 5000}) EXPECT_EQ(SendMessageA(window_, WM_COMMAND, command, 0), 0);
}

TEST_F(ExplorerWindowTest, TooltipsComeFromTheStringTable) {
  NMTTDISPINFOA request = {};
  request.hdr.code = static_cast<UINT>(TTN_GETDISPINFOA);
  request.hdr.idFrom = 117;
  SendMessageA(window_, WM_NOTIFY, 117, reinterpret_cast<LPARAM>(&request));
  EXPECT_STREQ(request.lpszText, "Thumb Nail Mode");
  request.hdr.idFrom = 128;
  SendMessageA(window_, WM_NOTIFY, 128, reinterpret_cast<LPARAM>(&request));
  EXPECT_STREQ(request.lpszText, "");
}

TEST_F(ExplorerWindowTest, TheSelectBoxExplainsItsPatterns) {
  NMTTDISPINFOA request = {};
  request.hdr.code = static_cast<UINT>(TTN_GETDISPINFOA);
  request.hdr.idFrom = reinterpret_cast<UINT_PTR>(fixture_.SelectEdit());
  request.uFlags = TTF_IDISHWND;
  SendMessageA(window_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&request));
  EXPECT_THAT(request.lpszText, StartsWith("Select items based on a search pattern:\n\nabc = "));
  const std::string text = request.lpszText;
  EXPECT_EQ(text.substr(text.rfind('\n') + 1), R"([a-z\] = Matches a, b, c, \)");
}

TEST_F(ExplorerWindowTest, TheSelectBoxExplainsItsPatternsInWideTextToo) {
  NMTTDISPINFOW request = {};
  request.hdr.code = static_cast<UINT>(TTN_GETDISPINFOW);
  request.hdr.idFrom = reinterpret_cast<UINT_PTR>(fixture_.SelectEdit());
  request.uFlags = TTF_IDISHWND;
  SendMessageA(window_, WM_NOTIFY, 0, reinterpret_cast<LPARAM>(&request));
  ASSERT_NE(request.lpszText, nullptr);
  const std::wstring text = request.lpszText;
  EXPECT_EQ(text.find(L"Select items based on a search pattern:\n\nabc = "), 0U);
  EXPECT_EQ(text.substr(text.rfind(L'\n') + 1), LR"([a-z\] = Matches a, b, c, \)");
}

TEST_F(ExplorerWindowTest, ToolbarComboBoxAndFileViewStandBelowEachOther) {
  RECT toolbar = {};
  RECT combo = {};
  RECT list = {};
  RECT client = {};
  GetClientRect(window_, &client);
  MapWindowPoints(window_, nullptr, reinterpret_cast<POINT*>(&client), 2);
  GetWindowRect(fixture_.CommandToolbar(), &toolbar);
  GetWindowRect(GetParent(fixture_.FileList()), &list);
  const HWND comboBox = test_support::FindDescendant(window_, "ComboBoxEx32") != nullptr
                            ? test_support::FindDescendant(window_, "ComboBoxEx32")
                            : test_support::FindDescendant(window_, "ComboBox");
  ASSERT_NE(comboBox, nullptr);
  GetWindowRect(comboBox, &combo);
  EXPECT_EQ(toolbar.top, client.top);
  EXPECT_EQ(combo.top, toolbar.bottom);
  EXPECT_EQ(list.top, combo.bottom);
  EXPECT_EQ(list.bottom, client.bottom);
  EXPECT_EQ(list.right, client.right);
}

TEST_F(ExplorerWindowTest, MovesOfThePanesAreBracketed) {
  fixture_.services().ClearCalls();
  RECT client = {};
  GetClientRect(window_, &client);
  SendMessageA(window_, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.right, client.bottom));
  EXPECT_EQ(fixture_.services().CountCalls("RedrawBracket"), 3);  // before, after the combo box, after the file view
}

TEST_F(ExplorerWindowTest, AFreshProfileShowsDetailsWithTheirButtonChecked) {
  EXPECT_TRUE(SendMessageA(fixture_.CommandToolbar(), TB_ISBUTTONCHECKED, 113, 0));
  EXPECT_EQ(SendMessageA(fixture_.FileList(), LVM_GETVIEW, 0, 0), LV_VIEW_DETAILS);
}

struct ModeCase {
  int command;
  int saved;
};

TEST_F(ExplorerWindowTest, DisplayModesCheckTheirButtonsAndAreSaved) {
  for (const ModeCase& mode : {ModeCase{115, 0}, ModeCase{116, 1}, ModeCase{114, 2}, ModeCase{117, 4}, ModeCase{113, 3}}) {
    SendMessageA(window_, WM_COMMAND, static_cast<WPARAM>(mode.command), 0);
    for (int button = 113; button <= 117; ++button) {
      EXPECT_EQ(SendMessageA(fixture_.CommandToolbar(), TB_ISBUTTONCHECKED, static_cast<WPARAM>(button), 0) != 0,
                button == mode.command);
    }
  }
  SendMessageA(window_, WM_COMMAND, 117, 0);
  fixture_.Close();
  EXPECT_EQ(GetPrivateProfileIntA("Explore", "curr_fileview_display_mode", -1, fixture_.ProfilePath().c_str()), 4);
}

TEST(ExplorerWindowModeTest, AModeOutOfRangeHasNoButtonAndIsKept) {
  test_support::ExplorerFixture fixture;
  fixture.directory().AddFile(L"profile.ini", "[Explore]\ncurr_fileview_display_mode=7\n");
  fixture.Start();
  ASSERT_TRUE(fixture.LoadExplorer());
  for (int button = 113; button <= 117; ++button) {
    EXPECT_FALSE(SendMessageA(fixture.CommandToolbar(), TB_ISBUTTONCHECKED, static_cast<WPARAM>(button), 0));
  }
  fixture.Close();
  EXPECT_EQ(GetPrivateProfileIntA("Explore", "curr_fileview_display_mode", -1, fixture.ProfilePath().c_str()), 7);
}

TEST_F(ExplorerWindowTest, TheSearchCommandCallsTheFileSelectionPlugin) {
  std::string keyword;
  fixture_.workbench().RegisterPlugin("{AE746F62-4369-4ba3-9D31-F94B194CC317}",
                                      [&](const char* const* keywords, void** values) {
                                        keyword = keywords[0];
                                        EXPECT_EQ(keywords[1], nullptr);
                                        EXPECT_EQ(values[0], nullptr);
                                      });
  SendMessageA(window_, WM_COMMAND, 119, 0);
  EXPECT_EQ(keyword, "showfileselectionpanel");
}

}  // namespace
