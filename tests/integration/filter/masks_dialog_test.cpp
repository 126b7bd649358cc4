// The dialog "File Selection Masks": its controls, what it shows and what it stores.
#include <gmock/gmock.h>

#include "src/filter/type_filter.h"
#include "src/host/vc64_imp.h"
#include "tests/integration/filter/masks_dialog_visitor.h"
#include "tests/integration/filter/registered_formats.h"
#include "tests/support/message_box_recorder.h"

namespace file_explorer {
namespace {

using test_support::MessageBoxRecorder;
using testing::ElementsAre;
using testing::IsEmpty;

class MasksDialogTest : public MasksDialogFixture {};

std::vector<std::string> StaticTexts(HWND dialog) {
  std::vector<std::string> texts;
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    char text[512] = "";
    GetWindowTextA(child, text, sizeof text);
    if (static_cast<short>(GetDlgCtrlID(child)) == -1 && text[0] != '\0') texts.emplace_back(text);
  }
  return texts;
}

TEST_F(MasksDialogTest, HasItsTextsWithTheirOwnSpelling) {
  Open([](HWND dialog) {
    EXPECT_THAT(
        StaticTexts(dialog),
        ElementsAre("These options allow a subset of specific files to be shown in the file views through "
                    "inclusion and exlusions marks (such as '*.3ds').",
                    "File Matching Patterns", "For files to be included:", "For files to be excluded:",
                    "Separate multiple search patterns with commas.", "Selective file type display:"));
    EXPECT_EQ(ControlText(dialog, 1002), "Reset");
    EXPECT_EQ(ControlText(dialog, 909), "Show folders");
    EXPECT_EQ(ControlText(dialog, 908), "Show virtual folders");
    EXPECT_EQ(ControlText(dialog, 1), "Ok");
    EXPECT_EQ(ControlText(dialog, 901), "&Help, Show Me Some 'Mask' Examples");
    EXPECT_EQ(GetDlgItem(dialog, IDCANCEL), nullptr);
    for (const int id : {1000, 1001}) {
      EXPECT_EQ(GetWindowLongA(GetDlgItem(dialog, id), GWL_STYLE) & 3, CBS_DROPDOWN) << id;
    }
    EXPECT_EQ(GetWindowLongA(GetDlgItem(dialog, 1003), GWL_STYLE) & 3, CBS_DROPDOWNLIST);
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), FindWindowA("STATIC", nullptr));
  });
}

TEST_F(MasksDialogTest, StandsInTheMiddleOfItsParent) {
  Open([this](HWND dialog) {
    RECT outer = {}, inner = {};
    GetWindowRect(parent, &outer);
    GetWindowRect(dialog, &inner);
    EXPECT_NEAR(inner.left + inner.right, outer.left + outer.right, 2);
    EXPECT_NEAR(inner.top + inner.bottom, outer.top + outer.bottom, 2);
  });
}

TEST_F(MasksDialogTest, WithoutListsItShowsEverythingIncludedAndNothingExcluded) {
  Open([](HWND dialog) {
    EXPECT_EQ(ControlText(dialog, 1000), "*.*");
    EXPECT_THAT(ComboEntries(dialog, 1000), IsEmpty());
    EXPECT_EQ(ControlText(dialog, 1001), "");
    EXPECT_THAT(ComboEntries(dialog, 1001), ElementsAre(""));
  });
}

TEST_F(MasksDialogTest, ShowsTheListsWithTheirHistory) {
  StoreLists("*.3ds,*.obj|a*|b", "||x|y");
  Open([](HWND dialog) {
    EXPECT_EQ(ControlText(dialog, 1000), "*.3ds,*.obj");
    EXPECT_THAT(ComboEntries(dialog, 1000), ElementsAre("*.3ds,*.obj", "a*", "b"));
    EXPECT_EQ(ControlText(dialog, 1001), "");
    EXPECT_THAT(ComboEntries(dialog, 1001), ElementsAre("x", "y"));
  });
}

