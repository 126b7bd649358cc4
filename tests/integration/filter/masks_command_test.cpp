// The command "Set File Selection Mask" in the real module and workbench.
#include <gmock/gmock.h>

#include "src/host/vc64_tx.h"
#include "tests/integration/filter/masks_dialog_visitor.h"
#include "tests/support/explorer/explorer_fixture.h"
#include "tests/support/wait_until.h"

namespace file_explorer {
namespace {

using test_support::WaitUntil;

class MasksCommandTest : public testing::Test {
 protected:
  void SetUp() override {
    fixture_.directory().AddFile(L"files\\a.3ds");
    fixture_.directory().AddFolder(L"files\\below");
    fixture_.Start();
    ASSERT_TRUE(fixture_.LoadExplorer());
    ASSERT_EQ(fixture_.SayWithHost({{"showfolderviewpanel", nullptr}}), 0U);
    ASSERT_TRUE(fixture_.WaitForFile("a.3ds"));
  }

  void Open(const std::function<void(HWND dialog)>& visit) {
    const MasksDialogVisit visitor(visit);
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 104, 0);
    EXPECT_TRUE(visitor.visited());
  }

  std::string Stored(const char* key) {
    char text[2048] = "";
    GetPrivateProfileStringA("Explore", key, "(none)", text, sizeof text, fixture_.ProfilePath().c_str());
    return text;
  }

  test_support::ExplorerFixture fixture_;
};

TEST_F(MasksCommandTest, OpensTheDialogModalToTheMainWindow) {
  const HWND main = fixture_.workbench().window();
  Open([main](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), main);
    EXPECT_FALSE(IsWindowEnabled(main));
  });
  EXPECT_TRUE(IsWindowEnabled(main));
}

TEST_F(MasksCommandTest, OkSavesTheMasksInTheProfile) {
  Open([](HWND dialog) {
    SetDlgItemTextA(dialog, 1000, "*.3ds, *.obj");
    SetDlgItemTextA(dialog, 1001, "test*");
    SendDlgItemMessageA(dialog, 1003, CB_SETCURSEL, 2, 0);
    SendMessageA(dialog, WM_COMMAND, MAKEWPARAM(1003, CBN_SELCHANGE),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog, 1003)));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Stored("FileInclusionList"), "*.3ds,*.obj");
  EXPECT_EQ(Stored("FileExclusionList"), "test*");
  EXPECT_EQ(Stored("FileExtensionFilteringMethod"), "2");
  Open([](HWND dialog) {
    EXPECT_EQ(ControlText(dialog, 1000), "*.3ds,*.obj");
    EXPECT_EQ(ControlText(dialog, 1001), "test*");
    EXPECT_EQ(ControlText(dialog, 1003), "Show only known 3D object file types");
  });
}

// In the module, whose boxes are those of common controls 6: the 8-bit message for an entry's text gives them a buffer
// of 512 characters on some platforms, whatever the length of the entry.
TEST_F(MasksCommandTest, ListsOfAnyLengthAreStoredAndShownAgain) {
  const std::string current(600, 'y');
  const std::string entry(1200, 'x');
  Open([&](HWND dialog) {
    SetDlgItemTextA(dialog, 1000, current.c_str());
    SendDlgItemMessageA(dialog, 1000, CB_RESETCONTENT, 0, 0);
    SetDlgItemTextA(dialog, 1000, current.c_str());
    SendDlgItemMessageW(dialog, 1000, CB_ADDSTRING, 0,
                        reinterpret_cast<LPARAM>(std::wstring(entry.begin(), entry.end()).c_str()));
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Stored("FileInclusionList"), current + "|" + entry);
  Open([&](HWND dialog) {
    EXPECT_EQ(GetWindowTextLengthW(GetDlgItem(dialog, 1000)), 600);
    EXPECT_EQ(SendDlgItemMessageW(dialog, 1000, CB_GETLBTEXTLEN, 1, 0), 1200);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(Stored("FileInclusionList"), current + "|" + entry);
}

TEST_F(MasksCommandTest, TheFileViewIsFilledAnew) {
  const auto include = [this](const char* patterns) {
    Open([&](HWND dialog) {
      SetDlgItemTextA(dialog, 1000, patterns);
      Press(dialog, IDOK);
    });
  };
  include("*.obj");
  EXPECT_TRUE(WaitUntil([&] { return fixture_.IndexOf("a.3ds") < 0; })) << "every file is asked about again";
  EXPECT_TRUE(fixture_.WaitForFile("below")) << "the folder is the same";
  include("*.3ds");
  EXPECT_TRUE(fixture_.WaitForFile("a.3ds"));
}

TEST_F(MasksCommandTest, FolderOptionsReachTheFileView) {
  ASSERT_TRUE(fixture_.WaitForFile("below"));
  Open([](HWND dialog) {
    Press(dialog, 909);
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(WaitUntil([&] { return fixture_.IndexOf("below") < 0 && fixture_.IndexOf("a.3ds") >= 0; }));
  EXPECT_EQ(Stored("FileView_ShowFolders"), "0");
  Open([](HWND dialog) {
    Press(dialog, 909);
    Press(dialog, IDOK);
  });
  EXPECT_TRUE(fixture_.WaitForFile("below"));
}

TEST_F(MasksCommandTest, ColoursGoToTheHostOnlyWhenFolderOptionsChanged) {
  const auto red = [] {
    float parts[3] = {};
    Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(kTxTypeText, &parts[0], &parts[1], &parts[2]);
    return parts[0];
  };
  const float own = red();
  Tx_FileFormatHandler_SetAssociatedFileTypeHandlerColor(kTxTypeText, 0.125F, 0.0F, 0.0F);
  Open([](HWND dialog) { Press(dialog, IDOK); });
  EXPECT_EQ(red(), 0.125F);
  Open([](HWND dialog) {
    Press(dialog, 908);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(red(), own);
}

TEST_F(MasksCommandTest, TheSelectorToolbarOpensItToo) {
  const MasksDialogVisit visitor([](HWND dialog) { Press(dialog, IDOK); });
  SendMessageA(fixture_.Panel(), WM_COMMAND, 104, 0);
  EXPECT_TRUE(visitor.visited());
}

TEST_F(MasksCommandTest, ASecondDialogDoesNotOpenBesideTheFirst) {
  constexpr int kOptionsCommand = 105;
  int dialogs = 0;
  Open([&](HWND dialog) {
    // The toolbars of the explorer and of the panel; either can be in a window that the host floats.
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, 104, 0);
    SendMessageA(fixture_.Panel(), WM_COMMAND, 104, 0);
    SendMessageA(fixture_.ExplorerWindow(), WM_COMMAND, kOptionsCommand, 0);
    for (HWND window = nullptr; (window = FindWindowExA(nullptr, window, "#32770", nullptr)) != nullptr;) {
      dialogs += IsWindowVisible(window) ? 1 : 0;
    }
    Press(dialog, IDOK);
  });
  EXPECT_EQ(dialogs, 1);
  // And it opens again when the first is gone.
  Open([](HWND dialog) { Press(dialog, IDOK); });
}

TEST_F(MasksCommandTest, TakingTheInstanceDownWhileItIsOpenEndsCleanly) {
  Open([this](HWND dialog) {
    EXPECT_TRUE(IsWindowVisible(dialog));
    EXPECT_EQ(fixture_.SayWithHost({{"destroy_instance", nullptr}}), 0U);
  });
  EXPECT_EQ(fixture_.ExplorerWindow(), nullptr);
}

}  // namespace
}  // namespace file_explorer
