// The five toolbars as they stand in the running explorer: buttons, pictures, tooltips.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <cstring>
#include <string>
#include <type_traits>
#include <vector>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

using testing::ElementsAre;

constexpr int kToolbars[] = {kCommandToolbar, kFoldersToolbar, kHistoryToolbar, kFavoritesToolbar,
                             kSelectorToolbar};

struct TooltipCase {
  int command;
  const char* text;
};

constexpr TooltipCase kTooltips[] = {
    {99, "Window Docking Options"},
    {100, "Hide This Explore List Box"},
    {101, "Go Up One Folder Level"},
    {102, "Refresh Lists"},
    {103, "Go to Home Directory"},
    {104, "Set File Selection Mask"},
    {105, "Folder Dialog Box Options"},
    {106, "Show Files and Folder View"},
    {107, "Show History View in the 'Selector Window'"},
    {108, "Show Favorites View in the 'Selector Window'"},
    {109, "Add Selected File or Folder to Favorites List"},
    {110, "Load Previous File From Selection Point"},
    {111, "Load Next File From Selection Point"},
    {112, "Start Slide Show"},
    {113, "Detail Mode"},
    {114, "List Mode"},
    {115, "Large Icon Mode"},
    {116, "Small Icon Mode"},
    {117, "Thumb Nail Mode"},
    {118, "Create New Folder"},
    {119, "Search for Files Locally"},
    {120, "Cut"},
    {121, "Copy"},
    {122, "Paste"},
    {123, "Move Files To"},
    {124, "Copy Files To"},
    {125, "Rename File"},
    {126, "Delete File"},
    {127, "File Explorer Online Help"},
    {128, ""},
    {129, "Create new Favorites folder"},
    {130, "Rename item in Favorites list"},
    {131, "Delete item or folder from Favorites list"},
    {132, "Add Selected File or Folder to Favorites List"},
    {133, "Delete all history items"},
    {134, "History list sorting method"},
    {135, "Show or hide history list icons"},
    {924, "Show Go-To Directory List"},
};

class ToolbarsTest : public RunningExplorer {
 protected:
  void SetUp() override { Begin(0); }

  std::vector<TBBUTTON> Buttons(int toolbar) const {
    std::vector<TBBUTTON> buttons;
    const LRESULT count = SendMessageA(Toolbar(toolbar), TB_BUTTONCOUNT, 0, 0);
    for (LRESULT i = 0; i < count; ++i) {
      TBBUTTON button = {};
      SendMessageA(Toolbar(toolbar), TB_GETBUTTON, static_cast<WPARAM>(i), reinterpret_cast<LPARAM>(&button));
      buttons.push_back(button);
    }
    return buttons;
  }
  // (command, image), "|" for a separator, "c" and "d" behind check and drop-down buttons.
  std::string Describe(int toolbar) const {
    std::string text;
    for (const TBBUTTON& button : Buttons(toolbar)) {
      if ((button.fsStyle & BTNS_SEP) != 0) {
        text += "| ";
        continue;
      }
      text += "(" + std::to_string(button.idCommand) + "," + std::to_string(button.iBitmap) + ")";
      if ((button.fsStyle & BTNS_CHECK) != 0) text += "c";
      if ((button.fsStyle & BTNS_WHOLEDROPDOWN) != 0) text += "d";
      text += " ";
    }
    return text;
  }
  HIMAGELIST Images(int toolbar) const {
    return reinterpret_cast<HIMAGELIST>(SendMessageA(Toolbar(toolbar), TB_GETIMAGELIST, 0, 0));
  }
  template <typename Request>
  static auto TooltipAskedOf(HWND owner, UINT code, UINT_PTR tool, UINT flags = 0) {
    Request request = {};
    request.hdr.code = code;
    request.hdr.idFrom = tool;
    request.uFlags = flags;
    SendMessageA(owner, WM_NOTIFY, static_cast<WPARAM>(tool), reinterpret_cast<LPARAM>(&request));
    std::basic_string<std::remove_pointer_t<decltype(request.lpszText)>> text;
    EXPECT_NE(request.lpszText, nullptr) << code << ", " << tool;
    if (request.lpszText != nullptr) text = request.lpszText;
    return text;
  }
  static std::string NarrowTooltip(HWND owner, UINT_PTR tool, UINT flags = 0) {
    return TooltipAskedOf<NMTTDISPINFOA>(owner, static_cast<UINT>(TTN_GETDISPINFOA), tool, flags);
  }
  static std::wstring WideTooltip(HWND owner, UINT_PTR tool, UINT flags = 0) {
    return TooltipAskedOf<NMTTDISPINFOW>(owner, static_cast<UINT>(TTN_GETDISPINFOW), tool, flags);
  }
};