// The 8-bit message for a list box's text ends the program on some platforms from about 520 characters on.
TEST_F(MasksDialogTest, ListsAndHistoryEntriesOfAnyLengthAreStored) {
  for (const size_t length : {600u, 5000u}) {
    const std::string entry(length, 'x');
    const std::string current(600, 'y');
    StoreLists((current + "|" + entry).c_str(), ("||" + entry).c_str());
    Open([](HWND dialog) { Press(dialog, IDOK); });
    EXPECT_EQ(TextOf(inclusion), current + "|" + entry) << length;
    EXPECT_EQ(TextOf(exclusion), "||" + entry) << length;
  }
}

// Bent, the pattern would stand for other files than the user's; as "?" for any.
TEST_F(MasksDialogTest, APatternWithALetterThatTheCodePageLacksIsRefused) {
  MessageBoxRecorder boxes;
  StoreLists("*.3ds", "");
  Open([](HWND dialog) {
    SetWindowTextW(GetDlgItem(dialog, 1000), L"a*, pl\u0101n.obj");
    Press(dialog, IDOK);
    EXPECT_TRUE(GetACP() == CP_UTF8 || IsWindow(dialog));
  });
  if (GetACP() == CP_UTF8) {
    EXPECT_TRUE(boxes.boxes().empty());
    return;
  }
  ASSERT_EQ(boxes.boxes().size(), 1u);
  EXPECT_EQ(boxes.boxes()[0].caption, "Pattern Error");
  EXPECT_THAT(boxes.boxes()[0].text, testing::HasSubstr("'pl?n.obj' has a letter"));
  EXPECT_EQ(TextOf(inclusion), "*.3ds");
}

TEST_F(MasksDialogTest, ShowsTheFolderOptions) {
  showFolders = 0;
  Open([](HWND dialog) {
    EXPECT_EQ(IsDlgButtonChecked(dialog, 909), UINT{BST_UNCHECKED});
    EXPECT_EQ(IsDlgButtonChecked(dialog, 908), UINT{BST_CHECKED});
  });
}

TEST_F(MasksDialogTest, OffersTheTypesOfWhichTheHostHasAFormat) {
  const WithoutFormats none(kTxTypeVector2D | kTxTypeDatabase);
  filteringMethod = 2;
  Open([](HWND dialog) {
    std::vector<std::string> expected;
    for (const TypeFilter& filter : TypeFilters()) {
      if (filter.typeMask != kTxTypeVector2D && filter.typeMask != kTxTypeDatabase &&
          (filter.always || Tx_FileFormatHandler_DetermineNumberOfRegisteredFileFormats(
                                Token("import_and_viewer"), filter.typeMask) > 0)) {
        expected.emplace_back(filter.text);
      }
    }
    EXPECT_EQ(ComboEntries(dialog, 1003), expected);
    EXPECT_EQ(ControlText(dialog, 1003), "Show only known 3D object file types");
  });
}

TEST_F(MasksDialogTest, ALeftOutTypeMovesTheOthersUpDeliberately) {
  const WithoutFormats none(kTxTypeVector2D);
  const TestFormat video("{44444444-0000-4000-8000-0000000000F1}", "viewer", ".zqv", kTxTypeVideo);
  Open([this](HWND dialog) {
    ASSERT_EQ(SendDlgItemMessageA(dialog, 1003, CB_SETCURSEL, 4, 0), 4);
    EXPECT_EQ(ControlText(dialog, 1003), "Show only known video file types");
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(1003, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, 1003)));
    EXPECT_EQ(filteringMethod, 4);
  });
  EXPECT_EQ(TypeMaskOfPosition(filteringMethod), static_cast<std::uint32_t>(kTxTypeVector2D));
}

TEST_F(MasksDialogTest, APositionOutsideTheTableShowsAllFiles) {
  filteringMethod = 500;
  Open([](HWND dialog) { EXPECT_EQ(ControlText(dialog, 1003), "Show all files"); });
  EXPECT_EQ(filteringMethod, 500) << "what is only looked at is not changed";
}

TEST_F(MasksDialogTest, OkStoresBothListsSavesAndEnds) {
  StoreLists("a|b", "x");
  EXPECT_FALSE(Open([](HWND dialog) {
    SetDlgItemTextA(dialog, 1000, " *.3ds ,, *.obj , ");
    SetDlgItemTextA(dialog, 1001, "test*");
    Press(dialog, IDOK);
    EXPECT_FALSE(IsWindowVisible(dialog));
  }));
  EXPECT_EQ(TextOf(inclusion), "*.3ds,*.obj|a|b");
  EXPECT_EQ(TextOf(exclusion), "test*|x");
  EXPECT_EQ(saves, 1);
}

