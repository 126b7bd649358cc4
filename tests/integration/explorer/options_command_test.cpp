// The options command: the dialog in the running explorer, and what is applied when it is closed.
#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <string>

#include "src/host/vc64_imp.h"
#include "src/host/vc64_tx.h"
#include "tests/support/dialog_visits.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"
#include "workbench/app/main/commands.h"

namespace {

using test_support::DialogVisits;
using test_support::PressButton;
using test_support::WaitUntil;
using testing::Contains;
using testing::Not;

constexpr char kCaption[] = "Explore Options";
constexpr int kOptionsCommand = 105;

class OptionsCommandTest : public testing::Test {
 protected:
  void Begin() {
    fixture_.directory().AddFile(L"files\\here.obj");
    fixture_.directory().AddFolder(L"files\\below");
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFile("here.obj"));
  }

  // Opens the dialog by its command, lets `visit` act on it and closes it with Ok.
  void Options(std::function<void(HWND)> visit) {
    DialogVisits visits;
    visits.Expect(kCaption, IDOK, std::move(visit));
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, kOptionsCommand, 0);
    EXPECT_TRUE(visits.Done()) << "the dialog did not come up";
  }

  std::string Profile(const char* key) const {
    char text[512] = "";
    GetPrivateProfileStringA("Explore", key, "<missing>", text, sizeof(text), fixture_.ProfilePath().c_str());
    return text;
  }
  // Dialogs in sight, of whatever kind.
  static int CountDialogs() {
    int count = 0;
    for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, "#32770", nullptr)) != nullptr;) {
      count += IsWindowVisible(window) ? 1 : 0;
    }
    return count;
  }
  bool HasGridLines() const {
    return (SendMessageA(fixture_.FileList(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0) & LVS_EX_GRIDLINES) != 0;
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(OptionsCommandTest, OpensTheDialogOwnedByTheHostsMainWindow) {
  Begin();
  Options([this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), fixture_.workbench().window());
    EXPECT_FALSE(IsWindowEnabled(fixture_.workbench().window()));
    EXPECT_EQ(test_support::TextOf(GetDlgItem(dialog, 1000)), fixture_.FilesFolder());
  });
  EXPECT_TRUE(IsWindowEnabled(fixture_.workbench().window()));
}

TEST_F(OptionsCommandTest, ThePanelsToolbarLeadsToTheSameDialog) {
  Begin();
  DialogVisits visits;
  visits.Expect(kCaption, IDOK, nullptr);
  SendMessageA(fixture_.Panel(), WM_COMMAND, kOptionsCommand,
               reinterpret_cast<LPARAM>(fixture_.PanelChild(32004)));
  EXPECT_TRUE(visits.Done());
}

TEST_F(OptionsCommandTest, TheGoToMenusEntryForTheHomeDirectoryLeadsToTheSameDialog) {
  Begin();
  DialogVisits visits;
  visits.Expect(kCaption, IDOK, nullptr);
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 2012, 0);
  EXPECT_TRUE(visits.Done());
}

TEST_F(OptionsCommandTest, OkSavesTheSettings) {
  Begin();
  EXPECT_EQ(Profile("FileView_SingleClickFileLoading"), "<missing>");
  Options([](HWND dialog) { PressButton(dialog, 922); });
  EXPECT_EQ(Profile("FileView_SingleClickFileLoading"), "1");
  EXPECT_EQ(Profile("FileExclusionList"), "");
}

TEST_F(OptionsCommandTest, TheHostIsToldToRedraw) {
  Begin();
  int before = 0;
  Options([&](HWND) { before = fixture_.services().CountCalls("RedrawBracket"); });
  EXPECT_GT(fixture_.services().CountCalls("RedrawBracket"), before);
}

// Counts a message that a window of the test's process gets.
class MessageCount {
 public:
  MessageCount(HWND window, UINT message) : window_(window) {
    counted_ = message;
    count_ = 0;
    previous_ = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&MessageCount::Procedure)));
  }
  ~MessageCount() { SetWindowLongPtrA(window_, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(previous_)); }
  MessageCount(const MessageCount&) = delete;
  MessageCount& operator=(const MessageCount&) = delete;
  int count() const { return count_; }

 private:
  static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == counted_) ++count_;
    return CallWindowProcA(previous_, window, message, wParam, lParam);
  }

  static inline UINT counted_ = 0;
  static inline int count_ = 0;
  static inline WNDPROC previous_ = nullptr;
  HWND window_;
};