TEST_F(ToolbarsTest, HaveTheirButtonsInOrder) {
  EXPECT_EQ(Describe(kCommandToolbar),
            "| (99,12) | | (101,0) | | (102,2) (103,3) (924,35)d | (109,9) (108,4) (107,25) | (104,1) (105,8) "
            "(127,31) "
            "| (118,34) | (110,10) (111,11) | (113,13) (114,14) (116,17) (115,15) (117,16) "
            "| (120,19) (121,20) (122,18) | (123,27) (124,33) (125,28) (126,21) | ");
  EXPECT_EQ(Describe(kFoldersToolbar), "(128,5) (106,6)c (107,25)c (108,4)c | | (101,0) (109,9) ");
  EXPECT_EQ(Describe(kHistoryToolbar),
            "(128,5) (106,6)c (107,25)c (108,4)c | | (134,36)d (135,37) (133,21) ");
  EXPECT_EQ(Describe(kFavoritesToolbar),
            "(128,5) (106,6)c (107,25)c (108,4)c | | (132,9) (129,34) (130,28) (131,21) ");
  EXPECT_EQ(Describe(kSelectorToolbar), "(103,3) (102,2) | (104,1) (105,8) | (118,34) (119,29) | (127,31) ");
}

TEST_F(ToolbarsTest, EveryButtonIsSizedToItsContentAndHasNoText) {
  for (const int toolbar : kToolbars) {
    for (const TBBUTTON& button : Buttons(toolbar)) {
      if ((button.fsStyle & BTNS_SEP) != 0) continue;
      EXPECT_NE(button.fsStyle & BTNS_AUTOSIZE, 0) << button.idCommand;
      EXPECT_EQ(button.iString, -1) << button.idCommand;
      EXPECT_EQ(button.dwData, 0U) << button.idCommand;
    }
  }
}

TEST_F(ToolbarsTest, AreFlatListsWithTooltipsAtTheirEdge) {
  for (const int toolbar : kToolbars) {
    const LONG_PTR style = GetWindowLongPtrA(Toolbar(toolbar), GWL_STYLE);
    constexpr LONG_PTR kWanted = TBSTYLE_LIST | TBSTYLE_FLAT | TBSTYLE_TOOLTIPS;
    EXPECT_EQ(style & kWanted, kWanted) << toolbar;
    // The bottom edge is the top edge's bit and one more.
    EXPECT_EQ(style & CCS_BOTTOM, toolbar == kSelectorToolbar ? CCS_BOTTOM : CCS_TOP) << toolbar;
    EXPECT_EQ(GetParent(Toolbar(toolbar)),
              toolbar == kCommandToolbar ? fixture_.ExplorerWindow() : fixture_.Panel());
  }
}

TEST_F(ToolbarsTest, TheirPicturesAreSixteenByFifteen) {
  for (const int toolbar : kToolbars) {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(Images(toolbar), &width, &height);
    EXPECT_EQ(width, 16) << toolbar;
    EXPECT_EQ(height, 15) << toolbar;
    EXPECT_EQ(ImageList_GetImageCount(Images(toolbar)), 38) << toolbar;
    IMAGEINFO info = {};
    EXPECT_TRUE(ImageList_GetImageInfo(Images(toolbar), 0, &info));
    EXPECT_NE(info.hbmMask, nullptr) << toolbar;
  }
}