TEST_F(MasksDialogTest, EmptyBoxesStoreEverythingAndABar) {
  StoreLists("a", "x|y");
  Open([](HWND dialog) {
    SetDlgItemTextA(dialog, 1000, "  ");
    SetDlgItemTextA(dialog, 1001, "");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(TextOf(inclusion), "*.*|a");
  EXPECT_EQ(TextOf(exclusion), "||x|y");
}

TEST_F(MasksDialogTest, CommasAloneStoreWhatAnEmptyBoxStores) {
  Open([](HWND dialog) {
    SetDlgItemTextA(dialog, 1001, ",");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(TextOf(inclusion), "*.*");
  EXPECT_EQ(TextOf(exclusion), "|");
}

TEST_F(MasksDialogTest, ResetStartsTheTextsAfreshAndKeepsTheHistory) {
  StoreLists("a|b", "x|y");
  Open([](HWND dialog) {
    SetDlgItemTextA(dialog, 1000, "typed");
    Press(dialog, 1002);
    EXPECT_EQ(ControlText(dialog, 1000), "*.*");
    EXPECT_THAT(ComboEntries(dialog, 1000), ElementsAre("a", "b"));
    EXPECT_EQ(ControlText(dialog, 1001), "");
    EXPECT_THAT(ComboEntries(dialog, 1001), ElementsAre("x", "y"));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(TextOf(inclusion), "*.*|a|b");
  EXPECT_EQ(TextOf(exclusion), "||x|y");
}

TEST_F(MasksDialogTest, OnlyTwentyEarlierListsAreKept) {
  std::string stored;
  std::string expected = "new";
  for (int i = 1; i <= 21; ++i) {
    const std::string entry = "e" + std::to_string(i);
    stored += (i > 1 ? "|" : "") + entry;
    if (i <= 20) expected += "|" + entry;
  }
  StoreLists(stored.c_str(), "x");
  Open([](HWND dialog) {
    EXPECT_EQ(ComboEntries(dialog, 1000).size(), 21U);
    SetDlgItemTextA(dialog, 1000, "new");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(TextOf(inclusion), expected);
}

TEST_F(MasksDialogTest, ABarIsRefusedInABoxOfItsOwn) {
  StoreLists("a", "x");
  const struct {
    int id;
    const char* text;
  } cases[] = {
      {1000,
       "The 'inclusion' pattern matching string is not allowed to have a '|' character. Please remove '|' "
       "from the "
       "type-in box or press the Reset button."},
      {1001,
       "The 'exclusion' pattern matching string is not allowed to have a '|' character. Please remove '|' "
       "from the "
       "type-in box or press the Reset button."},
  };
  for (const auto& test : cases) {
    Open([&](HWND dialog) {
      const MessageBoxRecorder boxes;
      SetDlgItemTextA(dialog, test.id, "a|b");
      SetFocus(GetDlgItem(dialog, 1003));
      Press(dialog, IDOK);
      ASSERT_EQ(boxes.boxes().size(), 1U);
      EXPECT_EQ(boxes.boxes()[0].caption, "Pattern Error");
      EXPECT_EQ(boxes.boxes()[0].text, test.text);
      EXPECT_THAT(boxes.boxes()[0].buttons, ElementsAre(IDOK));
      EXPECT_EQ(boxes.boxes()[0].icon, 0U);
      EXPECT_EQ(boxes.boxes()[0].owner, dialog);
      EXPECT_EQ(FocusedId(), test.id);
      EXPECT_TRUE(IsWindowVisible(dialog));
    });
  }
  EXPECT_EQ(TextOf(exclusion), "x");
  EXPECT_EQ(saves, 0);
}

TEST_F(MasksDialogTest, AnIllFormedPatternIsRefusedWithItsReason) {
  StoreLists("a", "x");
  Open([](HWND dialog) {
    const MessageBoxRecorder boxes;
    SetDlgItemTextA(dialog, 1000, "*.obj, [z-a]");
    Press(dialog, IDOK);
    ASSERT_EQ(boxes.boxes().size(), 1U);
    EXPECT_EQ(boxes.boxes()[0].caption, "Pattern Error");
    EXPECT_EQ(boxes.boxes()[0].text,
              "The 'inclusion' pattern matching string is invalid: a range ends before it begins, as in "
              "\"[z-a]\".\n\nPlease correct or press the 'Reset' button.");
    EXPECT_THAT(boxes.boxes()[0].buttons, ElementsAre(IDOK));
    EXPECT_EQ(boxes.boxes()[0].icon, 0U);
    EXPECT_EQ(boxes.boxes()[0].owner, dialog);
    EXPECT_EQ(FocusedId(), 1000);
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
  EXPECT_EQ(TextOf(inclusion), "a");
  EXPECT_EQ(TextOf(exclusion), "x");
  EXPECT_EQ(saves, 0);
}

TEST_F(MasksDialogTest, AnInclusionStaysStoredWhenTheExclusionIsRefusedDeliberately) {
  StoreLists("a", "x");
  Open([](HWND dialog) {
    const MessageBoxRecorder boxes;
    SetDlgItemTextA(dialog, 1000, "b");
    SetDlgItemTextA(dialog, 1001, "[");
    Press(dialog, IDOK);
    EXPECT_EQ(boxes.boxes().size(), 1U);
    EXPECT_EQ(FocusedId(), 1001);
  });
  EXPECT_EQ(TextOf(inclusion), "b|a");
  EXPECT_EQ(TextOf(exclusion), "x");
  EXPECT_EQ(saves, 0);
}

TEST_F(MasksDialogTest, FolderOptionsChangeAtOnceAndAreReported) {
  EXPECT_TRUE(Open([this](HWND dialog) {
    Press(dialog, 909);
    EXPECT_EQ(showFolders, 0);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 909), UINT{BST_UNCHECKED});
    Press(dialog, 908);
    EXPECT_EQ(showVirtualFolders, 0);
    Press(dialog, 908);
    EXPECT_EQ(showVirtualFolders, 1);
    EXPECT_EQ(IsDlgButtonChecked(dialog, 908), UINT{BST_CHECKED});
    Press(dialog, IDOK);
  }));
  EXPECT_FALSE(Open([](HWND dialog) {
    Press(dialog, 909);
    Press(dialog, 909);
    Press(dialog, IDOK);
  })) << "there and back is no change";
}

TEST_F(MasksDialogTest, ACancelCommandAndTheCloseBoxLeaveItOpen) {
  Open([this](HWND dialog) {
    SendMessageA(dialog, WM_COMMAND, IDCANCEL, 0);
    EXPECT_TRUE(IsWindowVisible(dialog));
    SendMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    MSG message;
    while (PeekMessageA(&message, dialog, 0, 0, PM_REMOVE)) DispatchMessageA(&message);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(saves, 0);
    Press(dialog, IDOK);
    EXPECT_FALSE(IsWindowVisible(dialog));
  });
  EXPECT_EQ(saves, 1);
}

std::string openedPage;

TEST_F(MasksDialogTest, HelpOpensItsTopic) {
  directory.AddFile(L"ui_file_explorer\\file selection masks dialog box.html");
  const ImportHelpOpener before = Import_IO_SetHelpOpener([](const char* page) {
    openedPage = page;
    return 1;
  });
  Open([](HWND dialog) {
    Press(dialog, 901);
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
  Import_IO_SetHelpOpener(before);
  EXPECT_EQ(openedPage, directory.narrow() + "\\ui_file_explorer\\file selection masks dialog box.html");
}

TEST_F(MasksDialogTest, LeavesNoHostMemoryBehind) {
  StoreLists("a|b", "x");
  const auto once = [this] {
    Open([](HWND dialog) {
      SetDlgItemTextA(dialog, 1000, "c");
      Press(dialog, IDOK);
    });
  };
  once();
  const size_t before = Tx_Inquire_Allocated_Blocks();
  once();
  EXPECT_EQ(Tx_Inquire_Allocated_Blocks(), before);
}

}  // namespace
}  // namespace file_explorer