TEST_F(OptionsCommandTest, TheFileTypesAreReadAgainOnceTheDialogIsClosed) {
  Begin();
  constexpr UINT kFileTypesChanged = 0x414;
  const MessageCount messages(fixture_.ExplorerWindow(), kFileTypesChanged);
  Options([&](HWND) { EXPECT_EQ(messages.count(), 0); });
  EXPECT_EQ(messages.count(), 1);
}

TEST_F(OptionsCommandTest, TheListIsReadAgain) {
  Begin();
  Options([this](HWND) { fixture_.directory().AddFile(L"files\\later.obj"); });
  EXPECT_TRUE(fixture_.WaitForFile("later.obj"));
}

TEST_F(OptionsCommandTest, ASecondDialogDoesNotOpenBesideTheFirst) {
  Begin();
  int dialogs = 0;
  Options([&](HWND dialog) {
    // The toolbars of the explorer and of the panel; either can be in a window that the host floats.
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, kOptionsCommand, 0);
    SendMessageA(fixture_.Panel(), WM_COMMAND, kOptionsCommand, 0);
    dialogs = CountDialogs();
    EXPECT_TRUE(IsWindowVisible(dialog));
  });
  EXPECT_EQ(dialogs, 1);
  Options(nullptr);  // and it opens again when the first is gone
}

TEST_F(OptionsCommandTest, NoOtherDialogOpensOnTopOfIt) {
  Begin();
  int dialogs = 0;
  Options([&](HWND) {
    constexpr int kMasksCommand = 104;
    constexpr int kAddToFavoritesCommand = 109;
    for (const int command : {kMasksCommand, kAddToFavoritesCommand}) {
      SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, static_cast<WPARAM>(command), 0);
    }
    dialogs = CountDialogs();
  });
  EXPECT_EQ(dialogs, 1);
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

TEST_F(OptionsCommandTest, ClosingTheExplorerWhileTheDialogIsOpenDoesNoHarm) {
  Begin();
  Options([this](HWND) { fixture_.SayWithHost({{"destroy_instance", nullptr}}); });
  EXPECT_EQ(fixture_.ExplorerWindow(), nullptr);
}

TEST_F(OptionsCommandTest, GridLinesGoToTheFileView) {
  Begin();
  EXPECT_TRUE(HasGridLines());
  Options([](HWND dialog) { PressButton(dialog, 906); });
  EXPECT_FALSE(HasGridLines());
  Options([](HWND dialog) { PressButton(dialog, 906); });
  EXPECT_TRUE(HasGridLines());
}

TEST_F(OptionsCommandTest, FoldersLeaveTheFileViewAndComeBack) {
  Begin();
  ASSERT_TRUE(fixture_.WaitForFile("below"));
  Options([](HWND dialog) { PressButton(dialog, 909); });
  EXPECT_TRUE(WaitUntil([&] { return fixture_.FileNames() == std::vector<std::string>{"here.obj"}; }));
  Options([](HWND dialog) { PressButton(dialog, 909); });
  EXPECT_TRUE(fixture_.WaitForFile("below"));
}

TEST_F(OptionsCommandTest, VirtualFoldersLeaveTheFileView) {
  fixture_.options().folder.clear();  // the desktop, which has some
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  ASSERT_TRUE(WaitUntil([&] { return !fixture_.FileNames().empty(); }));
  const size_t before = fixture_.FileNames().size();
  Options([](HWND dialog) { PressButton(dialog, 908); });
  EXPECT_TRUE(WaitUntil([&] { return fixture_.FileNames().size() < before; }));
}

TEST_F(OptionsCommandTest, VirtualFoldersLeaveTheTree) {
  Begin();
  const auto items = [&] { return SendMessageA(fixture_.FolderTree(), TVM_GETCOUNT, 0, 0); };
  ASSERT_TRUE(WaitUntil([&] { return items() > 3; }));
  const LRESULT before = items();
  Options([](HWND dialog) { PressButton(dialog, 912); });
  EXPECT_TRUE(WaitUntil([&] { return items() > 0 && items() < before; }));
}

TEST_F(OptionsCommandTest, CategoryColoursGoToTheHost) {
  Begin();
  fixture_.services().Override<host::op::PickColor>(
      [](HWND, const char* title, float* red, float* green, float* blue) {
        EXPECT_STREQ(title, "3D File Items Color");
        *red = 0.5F;
        *green = 0.25F;
        *blue = 1.0F;
        return 1;
      });
  Options([](HWND dialog) { PressButton(dialog, 921); });
  float red = 0;
  float green = 0;
  float blue = 0;
  ASSERT_TRUE(Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(kTxTypeObject3D, &red, &green, &blue));
  EXPECT_EQ(red, 0.5F);
  EXPECT_EQ(green, 0.25F);
  EXPECT_EQ(blue, 1.0F);
  EXPECT_EQ(Profile("default_color_3D_object_files"), "0.5 0.25 1");
}

