// The display modes of the file view: their four numberings, and how they are kept.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

#include <string>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

struct Mode {
  int number;   // in the profile
  int command;  // its button
  int view;     // of the list window: thumbnails are large icons with larger pictures
};
constexpr Mode kModes[] = {
    {0, 115, LV_VIEW_ICON},    {1, 116, LV_VIEW_SMALLICON}, {2, 114, LV_VIEW_LIST},
    {3, 113, LV_VIEW_DETAILS}, {4, 117, LV_VIEW_ICON},
};

class DisplayModesTest : public RunningExplorer {
 protected:
  void BeginWith(const std::string& profile) {
    if (!profile.empty()) fixture_.directory().AddFile(L"profile.ini", profile);
    fixture_.directory().AddFile(L"files\\a.txt");
    Begin(1);
  }
  void ExpectChecked(int command) {
    for (int button = 113; button <= 117; ++button) {
      EXPECT_EQ(IsChecked(kCommandToolbar, button), button == command) << button;
    }
  }
  int View() const { return static_cast<int>(SendMessageA(fixture_.FileList(), LVM_GETVIEW, 0, 0)); }
  int PictureWidth() const {
    int width = 0;
    int height = 0;
    ImageList_GetIconSize(
        reinterpret_cast<HIMAGELIST>(SendMessageA(fixture_.FileList(), LVM_GETIMAGELIST, LVSIL_NORMAL, 0)),
        &width, &height);
    return width;
  }
  std::string Saved() const {
    char text[64] = "";
    GetPrivateProfileStringA("Explore", "curr_fileview_display_mode", "none", text, sizeof(text),
                             fixture_.ProfilePath().c_str());
    return text;
  }
  void RemoveSaved() {
    WritePrivateProfileStringA("Explore", "curr_fileview_display_mode", nullptr,
                               fixture_.ProfilePath().c_str());
  }
};

TEST_F(DisplayModesTest, WithoutAProfileThereAreDetails) {
  BeginWith("");
  ExpectChecked(113);
  EXPECT_EQ(View(), LV_VIEW_DETAILS);
}

TEST_F(DisplayModesTest, EachButtonGivesTheListItsView) {
  BeginWith("");
  for (const Mode& mode : kModes) {
    Press(kCommandToolbar, mode.command);
    ExpectChecked(mode.command);
    EXPECT_EQ(View(), mode.view) << mode.command;
    EXPECT_EQ(PictureWidth() >= 64, mode.command == 117) << mode.command;
  }
}

TEST_F(DisplayModesTest, EachModeIsReadAndWrittenUnderItsOwnNumber) {
  for (const Mode& mode : kModes) {
    WritePrivateProfileStringA("Explore", "curr_fileview_display_mode", std::to_string(mode.number).c_str(),
                               fixture_.ProfilePath().c_str());
    fixture_.directory().AddFile(L"files\\a.txt");
    Begin(1);
    ExpectChecked(mode.command);
    EXPECT_EQ(View(), mode.view) << mode.number;
    RemoveSaved();
    fixture_.Close();
    EXPECT_EQ(Saved(), std::to_string(mode.number)) << "written even when it did not change";
  }
}

TEST_F(DisplayModesTest, ChoosingThumbnailsIsSavedAsFour) {
  BeginWith("");
  Press(kCommandToolbar, 117);
  fixture_.Close();
  EXPECT_EQ(Saved(), "4");
}

TEST_F(DisplayModesTest, ChoosingTheCurrentModeChangesAndWritesNothing) {
  BeginWith("");
  // Were the mode applied anew, the button would be checked again.
  SendMessageA(Toolbar(kCommandToolbar), TB_CHECKBUTTON, 113, FALSE);
  RemoveSaved();
  SendToExplorer(113);
  EXPECT_FALSE(IsChecked(kCommandToolbar, 113));
  EXPECT_EQ(Saved(), "none");
}

TEST_F(DisplayModesTest, ChoosingAnotherModeWritesNothingUntilTheEnd) {
  BeginWith("");
  RemoveSaved();
  Press(kCommandToolbar, 114);
  EXPECT_EQ(Saved(), "none");
  fixture_.Close();
  EXPECT_EQ(Saved(), "2");
}

TEST_F(DisplayModesTest, AModeOutOfRangeIsKeptAndLeavesTheViewAlone) {
  BeginWith("[Explore]\ncurr_fileview_display_mode=7\n");
  ExpectChecked(0);
  EXPECT_EQ(View(), LV_VIEW_DETAILS);  // as the control begins
  fixture_.Close();
  EXPECT_EQ(Saved(), "7");
}

TEST_F(DisplayModesTest, FromAModeOutOfRangeTheUserGoesOn) {
  BeginWith("[Explore]\ncurr_fileview_display_mode=-1\n");
  ExpectChecked(0);
  Press(kCommandToolbar, 114);
  ExpectChecked(114);
  EXPECT_EQ(View(), LV_VIEW_LIST);
  fixture_.Close();
  EXPECT_EQ(Saved(), "2");
}

}  // namespace
}  // namespace explorer_tests
