// The dialog "Explore Options": what its controls are, show and do.
#include "tests/integration/settings/options_dialog_fixture.h"

#include "src/filter/category_colors.h"
#include "src/settings/directory_links.h"
#include "src/settings/options_logic.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {
namespace {

using test_support::ChooseEntry;
using test_support::PressButton;
using testing::ElementsAre;

using OptionsDialogTest = OptionsDialogFixture;

TEST_F(OptionsDialogTest, IsCentredOnItsOwnerWithoutMenuOrCloseBox) {
  Open([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_);
    EXPECT_FALSE(IsWindowEnabled(owner_));
    const LONG_PTR style = GetWindowLongPtrA(dialog, GWL_STYLE);
    EXPECT_EQ(style & WS_CAPTION, WS_CAPTION);
    EXPECT_EQ(style & WS_SYSMENU, 0);
    RECT units = {0, 0, 284, 281};
    MapDialogRect(dialog, &units);
    RECT client = {};
    GetClientRect(dialog, &client);
    EXPECT_EQ(client.right, units.right);
    EXPECT_EQ(client.bottom, units.bottom);
    RECT place = {};
    RECT around = {};
    GetWindowRect(dialog, &place);
    GetWindowRect(owner_, &around);
    EXPECT_NEAR(place.left + place.right, around.left + around.right, 2);
    EXPECT_NEAR(place.top + place.bottom, around.top + around.bottom, 2);
  });
}

TEST_F(OptionsDialogTest, HasItsButtonsAndBoxesWithTheirTexts) {
  struct Row {
    int id;
    LONG_PTR kind;  // BS_ style
    const char* text;
  };
  const Row rows[] = {
      {1001, BS_PUSHBUTTON, "&Browse..."},
      {923, BS_PUSHBUTTON, "Set To Current Directory"},
      {916, BS_PUSHBUTTON, "Help"},
      {915, BS_AUTOCHECKBOX, "Group related file types together (3D models, 2D images, etc)"},
      {914, BS_AUTOCHECKBOX, "Create a new window per ZIP file opened (applicable only when a ZIP"},
      {921, BS_OWNERDRAW, ""},
      {913, BS_AUTOCHECKBOX, "Show files"},
      {912, BS_AUTOCHECKBOX, "Show virtual folders"},
      {911, BS_AUTOCHECKBOX, "Show hidden files"},
      {910, BS_AUTOCHECKBOX, "Allow drag && drop operations"},
      {909, BS_AUTOCHECKBOX, "Show folders"},
      {908, BS_AUTOCHECKBOX, "Show virtual folders"},
      {907, BS_AUTOCHECKBOX, "Show hidden items"},
      {905, BS_AUTOCHECKBOX, "Allow drag && drop operations"},
      {906, BS_AUTOCHECKBOX, "Show grid lines in Details mode"},
      {922, BS_AUTOCHECKBOX, "Single click file loading"},
      {903, BS_AUTOCHECKBOX, "Show full path to a file system object"},
      {904, BS_AUTOCHECKBOX, "Show virtual folders"},
      {902, BS_AUTOCHECKBOX, "Enable filename completion"},
      {1015, BS_PUSHBUTTON, "Drag && Drop Confirmations"},
      {1, BS_DEFPUSHBUTTON, "Ok"},
      {919, BS_PUSHBUTTON, "&Reset"},
      {901, BS_PUSHBUTTON, "&Help"},
  };
  Open([&](HWND dialog) {
    for (const Row& row : rows) {
      const HWND control = GetDlgItem(dialog, row.id);
      ASSERT_NE(control, nullptr) << row.id;
      EXPECT_EQ(TextOf(dialog, row.id), row.text);
      EXPECT_EQ(GetWindowLongPtrA(control, GWL_STYLE) & BS_TYPEMASK, row.kind) << row.id;
    }
    EXPECT_NE(GetWindowLongPtrA(GetDlgItem(dialog, 1000), GWL_STYLE) & ES_READONLY, 0);
    for (const int list : {917, 918, 920}) {
      EXPECT_EQ(GetWindowLongPtrA(GetDlgItem(dialog, list), GWL_STYLE) & 3, CBS_DROPDOWNLIST) << list;
    }
    EXPECT_EQ(GetDlgItem(dialog, IDCANCEL), nullptr);
  });
}

