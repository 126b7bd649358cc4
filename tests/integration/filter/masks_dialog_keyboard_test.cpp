// The dialog "File Selection Masks" by keyboard alone.
#include <gmock/gmock.h>

#include "src/host/vc64_imp.h"
#include "tests/integration/filter/masks_dialog_visitor.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;

class MasksDialogKeyboardTest : public MasksDialogFixture {};

TEST_F(MasksDialogKeyboardTest, TabGoesThroughTheControlsInReadingOrder) {
  Open([](HWND dialog) {
    std::vector<int> order;
    for (int i = 0; i < 9; ++i) {
      order.push_back(FocusedId());
      Key(dialog, VK_TAB);
    }
    EXPECT_THAT(order, ElementsAre(1000, 1001, 1002, 1003, 909, 908, 1, 901, 1000));
  });
}

TEST_F(MasksDialogKeyboardTest, TypingReplacesTheInclusionAndEnterStoresIt) {
  Open([](HWND dialog) {
    TypeText("*.3ds");
    EXPECT_EQ(ControlText(dialog, 1000), "*.3ds") << "the whole text is selected at the start";
    Key(dialog, VK_TAB);
    TypeText("test*");
    Key(dialog, VK_RETURN);
    EXPECT_FALSE(IsWindowVisible(dialog));
  });
  EXPECT_EQ(TextOf(inclusion), "*.3ds");
  EXPECT_EQ(TextOf(exclusion), "test*");
  EXPECT_EQ(saves, 1);
}

TEST_F(MasksDialogKeyboardTest, ABoxThatIsLeftShowsNoSelection) {
  StoreLists("abc", "xyz");
  Open([](HWND dialog) {
    EXPECT_EQ(SendDlgItemMessageA(dialog, 1000, CB_GETEDITSEL, 0, 0), MAKELONG(0, 3));
    Key(dialog, VK_TAB);
    EXPECT_EQ(SendDlgItemMessageA(dialog, 1000, CB_GETEDITSEL, 0, 0), 0);
    EXPECT_EQ(SendDlgItemMessageA(dialog, 1001, CB_GETEDITSEL, 0, 0), MAKELONG(0, 3));
    Key(dialog, VK_TAB);
    EXPECT_EQ(SendDlgItemMessageA(dialog, 1001, CB_GETEDITSEL, 0, 0), 0);
  });
}

TEST_F(MasksDialogKeyboardTest, EscapeLeavesItOpenDeliberately) {
  Open([this](HWND dialog) {
    for (const int id : {1000, 1003, 909, 1}) {
      SetFocus(GetDlgItem(dialog, id));
      Key(dialog, VK_ESCAPE);
      EXPECT_TRUE(IsWindowVisible(dialog)) << id;
    }
    EXPECT_EQ(saves, 0);
  });
}

TEST_F(MasksDialogKeyboardTest, DownTakesTheNextTypeAtOnce) {
  Open([this](HWND dialog) {
    SetFocus(GetDlgItem(dialog, 1003));
    Key(dialog, VK_DOWN);
    EXPECT_EQ(filteringMethod, 1);
    Key(dialog, VK_DOWN);
    EXPECT_EQ(filteringMethod, 2);
    EXPECT_EQ(ControlText(dialog, 1003), "Show only known 3D object file types");
  });
  EXPECT_EQ(filteringMethod, 2) << "it is not undone when the dialog ends without Ok";
}

TEST_F(MasksDialogKeyboardTest, SpaceFlipsACheckBox) {
  Open([this](HWND dialog) {
    SetFocus(GetDlgItem(dialog, 909));
    Key(dialog, VK_SPACE);
    EXPECT_EQ(showFolders, 0);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 909), UINT{BST_UNCHECKED});
    SetFocus(GetDlgItem(dialog, 908));
    Key(dialog, VK_SPACE);
    Key(dialog, VK_SPACE);
    EXPECT_EQ(showVirtualFolders, 1);
  });
}

TEST_F(MasksDialogKeyboardTest, SpaceOnResetRestoresTheTexts) {
  Open([](HWND dialog) {
    TypeText("abc");
    SetFocus(GetDlgItem(dialog, 1002));
    Key(dialog, VK_SPACE);
    EXPECT_EQ(ControlText(dialog, 1000), "*.*");
  });
}

TEST_F(MasksDialogKeyboardTest, DownTakesALineOfTheHistory) {
  StoreLists("a|b*|c", "x");
  Open([](HWND dialog) {
    Key(dialog, VK_DOWN);
    Key(dialog, VK_DOWN);
    EXPECT_EQ(ControlText(dialog, 1000), "b*");
    Key(dialog, VK_RETURN);
  });
  EXPECT_EQ(TextOf(inclusion), "b*|a|c");
}

int helpRequests = 0;

TEST_F(MasksDialogKeyboardTest, AltHOpensTheHelp) {
  directory.AddFile(L"ui_file_explorer\\file selection masks dialog box.html");
  const ImportHelpOpener before = Import_IO_SetHelpOpener([](const char*) { return ++helpRequests; });
  Open([](HWND dialog) {
    AltKey(dialog, 'h');
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
  Import_IO_SetHelpOpener(before);
  EXPECT_EQ(helpRequests, 1);
}

TEST_F(MasksDialogKeyboardTest, AfterARefusalTheTextCanBeTypedAgain) {
  Open([](HWND dialog) {
    const test_support::MessageBoxRecorder boxes;
    Key(dialog, VK_TAB);
    TypeText("a|b");
    Key(dialog, VK_RETURN);
    EXPECT_EQ(boxes.boxes().size(), 1U);
    EXPECT_EQ(FocusedId(), 1001);
    SendMessageA(GetFocus(), EM_SETSEL, 0, -1);
    TypeText("c");
    Key(dialog, VK_RETURN);
    EXPECT_FALSE(IsWindowVisible(dialog));
  });
  EXPECT_EQ(TextOf(exclusion), "c");
}

}  // namespace
}  // namespace file_explorer
