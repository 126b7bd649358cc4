#include "workbench/app/dialogs/host_dialogs.h"

#include <gtest/gtest.h>

#include "src/host/vc64_tx.h"
#include "tests/integration/documents/dialog_driver.h"
#include "tests/integration/documents/view_host.h"
#include "tests/support/temp_directory.h"
#include "workbench/app/dialogs/about_dialog.h"
#include "workbench/app/dialogs/directory_paths_dialog.h"
#include "workbench/app/dialogs/drag_drop_dialog.h"
#include "workbench/app/dialogs/import_options_dialog.h"

namespace document_tests {
namespace {

using test_support::TempDirectory;
using workbench::ShowHostDialog;

constexpr char kPaths[] = "EnvVariablesDialog-DirectoryPaths-Tab";
constexpr char kImport[] = "ImportConverterOptionsDialogBox";
constexpr char kDragDrop[] = "StartupPreferencesOptionsDialogBox-DragDropTab";
constexpr char kGuid[] = "{5B0C6D0A-3F60-4B52-9E0B-4E5B4F1C2A77}";

std::wstring ItemText(HWND dialog, int id) {
  return WindowText(GetDlgItem(dialog, id));
}

// The texts of all controls, a line each.
std::wstring AllTexts(HWND dialog) {
  std::wstring all;
  for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
    all += WindowText(child) + L"\n";
  }
  return all;
}

class HostDialogs : public testing::Test {
 protected:
  std::string ProfileText(const char* section, const char* key) const {
    char value[2048] = "";
    GetPrivateProfileStringA(section, key, "(absent)", value, sizeof value, profile_.c_str());
    return value;
  }
  bool ShowAndAct(const char* keyword, const std::function<void(HWND)>& act, const char* argument = nullptr) {
    const DialogDriver driver(act);
    const bool shown = ShowHostDialog(keyword, host_.window(), argument, profile_);
    EXPECT_EQ(driver.acted(), shown);
    EXPECT_TRUE(IsWindowEnabled(host_.window())) << "the owner is usable again";
    return shown;
  }