std::vector<std::string> LabelsOf(HWND dialog) {
  std::vector<std::string> labels;
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    std::array<char, 32> name = {};
    GetClassNameA(child, name.data(), static_cast<int>(name.size()));
    const bool isGroup = (GetWindowLongPtrA(child, GWL_STYLE) & BS_TYPEMASK) == BS_GROUPBOX;
    if (std::string(name.data()) != "Static" && !(std::string(name.data()) == "Button" && isGroup)) continue;
    std::array<char, 256> text = {};
    GetWindowTextA(child, text.data(), static_cast<int>(text.size()));
    labels.emplace_back(text.data());
  }
  return labels;
}

TEST_F(OptionsDialogTest, HasItsGroupsAndLabels) {
  Open([](HWND dialog) {
    EXPECT_THAT(LabelsOf(dialog),
                ElementsAre("Current Home Directory", "Default Start-Up or New Window Creation Method",
                            "Docking position:",
                            "file is dragged && dropped to this program, or via WEB search engine)",
                            "Item color for:", "Folder Tree View Display Options",
                            "File View Display Options", "Combo Box Directory Display Options"));
  });
}

TEST_F(OptionsDialogTest, TheComboBoxOptionsLieOutOfSightDeliberately) {
  Open([](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    for (const int id : {902, 903, 904}) {
      RECT place = {};
      GetWindowRect(GetDlgItem(dialog, id), &place);
      MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
      EXPECT_GT(place.left, client.right) << id;
    }
  });
}

TEST_F(OptionsDialogTest, HidesTheTreesHiddenFilesBoxAlone) {
  Open([](HWND dialog) {
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, 911)));
    for (const int id : {1000, 1001, 923, 918, 917, 916, 915, 914,  920, 921, 913, 912,
                         910,  909,  908, 907, 905, 906, 922, 1015, 1,   919, 901}) {
      EXPECT_TRUE(IsWindowVisible(GetDlgItem(dialog, id))) << id;
    }
  });
}

TEST_F(OptionsDialogTest, ListsItsMethodsAndPositions) {
  settings_.newWindowDockingPosition = 1;
  Open([](HWND dialog) {
    EXPECT_THAT(Entries(dialog, 918),
                ElementsAre("Tabbed MDI Document Window", "Tabbed Collapsible Pop-up Window"));
    EXPECT_EQ(Selected(dialog, 918), 1);
    EXPECT_THAT(Entries(dialog, 917), ElementsAre("Left", "Right", "Top", "Bottom"));
    EXPECT_EQ(Selected(dialog, 917), 1);
  });
}

TEST_F(OptionsDialogTest, AMethodOfZeroShowsTheDocumentWindow) {
  settings_.newWindowCreationMethod = 0;
  Open([](HWND dialog) { EXPECT_EQ(TextOf(dialog, 918), "Tabbed MDI Document Window"); });
}

TEST_F(OptionsDialogTest, AMethodFromElsewhereSurvivesUntilTheListIsUsed) {
  settings_.newWindowCreationMethod = 3;
  settings_.newWindowDockingPosition = 9;
  Open([](HWND dialog) {
    EXPECT_EQ(Selected(dialog, 918), 0);
    EXPECT_EQ(Selected(dialog, 917), -1);
  });
  EXPECT_EQ(settings_.newWindowCreationMethod, 3);
  EXPECT_EQ(settings_.newWindowDockingPosition, 9);
}

TEST_F(OptionsDialogTest, ChoosingTheSecondMethodStoresFive) {
  settings_.newWindowCreationMethod = 0;
  Open([this](HWND dialog) {
    ChooseEntry(dialog, 918, 1);
    EXPECT_EQ(settings_.newWindowCreationMethod, 5);
    ChooseEntry(dialog, 918, 0);
    EXPECT_EQ(settings_.newWindowCreationMethod, 0);
  });
}