TEST_F(OptionsCommandTest, TheHostsDialogIsOwnedByTheOptions) {
  Begin();
  std::string keyword;
  HWND owner = nullptr;
  fixture_.services().Override<host::op::ShowHostDialog>(
      [&](const char* name, HWND window, const char*, std::intptr_t, std::intptr_t, std::intptr_t) {
        keyword = name;
        owner = window;
        return 1;
      });
  HWND options = nullptr;
  Options([&](HWND dialog) {
    options = dialog;
    PressButton(dialog, 1015);
  });
  EXPECT_EQ(keyword, "StartupPreferencesOptionsDialogBox-DragDropTab");
  EXPECT_EQ(owner, options);
}

TEST_F(OptionsCommandTest, TheFolderThatIsShownBecomesHomeAndIsRememberedInTheLink) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin();
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  const std::string below = fixture_.FilesFolder() + "\\below";
  Options([&](HWND dialog) {
    PressButton(dialog, 923);
    EXPECT_EQ(test_support::TextOf(GetDlgItem(dialog, 1000)), below);
  });
  EXPECT_EQ(Profile("CurrHomeDirectoryDisplayNameInAscii"), below);
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 101, 0);
  ASSERT_TRUE(fixture_.WaitForFile("here.obj"));
  SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 103, 0);
  EXPECT_TRUE(fixture_.WaitForFile("inner.obj"));
  // The next run reads it from the link.
  fixture_.Close();
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  Options([&](HWND dialog) { EXPECT_EQ(test_support::TextOf(GetDlgItem(dialog, 1000)), below); });
}

TEST_F(OptionsCommandTest, TheDesktopOnWhichTheExplorerStartsIsTheDesktopItself) {
  fixture_.options().folder.clear();
  fixture_.Start();
  ASSERT_TRUE(fixture_.LoadExplorer());
  ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
  char desktop[MAX_PATH] = "";
  ASSERT_TRUE(SHGetSpecialFolderPathA(nullptr, desktop, CSIDL_DESKTOPDIRECTORY, FALSE));
  Options([&](HWND dialog) {
    SetDlgItemTextA(dialog, 1000, "");
    PressButton(dialog, 923);
    EXPECT_STRCASEEQ(test_support::TextOf(GetDlgItem(dialog, 1000)).c_str(), desktop);
  });
}

// Keeps the help page that is asked for instead of showing it.
class HelpRecorder {
 public:
  HelpRecorder() {
    page().clear();
    Import_IO_SetHelpOpener([](const char* path) {
      page() = path;
      return 1;
    });
  }
  ~HelpRecorder() { Import_IO_SetHelpOpener(nullptr); }
  static std::string& page() {
    static std::string path;
    return path;
  }
};

TEST_F(OptionsCommandTest, HelpShowsThePageAboutTheOptions) {
  Begin();
  const HelpRecorder help;
  Options([](HWND dialog) { PressButton(dialog, 901); });
  EXPECT_THAT(help.page(), testing::EndsWith("\\help\\ui_file_explorer\\folder options.html"));
}

TEST_F(OptionsCommandTest, TheHostsHelpMenuLeadsToEachPage) {
  Begin();
  const HMENU menu = GetSubMenu(GetMenu(fixture_.workbench().window()), 2);
  struct Row {
    UINT command;
    const char* page;
  };
  for (const Row& row : {Row{workbench::kCommandHelpTopics, "main.html"},
                         Row{workbench::kCommandHelpOptions, "folder options.html"},
                         Row{workbench::kCommandHelpMasks, "file selection masks dialog box.html"}}) {
    EXPECT_NE(GetMenuState(menu, row.command, MF_BYCOMMAND), static_cast<UINT>(-1)) << row.page;
    const HelpRecorder help;
    SendMessageA(fixture_.workbench().window(), WM_COMMAND, row.command, 0);
    EXPECT_THAT(help.page(), testing::EndsWith(std::string("\\help\\ui_file_explorer\\") + row.page));
    EXPECT_NE(GetFileAttributesA(help.page().c_str()), INVALID_FILE_ATTRIBUTES);
  }
}

}  // namespace