  TempDirectory folder_;
  std::string profile_ = folder_.Join("profile.ini");
  ViewHost host_{700, 500};
};

TEST_F(HostDialogs, RefuseAnUnknownKeyword) {
  for (const char* keyword :
       {"", "Unknown", "envvariablesdialog-directorypaths-tab", "ImportConverterOptionsDialogBo"}) {
    EXPECT_FALSE(ShowHostDialog(keyword, host_.window(), nullptr, profile_));
  }
}

TEST_F(HostDialogs, AreNotShownForAnOwnerThatIsNoWindow) {
  const HWND gone = reinterpret_cast<HWND>(0x7FFFFFF0);
  EXPECT_FALSE(ShowHostDialog(kPaths, gone, nullptr, profile_));
}

TEST_F(HostDialogs, DirectoryPathsShowsTheProfileTheDefaultsAndTheWorkingDirectory) {
  WritePrivateProfileStringA("Search-Paths", "Default-Textures-Directory", "d:\\my textures",
                             profile_.c_str());
  Tx_Set_Environment("TS_WORKING_DIR", "d:\\work");
  EXPECT_TRUE(ShowAndAct(kPaths, [](HWND dialog) {
    EXPECT_EQ(ItemText(dialog, workbench::kWorkingDirectoryEdit), L"d:\\work");
    const wchar_t* expected[] = {L"d:\\my textures", L"scenes",  L"objects",
                                 L"objects",         L"objects", L"images"};
    for (int i = 0; i < workbench::kPathRows; ++i) {
      EXPECT_EQ(ItemText(dialog, workbench::kFirstPathEdit + i), expected[i]);
    }
    EXPECT_EQ(GetFocus(), GetDlgItem(dialog, workbench::kFirstPathEdit));
    Press(dialog, IDCANCEL);
  }));
  Tx_Set_Environment("TS_WORKING_DIR", nullptr);
}

TEST_F(HostDialogs, DirectoryPathsWritesChangedPathsOnOk) {
  ShowAndAct(kPaths, [](HWND dialog) {
    SetDlgItemTextW(dialog, workbench::kFirstPathEdit, L"e:\\textures");
    SetDlgItemTextW(dialog, workbench::kFirstPathEdit + 5, L"");
    Press(dialog, IDOK);
  });
  EXPECT_EQ(ProfileText("Search-Paths", "Default-Textures-Directory"), "e:\\textures");
  EXPECT_EQ(ProfileText("Search-Paths", "Default-Rendered-Images-Directory"), "")
      << "an empty path is kept as such";
  EXPECT_EQ(ProfileText("Search-Paths", "Default-FileImport-Directory"), "(absent)") << "was not changed";
}

TEST_F(HostDialogs, DirectoryPathsWritesNothingOnCancel) {
  ShowAndAct(kPaths, [](HWND dialog) {
    SetDlgItemTextW(dialog, workbench::kFirstPathEdit, L"e:\\textures");
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(GetFileAttributesA(profile_.c_str()), INVALID_FILE_ATTRIBUTES);
}

TEST_F(HostDialogs, DirectoryPathsClosesByEnterAndEscape) {
  ShowAndAct(kPaths, [](HWND dialog) {
    SetDlgItemTextW(dialog, workbench::kFirstPathEdit, L"f:\\by enter");
    Type(dialog, VK_RETURN);
  });
  EXPECT_EQ(ProfileText("Search-Paths", "Default-Textures-Directory"), "f:\\by enter");
  ShowAndAct(kPaths, [](HWND dialog) {
    SetDlgItemTextW(dialog, workbench::kFirstPathEdit, L"f:\\by escape");
    Type(dialog, VK_ESCAPE);
  });
  EXPECT_EQ(ProfileText("Search-Paths", "Default-Textures-Directory"), "f:\\by enter");
}

TEST_F(HostDialogs, DirectoryPathsSaysWhenItCanNotSave) {
  profile_ = folder_.Join("no such folder\\profile.ini");
  int step = 0;
  std::wstring message;
  {
    std::function<void(HWND)> act = [&](HWND dialog) {
      SetDlgItemTextW(dialog, workbench::kFirstPathEdit, L"e:\\x");
      // The message box comes up inside this call and is answered by the timer below.
      const test_support::ExpectsBoxes expects;
      const UINT_PTR timer = SetTimer(nullptr, 0, 20, [](HWND, UINT, UINT_PTR, DWORD) {
        const HWND box = FindWindowW(L"#32770", L"Error");
        if (box != nullptr && IsWindowVisible(box)) Press(box, IDOK);
      });
      SendMessageW(dialog, WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED), 0);
      KillTimer(nullptr, timer);
      EXPECT_TRUE(IsWindow(dialog)) << "the dialog stays, so that nothing typed is lost";
      ++step;
      Press(dialog, IDCANCEL);
    };
    ShowAndAct(kPaths, act);
  }
  EXPECT_EQ(step, 1);
}

TEST_F(HostDialogs, HaveATabOrderThroughAllTheirControls) {
  ShowAndAct(kPaths, [](HWND dialog) {
    HWND control = GetDlgItem(dialog, workbench::kFirstPathEdit);
    int stops = 0;
    do {
      control = GetNextDlgTabItem(dialog, control, FALSE);
      ++stops;
    } while (control != GetDlgItem(dialog, workbench::kFirstPathEdit) && stops < 50);
    EXPECT_EQ(stops, 1 + 2 * workbench::kPathRows + 2);
    EXPECT_EQ(GetNextDlgTabItem(dialog, GetDlgItem(dialog, IDOK), FALSE), GetDlgItem(dialog, IDCANCEL));
    Press(dialog, IDCANCEL);
  });
}

TEST_F(HostDialogs, KeepTheirControlsInsideAndApart) {
  const auto check = [](HWND dialog) {
    RECT client = {};
    GetClientRect(dialog, &client);
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr; child = GetWindow(child, GW_HWNDNEXT)) {
      RECT place = {};
      GetWindowRect(child, &place);
      MapWindowPoints(nullptr, dialog, reinterpret_cast<POINT*>(&place), 2);
      EXPECT_GE(place.left, 0);
      EXPECT_LE(place.right, client.right);
      EXPECT_LE(place.bottom, client.bottom);
      wchar_t className[16] = L"";
      GetClassNameW(child, className, 16);
      if (lstrcmpiW(className, L"BUTTON") != 0 && lstrcmpiW(className, L"STATIC") != 0) continue;
      const std::wstring text = WindowText(child);
      if (text.size() > 60) continue;  // broken into lines
      const HDC dc = GetDC(child);
      const HGDIOBJ font = SelectObject(dc, reinterpret_cast<HFONT>(SendMessageW(child, WM_GETFONT, 0, 0)));
      RECT extent = {};
      DrawTextW(dc, text.c_str(), -1, &extent, DT_SINGLELINE | DT_CALCRECT);
      SelectObject(dc, font);
      ReleaseDC(child, dc);
      EXPECT_LE(extent.right, place.right - place.left) << std::string(text.begin(), text.end());
    }
    Press(dialog, IDCANCEL);
  };
  for (const char* keyword : {kPaths, kImport, kDragDrop}) ShowAndAct(keyword, check);
}

TEST_F(HostDialogs, DragDropKeepsItsOptionsInTheProfile) {
  ShowAndAct(kDragDrop, [](HWND dialog) {
    EXPECT_EQ(IsDlgButtonChecked(dialog, workbench::kConfirmMoveBox), static_cast<UINT>(BST_CHECKED));
    EXPECT_EQ(IsDlgButtonChecked(dialog, workbench::kConfirmCopyBox), static_cast<UINT>(BST_UNCHECKED));
    SendDlgItemMessageW(dialog, workbench::kConfirmMoveBox, BM_CLICK, 0, 0);
    SendDlgItemMessageW(dialog, workbench::kConfirmCopyBox, BM_CLICK, 0, 0);
    Press(dialog, IDOK);
  });
  EXPECT_EQ(ProfileText("Drag-and-Drop", "Confirm_Move"), "0");
  EXPECT_EQ(ProfileText("Drag-and-Drop", "Confirm_Copy"), "1");
  const workbench::DragDropOptions options = workbench::LoadDragDropOptions(profile_);
  EXPECT_FALSE(options.confirmMove);
  EXPECT_TRUE(options.confirmCopy);
  EXPECT_TRUE(options.rightButtonMenu);
  ShowAndAct(kDragDrop, [](HWND dialog) {
    EXPECT_EQ(IsDlgButtonChecked(dialog, workbench::kConfirmMoveBox), static_cast<UINT>(BST_UNCHECKED));
    SendDlgItemMessageW(dialog, workbench::kConfirmMoveBox, BM_CLICK, 0, 0);
    Press(dialog, IDCANCEL);
  });
  EXPECT_EQ(ProfileText("Drag-and-Drop", "Confirm_Move"), "0");
}

class ImportOptions : public HostDialogs {
 protected:
  void SetUp() override {
    const std::int64_t type = kTxTypeObject3D | kTxTypeText;
    ASSERT_TRUE(Tx_FileFormatHandler(kGuid, Tx_Inquire_Token("enabled"), Tx_Inquire_Token("on"), 1,
                                     Tx_Inquire_Token("function"), Tx_Inquire_Token("importer"), 1,
                                     Tx_Inquire_Token("type"), &type, 1, Tx_Inquire_Token("filetypes"),
                                     ".q3d;.q3t", 1, Tx_Inquire_Token("descriptivename"), "Q3D scene", 1, 0));
  }
  void TearDown() override { Tx_Remove_FileFormatHandler(kGuid); }
  static bool Enabled() {
    TxToken enabled = 0;
    Tx_Inquire_FileFormatHandler(kGuid, Tx_Inquire_Token("enabled"), &enabled, 0);
    return enabled == Tx_Inquire_Token("on");
  }
};

TEST_F(ImportOptions, ShowTheHandler) {
  EXPECT_TRUE(ShowAndAct(
      kImport,
      [](HWND dialog) {
        EXPECT_EQ(ItemText(dialog, workbench::kHandlerNameEdit), L"Q3D scene");
        EXPECT_EQ(ItemText(dialog, workbench::kHandlerFileTypesEdit), L".q3d;.q3t");
        EXPECT_EQ(ItemText(dialog, workbench::kHandlerTypeEdit), L"3D object, Text");
        EXPECT_EQ(IsDlgButtonChecked(dialog, workbench::kHandlerEnabledBox), static_cast<UINT>(BST_CHECKED));
        Press(dialog, IDCANCEL);
      },
      kGuid));
  EXPECT_TRUE(Enabled());
}

TEST_F(ImportOptions, SwitchTheHandlerOnOkOnly) {
  const auto clickAnd = [&](int button) {
    ShowAndAct(
        kImport,
        [button](HWND dialog) {
          SendDlgItemMessageW(dialog, workbench::kHandlerEnabledBox, BM_CLICK, 0, 0);
          Press(dialog, button);
        },
        kGuid);
  };
  clickAnd(IDCANCEL);
  EXPECT_TRUE(Enabled());
  clickAnd(IDOK);
  EXPECT_FALSE(Enabled());
  clickAnd(IDOK);
  EXPECT_TRUE(Enabled());
}

TEST_F(ImportOptions, SayThatAHandlerIsUnknown) {
  for (const char* argument : {static_cast<const char*>(nullptr), "", "{no such handler}"}) {
    EXPECT_TRUE(ShowAndAct(
        kImport,
        [](HWND dialog) {
          EXPECT_EQ(ItemText(dialog, workbench::kHandlerNameEdit),
                    L"No converter of this identifier is registered");
          EXPECT_FALSE(IsWindowEnabled(GetDlgItem(dialog, workbench::kHandlerEnabledBox)));
          Press(dialog, IDOK);
        },
        argument));
  }
}

TEST_F(HostDialogs, AboutNamesTheWorkbenchAndTheModuleWithTheirVersions) {
  const DialogDriver driver([](HWND dialog) {
    const std::wstring all = AllTexts(dialog);
    EXPECT_NE(all.find(L"Workbench\nVersion 1.2.3.4\n"), std::wstring::npos);
    EXPECT_NE(all.find(L"ui_file_explorer.dll, version 5.6.7.8\n"), std::wstring::npos);
    EXPECT_NE(all.find(L"c:\\bin\\ui_file_explorer.dll\n"), std::wstring::npos);
    Type(dialog, VK_RETURN);
  });
  workbench::ShowAboutDialog(host_.window(), {L"1.2.3.4", L"c:\\bin\\ui_file_explorer.dll", L"5.6.7.8"});
  EXPECT_TRUE(driver.acted());
}

TEST_F(HostDialogs, AboutSaysWhenNoModuleIsLoaded) {
  const DialogDriver driver([](HWND dialog) {
    EXPECT_NE(AllTexts(dialog).find(L"No module is loaded\n"), std::wstring::npos);
    Type(dialog, VK_ESCAPE);
  });
  workbench::ShowAboutDialog(host_.window(), {L"1.2.3.4", L"", L""});
  EXPECT_TRUE(driver.acted());
}

}  // namespace
}  // namespace document_tests