TEST_F(OptionsDialogTest, ChoosingAPositionStoresItsNumber) {
  Open([this](HWND dialog) {
    for (int i = 0; i < 4; ++i) {
      ChooseEntry(dialog, 917, i);
      EXPECT_EQ(settings_.newWindowDockingPosition, i);
    }
  });
}

TEST_F(OptionsDialogTest, OnlyAChangedSelectionCounts) {
  Open([this](HWND dialog) {
    for (const int notification : {CBN_SETFOCUS, CBN_DROPDOWN, CBN_CLOSEUP, CBN_SELENDOK, CBN_KILLFOCUS}) {
      for (const int id : {917, 918, 920}) {
        SendDlgItemMessageA(dialog, id, CB_SETCURSEL, 0, 0);
        SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(id, notification),
                     reinterpret_cast<LPARAM>(GetDlgItem(dialog, id)));
      }
    }
    EXPECT_EQ(settings_.newWindowCreationMethod, 5);
    EXPECT_EQ(settings_.newWindowDockingPosition, 3);
    EXPECT_EQ(host_.repaints.size(), 1U);
  });
}

TEST_F(OptionsDialogTest, TheMethodsDropDownTwoHundredPixelsWide) {
  Open([](HWND dialog) {
    RECT box = {};
    GetWindowRect(GetDlgItem(dialog, 918), &box);
    const LRESULT dropped = SendDlgItemMessageA(dialog, 918, CB_GETDROPPEDWIDTH, 0, 0);
    EXPECT_EQ(dropped,
              std::max<LRESULT>(200, box.right - box.left));  // a list is never narrower than its box
  });
}

TEST_F(OptionsDialogTest, EachCheckBoxShowsItsOptionAndFlipsIt) {
  settings_.treeViewShowsFiles = 7;  // any number but 0 is on
  Open([this](HWND dialog) {
    for (const OptionsCheckBox& box : OptionsCheckBoxes()) {
      const bool before = settings_.*box.flag != 0;
      EXPECT_EQ(IsChecked(dialog, box.id), before) << box.id;
      SendDlgItemMessageA(dialog, box.id, BM_CLICK, 0, 0);
      EXPECT_EQ(settings_.*box.flag, before ? 0 : 1) << box.id;
      EXPECT_EQ(IsChecked(dialog, box.id), !before) << box.id;
      SendDlgItemMessageA(dialog, box.id, BM_CLICK, 0, 0);
      EXPECT_EQ(settings_.*box.flag, before ? 1 : 0) << box.id;
      EXPECT_EQ(IsChecked(dialog, box.id), before) << box.id;
    }
  });
}

TEST_F(OptionsDialogTest, ABoxFollowsItsOptionAndNotItsOwnMark) {
  Open([this](HWND dialog) {
    CheckDlgButton(dialog, 913, BST_CHECKED);  // out of step with the option, which is off
    PressButton(dialog, 913);
    EXPECT_EQ(settings_.treeViewShowsFiles, 1);
    EXPECT_TRUE(IsChecked(dialog, 913));
  });
}

TEST_F(OptionsDialogTest, WithoutFormatsOnlyObjectsAndBitmapsHaveColours) {
  ForgetFormats();
  Open([](HWND dialog) {
    EXPECT_THAT(Entries(dialog, 920), ElementsAre("3D object files", "2D bitmap files"));
    EXPECT_EQ(Selected(dialog, 920), 0);
  });
}

TEST_F(OptionsDialogTest, ColoursAreOfferedForRegisteredFormatsWithTheirOwnNumbers) {
  ForgetFormats();
  RegisterFormat(kTxTypeArchive);
  RegisterFormat(kTxTypeAudio | kTxTypePresentation);
  Open([](HWND dialog) {
    EXPECT_THAT(Entries(dialog, 920),
                ElementsAre("3D object files", "2D bitmap files", "ZIP and archive files", "Audio files",
                            "Presentation files"));
    std::vector<LRESULT> numbers;
    for (WPARAM i = 0; i < 5; ++i) numbers.push_back(SendDlgItemMessageA(dialog, 920, CB_GETITEMDATA, i, 0));
    EXPECT_THAT(numbers, ElementsAre(0, 1, 4, 6, 9));
  });
}