TEST_F(ToolbarsTest, TheSelectorToolbarsShareTheirPicturesAndTheCommandToolbarHasItsOwn) {
  for (const int toolbar : {kHistoryToolbar, kFavoritesToolbar, kSelectorToolbar}) {
    EXPECT_EQ(Images(toolbar), Images(kFoldersToolbar)) << toolbar;
  }
  EXPECT_NE(Images(kCommandToolbar), Images(kFoldersToolbar));
}

TEST_F(ToolbarsTest, EveryCommandHasItsTooltipInEitherWindowAndInEitherForm) {
  for (const TooltipCase& row : kTooltips) {
    const auto tool = static_cast<UINT_PTR>(row.command);
    const std::wstring wide(row.text, row.text + std::strlen(row.text));
    for (const HWND owner : {fixture_.ExplorerWindow(), fixture_.Panel()}) {
      EXPECT_EQ(NarrowTooltip(owner, tool), row.text) << row.command;
      EXPECT_EQ(WideTooltip(owner, tool), wide) << row.command;
    }
  }
}

// The panel has a tooltip control whose tool is the panel: its number is a window handle.
TEST_F(ToolbarsTest, AToolThatIsAWindowHasNoCommandsTooltip) {
  for (const HWND owner : {fixture_.ExplorerWindow(), fixture_.Panel()}) {
    EXPECT_EQ(NarrowTooltip(owner, 0x70000 + 117, TTF_IDISHWND), "");
    EXPECT_EQ(WideTooltip(owner, 0x70000 + 117, TTF_IDISHWND), L"");
  }
}

// The toolbars' own tooltip windows ask for the texts as those above do, and show them.
TEST_F(ToolbarsTest, TheTooltipOfAButtonShowsItsText) {
  for (const int toolbar : kToolbars) {
    const auto tips = reinterpret_cast<HWND>(SendMessageA(Toolbar(toolbar), TB_GETTOOLTIPS, 0, 0));
    ASSERT_NE(tips, nullptr) << toolbar;
    for (const TooltipCase& row : kTooltips) {
      if (SendMessageA(Toolbar(toolbar), TB_COMMANDTOINDEX, static_cast<WPARAM>(row.command), 0) < 0)
        continue;
      TTTOOLINFOA tool = {};
      char text[1024] = "";
      tool.cbSize = sizeof(tool);
      tool.hwnd = Toolbar(toolbar);
      tool.uId = static_cast<UINT_PTR>(row.command);
      tool.lpszText = text;
      SendMessageA(tips, TTM_GETTEXTA, 0, reinterpret_cast<LPARAM>(&tool));
      EXPECT_STREQ(text, row.text) << toolbar << ", " << row.command;
    }
  }
}

TEST_F(ToolbarsTest, OnlyTheCurrentDisplayModeIsCheckedAtFirst) {
  std::vector<int> checked;
  for (const TBBUTTON& button : Buttons(kCommandToolbar)) {
    if ((button.fsState & TBSTATE_CHECKED) != 0) checked.push_back(button.idCommand);
  }
  EXPECT_THAT(checked, ElementsAre(113));
}

TEST_F(ToolbarsTest, PasteFollowsTheClipboard) {
  ASSERT_TRUE(OpenClipboard(fixture_.workbench().window()));
  EmptyClipboard();
  CloseClipboard();
  EXPECT_TRUE(test_support::WaitUntil([&] { return !IsEnabled(kCommandToolbar, 122); }));
  ASSERT_TRUE(OpenClipboard(fixture_.workbench().window()));
  SetClipboardData(CF_UNICODETEXT, GlobalAlloc(GMEM_MOVEABLE | GMEM_ZEROINIT, 4));
  CloseClipboard();
  EXPECT_TRUE(test_support::WaitUntil([&] { return IsEnabled(kCommandToolbar, 122); }))
      << "whatever is selected, and whoever filled it";
  ASSERT_TRUE(OpenClipboard(fixture_.workbench().window()));
  EmptyClipboard();
  CloseClipboard();
  EXPECT_TRUE(test_support::WaitUntil([&] { return !IsEnabled(kCommandToolbar, 122); }));
}

}  // namespace
}  // namespace explorer_tests
