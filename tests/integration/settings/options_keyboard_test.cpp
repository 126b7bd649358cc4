// The options dialog without a mouse, and what of its texts can be read.
#include "tests/integration/settings/options_dialog_fixture.h"

#include <commctrl.h>

namespace file_explorer {
namespace {

using test_support::TypeAccessKey;
using test_support::TypeKey;
using testing::ElementsAre;

using OptionsKeyboardTest = OptionsDialogFixture;

int FocusedId() {
  return GetDlgCtrlID(GetFocus());
}

// As Tab or a click would: the focused button becomes the default one.
void FocusOn(HWND dialog, int id) {
  SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(GetDlgItem(dialog, id)), TRUE);
}

// Where Tab leads until it is back at the beginning.
std::vector<int> TabOrder(HWND dialog) {
  std::vector<int> order = {FocusedId()};
  for (int i = 0; i < 40; ++i) {
    TypeKey(dialog, VK_TAB);
    if (FocusedId() == order.front()) break;
    order.push_back(FocusedId());
  }
  return order;
}

TEST_F(OptionsKeyboardTest, TabReachesEveryVisibleControlFromTheTopDown) {
  Open([](HWND dialog) {
    EXPECT_EQ(FocusedId(), 1000);
    EXPECT_THAT(TabOrder(dialog), ElementsAre(1000, 1001, 923, 918, 917, 915, 914, 920, 921, 913, 912, 910,
                                              909, 908, 907, 905, 906, 922, 1015, 1, 919, 901));
  });
}

TEST_F(OptionsKeyboardTest, ArrowsWalkTheEntriesOfAList) {
  settings_.newWindowCreationMethod = 0;
  settings_.newWindowDockingPosition = 0;
  Open([this](HWND dialog) {
    FocusOn(dialog, 917);
    TypeKey(dialog, VK_DOWN);
    TypeKey(dialog, VK_DOWN);
    EXPECT_EQ(settings_.newWindowDockingPosition, 2);
    TypeKey(dialog, VK_UP);
    EXPECT_EQ(settings_.newWindowDockingPosition, 1);
    FocusOn(dialog, 918);
    TypeKey(dialog, VK_DOWN);
    EXPECT_EQ(settings_.newWindowCreationMethod, 5);
    FocusOn(dialog, 920);
    TypeKey(dialog, VK_DOWN);
    EXPECT_EQ(host_.repaints.back().color, settings_.colors[1]);
  });
}

TEST_F(OptionsKeyboardTest, ArrowsStayInsideAGroup) {
  Open([](HWND dialog) {
    FocusOn(dialog, 913);
    std::vector<int> ids;
    for (int i = 0; i < 3; ++i) {
      TypeKey(dialog, VK_DOWN);
      ids.push_back(FocusedId());
    }
    EXPECT_THAT(ids, ElementsAre(912, 910, 913)) << "neither the hidden box nor what lies out of sight";
    FocusOn(dialog, 922);
    TypeKey(dialog, VK_DOWN);
    EXPECT_EQ(FocusedId(), 909);
  });
}

TEST_F(OptionsKeyboardTest, SpaceFlipsTheFocusedBox) {
  Open([this](HWND dialog) {
    const HWND box = GetDlgItem(dialog, 909);
    FocusOn(dialog, 909);
    SendMessageA(box, WM_KEYDOWN, VK_SPACE, 1);
    SendMessageA(box, WM_KEYUP, VK_SPACE, 1);
    EXPECT_EQ(settings_.fileViewShowsFolders, 0);
    EXPECT_FALSE(IsChecked(dialog, 909));
  });
}

TEST_F(OptionsKeyboardTest, EnterIsOkInABoxAListAndTheText) {
  for (const int id : {1000, 917, 909}) {
    saves_ = 0;
    Open([&](HWND dialog) {
      FocusOn(dialog, id);
      TypeKey(dialog, VK_RETURN);
      EXPECT_EQ(saves_, 1) << id;
    });
    EXPECT_EQ(saves_, 1) << id;
  }
}

TEST_F(OptionsKeyboardTest, EnterOnAButtonPressesThatButton) {
  Open([this](HWND dialog) {
    FocusOn(dialog, 1015);
    TypeKey(dialog, VK_RETURN);
    EXPECT_EQ(host_.dialogs.size(), 1U);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(saves_, 0);
  });
}

TEST_F(OptionsKeyboardTest, EscapeStaysWhereverTheFocusIs) {
  Open([this](HWND dialog) {
    for (const int id : {1000, 917, 909, 1015, 1}) {
      FocusOn(dialog, id);
      TypeKey(dialog, VK_ESCAPE);
      EXPECT_TRUE(IsWindowVisible(dialog)) << id;
    }
    EXPECT_EQ(saves_, 0);
  });
}

TEST_F(OptionsKeyboardTest, AltAndALetterPressTheButton) {
  context_.helpLocation = "c:\\help";
  Open([](HWND dialog) {
    test_support::MessageBoxRecorder boxes;
    boxes.AnswerWith(IDNO);
    FocusOn(dialog, 909);
    TypeAccessKey(dialog, 'r');
    ASSERT_EQ(boxes.boxes().size(), 1U);
    EXPECT_EQ(boxes.boxes()[0].caption, "Confirmation Request");
  });
}

// Width of a control's text in the dialog's font, in pixels, as it is drawn.
int TextWidth(HWND control) {
  std::array<char, 256> text = {};
  GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
  const HDC context = GetDC(control);
  const HGDIOBJ previous =
      SelectObject(context, reinterpret_cast<HFONT>(SendMessageA(control, WM_GETFONT, 0, 0)));
  RECT extent = {};
  DrawTextA(context, text.data(), -1, &extent, DT_CALCRECT | DT_SINGLELINE);
  SelectObject(context, previous);
  ReleaseDC(control, context);
  return extent.right;
}

bool Overlaps(HWND a, HWND b) {
  RECT first = {};
  RECT second = {};
  RECT common = {};
  GetWindowRect(a, &first);
  GetWindowRect(b, &second);
  return IntersectRect(&common, &first, &second) != FALSE;
}

bool IsGroup(HWND control) {
  std::array<char, 32> name = {};
  GetClassNameA(control, name.data(), static_cast<int>(name.size()));
  return std::string(name.data()) == "Button" &&
         (GetWindowLongPtrA(control, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
}

TEST_F(OptionsKeyboardTest, NoTextIsClippedAndNoControlCoversAnother) {
  Open([](HWND dialog) {
    std::vector<HWND> controls;
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
      controls.push_back(child);
    }
    const int boxWidth = GetSystemMetrics(SM_CXMENUCHECK) + 6;  // a check box's mark and the gap behind it
    for (const HWND control : controls) {
      RECT client = {};
      GetClientRect(control, &client);
      const LONG_PTR kind = GetWindowLongPtrA(control, GWL_STYLE) & BS_TYPEMASK;
      const int mark = kind == BS_AUTOCHECKBOX ? boxWidth : 0;
      if (GetDlgCtrlID(control) != 1000) {
        EXPECT_LE(TextWidth(control) + mark, client.right) << GetDlgCtrlID(control);
      }
      for (const HWND other : controls) {
        if (other == control || IsGroup(other) || IsGroup(control)) continue;
        EXPECT_FALSE(Overlaps(control, other)) << GetDlgCtrlID(control) << " and " << GetDlgCtrlID(other);
      }
    }
  });
}

}  // namespace
}  // namespace file_explorer