// One category of the colour list.
struct ColorCase {
  int number;
  std::int64_t typeBit;
  const char* entry;
  const char* title;
};

class OptionsColorTest : public OptionsDialogFixture, public testing::WithParamInterface<ColorCase> {};

TEST_P(OptionsColorTest, IsPickedUnderItsTitleIntoItsSlot) {
  const ColorCase& row = GetParam();
  ForgetFormats();
  RegisterFormat(row.typeBit);
  const CategoryColors before = settings_.colors;
  host_.answer = {1.0F, 0.75F, 0.125F};
  Open([&](HWND dialog) {
    const std::vector<std::string> entries = Entries(dialog, 920);
    const auto found = std::find(entries.begin(), entries.end(), row.entry);
    ASSERT_NE(found, entries.end());
    ChooseEntry(dialog, 920, static_cast<int>(found - entries.begin()));
    EXPECT_EQ(host_.repaints.back().color, before[static_cast<size_t>(row.number)]);
    EXPECT_EQ(host_.drawings.back().color, before[static_cast<size_t>(row.number)]);
    PressButton(dialog, 921);
    ASSERT_EQ(host_.picks.size(), 1U);
    EXPECT_EQ(host_.picks[0].dialog, dialog);
    EXPECT_EQ(host_.picks[0].title, row.title);
    EXPECT_EQ(host_.picks[0].color, before[static_cast<size_t>(row.number)]);
    EXPECT_EQ(host_.drawings.back().color, host_.answer) << "the button shows the new colour";
  });
  for (size_t i = 0; i < before.size(); ++i) {
    EXPECT_EQ(settings_.colors[i], static_cast<int>(i) == row.number ? host_.answer : before[i]) << i;
  }
}

INSTANTIATE_TEST_SUITE_P(Categories, OptionsColorTest,
                         testing::Values(ColorCase{0, 4, "3D object files", "3D File Items Color"},
                                         ColorCase{1, 2, "2D bitmap files", "2D Bitmap File Items Color"},
                                         ColorCase{2, 1024, "2D Vector files", "2D Vector File Items Color"},
                                         ColorCase{3, 64, "Text files", "Text Files Color"},
                                         ColorCase{4, 32, "ZIP and archive files", "Archive Files Color"},
                                         ColorCase{5, 8, "Video files", "Video Files Color"},
                                         ColorCase{6, 16, "Audio files", "Audio Files Color"},
                                         ColorCase{7, 128, "Spreadsheet files", "Spreadsheet Files Color"},
                                         ColorCase{8, 256, "Database files", "Database Files Color"},
                                         ColorCase{9, 512, "Presentation files", "Presentation Files Color"}),
                         [](const auto& info) { return "Category" + std::to_string(info.param.number); });

TEST_F(OptionsDialogTest, ACancelledPickKeepsTheColour) {
  host_.picked = false;
  const CategoryColors before = settings_.colors;
  Open([](HWND dialog) { PressButton(dialog, 921); });
  EXPECT_EQ(host_.picks.size(), 1U);
  EXPECT_EQ(settings_.colors, before);
}

TEST_F(OptionsDialogTest, OpeningAsksTheHostToRepaintTheColourButton) {
  Open([this](HWND dialog) {
    ASSERT_EQ(host_.repaints.size(), 1U);
    EXPECT_EQ(host_.repaints[0].dialog, dialog);
    EXPECT_EQ(host_.repaints[0].id, 921);
    EXPECT_EQ(host_.repaints[0].color, settings_.colors[0]);
    ASSERT_FALSE(host_.drawings.empty());
    EXPECT_EQ(host_.drawings.back().id, 921);
    EXPECT_EQ(host_.drawings.back().color, settings_.colors[0]);
  });
}

TEST_F(OptionsDialogTest, AHostWithoutColoursAndDialogsDoesNoHarm) {
  context_.services = nullptr;
  Open([](HWND dialog) {
    PressButton(dialog, 921);
    PressButton(dialog, 1015);
  });
  EXPECT_EQ(saves_, 1);
}

TEST_F(OptionsDialogTest, ShowsTheHomeDirectoryOrNothing) {
  Open([](HWND dialog) { EXPECT_EQ(TextOf(dialog, 1000), ""); });
  settings_.homeDirectoryName.reset(Import_IO_Copy_String("c:\\models & scenes"));
  Open([](HWND dialog) { EXPECT_EQ(TextOf(dialog, 1000), "c:\\models & scenes"); });
}

TEST_F(OptionsDialogTest, TheCurrentDirectoryBecomesHome) {
  const test_support::TempDirectory directory;
  settings_.homeDirectory = ParsePath("c:\\");
  settings_.homeDirectoryName.reset(Import_IO_Copy_String("c:\\"));
  context_.currentFolder = [&] { return ParsePath(directory.narrow()); };
  Open([&](HWND dialog) {
    PressButton(dialog, 923);
    EXPECT_EQ(TextOf(dialog, 1000), directory.narrow());
  });
  EXPECT_EQ(ParsingName(settings_.homeDirectory.get()), directory.narrow());
  EXPECT_STREQ(settings_.homeDirectoryName.get(), directory.narrow().c_str());
}

TEST_F(OptionsDialogTest, WithoutACurrentDirectoryHomeStays) {
  settings_.homeDirectory = ParsePath("c:\\");
  settings_.homeDirectoryName.reset(Import_IO_Copy_String("my drive"));
  for (const auto& none :
       {std::function<unique_pidl()>(), std::function<unique_pidl()>([] { return unique_pidl(); })}) {
    context_.currentFolder = none;
    Open([](HWND dialog) {
      PressButton(dialog, 923);
      EXPECT_EQ(TextOf(dialog, 1000), "my drive");
    });
  }
  EXPECT_TRUE(settings_.homeDirectory);
}

TEST_F(OptionsDialogTest, ACallbackThatFailsLeavesTheDialogAsItWas) {
  context_.currentFolder = []() -> unique_pidl { throw std::runtime_error("no folder"); };
  Open([](HWND dialog) {
    PressButton(dialog, 923);
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
  context_.save = [] { throw std::runtime_error("no disk"); };
  Open([](HWND) {});  // Ok closes all the same
}

TEST_F(OptionsDialogTest, ResetAsksFirstAndNoChangesNothing) {
  settings_.newWindowCreationMethod = 0;
  Open([this](HWND dialog) {
    test_support::MessageBoxRecorder boxes;
    boxes.AnswerWith(IDNO);
    PressButton(dialog, 919);
    ASSERT_EQ(boxes.boxes().size(), 1U);
    EXPECT_EQ(boxes.boxes()[0].owner, dialog);
    EXPECT_EQ(boxes.boxes()[0].caption, "Confirmation Request");
    EXPECT_EQ(boxes.boxes()[0].text,
              "This will reset the values of this dialog box to their power-up defaults.\n\nAre you sure you "
              "want to do "
              "this?");
    EXPECT_THAT(boxes.boxes()[0].buttons, ElementsAre(IDYES, IDNO));
    EXPECT_EQ(boxes.boxes()[0].icon, static_cast<UINT>(MB_ICONQUESTION));
    EXPECT_EQ(settings_.newWindowCreationMethod, 0);
    EXPECT_EQ(Selected(dialog, 918), 0);
  });
}

TEST_F(OptionsDialogTest, ResetShowsThePowerUpDefaults) {
  settings_.newWindowCreationMethod = 0;
  settings_.newWindowDockingPosition = 2;
  settings_.fileViewShowsGridLines = 0;
  settings_.fileExtensionFilteringMethod = 4;
  settings_.homeDirectoryName.reset(Import_IO_Copy_String("c:\\home"));
  settings_.fileInclusionList.reset(Import_IO_Copy_String("*.obj"));
  Open([this](HWND dialog) {
    test_support::MessageBoxRecorder boxes;
    boxes.AnswerWith(IDYES);
    ChooseEntry(dialog, 920, 1);
    PressButton(dialog, 919);
    EXPECT_EQ(Selected(dialog, 918), 1);
    EXPECT_EQ(Selected(dialog, 917), 3);
    EXPECT_TRUE(IsChecked(dialog, 906));
    EXPECT_TRUE(IsChecked(dialog, 907));
    EXPECT_TRUE(IsChecked(dialog, 911));
    EXPECT_FALSE(IsWindowVisible(GetDlgItem(dialog, 911)));
    EXPECT_EQ(Entries(dialog, 918).size(), 2U);
    EXPECT_EQ(Entries(dialog, 917).size(), 4U);
    EXPECT_EQ(Selected(dialog, 920), 0);
    EXPECT_EQ(TextOf(dialog, 1000), "c:\\home");
    CategoryColors factory = {};
    ResetAndFetchCategoryColors(&factory);
    EXPECT_EQ(settings_.colors, factory);
    EXPECT_EQ(host_.repaints.back().color, factory[0]);
  });
  SettingsValues expected;
  expected.treeViewShowsHiddenFiles = 1;
  expected.fileViewShowsHiddenItems = 1;
  expected.fileExtensionFilteringMethod = 4;
  expected.colors = settings_.colors;
  EXPECT_EQ(static_cast<SettingsValues&>(settings_), expected);
  EXPECT_STREQ(settings_.fileInclusionList.get(), "*.obj");
  EXPECT_EQ(saves_, 1) << "by Ok, not by Reset";
}

TEST_F(OptionsDialogTest, AfterResetTheFirstCategoryIsPicked) {
  Open([this](HWND dialog) {
    test_support::MessageBoxRecorder boxes;
    boxes.AnswerWith(IDYES);
    ChooseEntry(dialog, 920, 1);
    PressButton(dialog, 919);
    PressButton(dialog, 921);
    EXPECT_EQ(host_.picks.back().title, "3D File Items Color");
  });
}

TEST_F(OptionsDialogTest, DragAndDropConfirmationsAreTheHosts) {
  Open([this](HWND dialog) {
    PressButton(dialog, 1015);
    EXPECT_THAT(host_.dialogs, ElementsAre(std::pair<std::string, HWND>(
                                   "StartupPreferencesOptionsDialogBox-DragDropTab", dialog)));
  });
}

std::string openedPage;

TEST_F(OptionsDialogTest, HelpShowsTheFolderOptions) {
  const test_support::TempDirectory help;
  help.AddFile(L"ui_file_explorer\\folder options.html", "<p>help</p>");
  context_.helpLocation = help.narrow();
  openedPage.clear();
  Import_IO_SetHelpOpener([](const char* page) {
    openedPage = page;
    return 1;
  });
  Open([](HWND dialog) { PressButton(dialog, 901); });
  Import_IO_SetHelpOpener(nullptr);
  EXPECT_EQ(openedPage, help.Join(std::string_view("ui_file_explorer\\folder options.html")));
}

TEST_F(OptionsDialogTest, OkAloneSavesAndCloses) {
  Open([this](HWND dialog) {
    for (const int id : {IDCANCEL, 916, 4711, 1000}) PressButton(dialog, id);
    SendMessageA(dialog, WM_CLOSE, 0, 0);
    SendMessageA(dialog, WM_SYSCOMMAND, SC_CLOSE, 0);
    test_support::TypeKey(dialog, VK_ESCAPE);
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(saves_, 0);
    PressButton(dialog, IDOK);
    EXPECT_EQ(saves_, 1);
  });
  EXPECT_EQ(saves_, 1);
  EXPECT_TRUE(IsWindowEnabled(owner_));
}

TEST_F(OptionsDialogTest, WithoutItsTemplateItReportsThatItDidNotOpen) {
  EXPECT_FALSE(RunOptionsDialog(owner_, GetModuleHandleA("kernel32.dll"), context_));
  EXPECT_EQ(saves_, 0);
}

}  // namespace
}  // namespace file_explorer
