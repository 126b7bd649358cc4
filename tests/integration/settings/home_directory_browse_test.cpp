// The system's real folder browser, driven while it is open. Each run of it takes seconds: there are few.
#include "src/settings/home_directory_browse.h"

#include <gmock/gmock.h>

#include <shlobj.h>

#include <array>
#include <string>

#include "src/host/vc64_imp.h"
#include "src/settings/directory_links.h"
#include "tests/support/dialog_visits.h"
#include "tests/support/temp_directory.h"
#include "tests/support/wait_until.h"

namespace file_explorer {
namespace {

constexpr char kBrowserCaption[] = "Browse for Folder";

// Texts of the browser's labels.
BOOL CALLBACK CollectText(HWND child, LPARAM texts) {
  std::array<char, 512> text = {};
  GetWindowTextA(child, text.data(), static_cast<int>(text.size()));
  reinterpret_cast<std::vector<std::string>*>(texts)->emplace_back(text.data());
  return TRUE;
}

std::vector<std::string> TextsOf(HWND dialog) {
  std::vector<std::string> texts;
  EnumChildWindows(dialog, CollectText, reinterpret_cast<LPARAM>(&texts));
  return texts;
}

bool HasText(HWND dialog, const std::string& text) {
  const std::vector<std::string> texts = TextsOf(dialog);
  return std::find(texts.begin(), texts.end(), text) != texts.end();
}

bool ShowsText(HWND dialog, const std::string& text) {
  return test_support::WaitUntil([&] { return HasText(dialog, text); });
}

class HomeDirectoryBrowseTest : public testing::Test {
 protected:
  void SetUp() override {
    OleInitialize(nullptr);
    directory_.AddFolder(L"first");
    directory_.AddFolder(L"second");
    owner_ = CreateWindowExA(0, "Static", "owner", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 100, 100, 800, 700,
                             nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    settings_.homeDirectory = ParsePath(First());
    settings_.homeDirectoryName.reset(Import_IO_Copy_String("old name"));
  }
  void TearDown() override {
    DestroyWindow(owner_);
    settings_ = ExplorerSettings();
    OleUninitialize();
  }
  std::string First() const { return directory_.Join(std::string_view("first")); }
  std::string Second() const { return directory_.Join(std::string_view("second")); }

  bool Choose(int button, std::function<void(HWND)> visit) {
    test_support::DialogVisits visits;
    visits.Expect(kBrowserCaption, button, std::move(visit));
    const bool chosen = ChooseHomeDirectory(owner_, &settings_);
    EXPECT_TRUE(visits.Done());
    return chosen;
  }

  // The browser finds a folder by the lists that it read before: nothing above these may change meanwhile.
  test_support::TempDirectory directory_{test_support::TempDirectory::Place::kDriveRoot};
  HWND owner_ = nullptr;
  ExplorerSettings settings_;
};

TEST_F(HomeDirectoryBrowseTest, OkTakesTheChosenFolderAndItsFullPath) {
  EXPECT_TRUE(Choose(IDOK, [this](HWND dialog) {
    EXPECT_EQ(GetWindow(dialog, GW_OWNER), owner_);
    EXPECT_TRUE(ShowsText(dialog, "Please select the new home directory"));
    EXPECT_TRUE(ShowsText(dialog, First())) << "the present home is selected, and the status line says so";
    // A browser that has just been opened may miss a folder which it is told once.
    EXPECT_TRUE(test_support::WaitUntil([&] {
      SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(Second().c_str()));
      return HasText(dialog, Second());
    }));
  }));
  EXPECT_STREQ(settings_.homeDirectoryName.get(), Second().c_str());
  EXPECT_EQ(ParsingName(settings_.homeDirectory.get()), Second());
}

TEST_F(HomeDirectoryBrowseTest, CancelKeepsTheHomeDirectory) {
  EXPECT_FALSE(Choose(IDCANCEL, [this](HWND dialog) {
    SendMessageA(dialog, BFFM_SETSELECTIONA, TRUE, reinterpret_cast<LPARAM>(Second().c_str()));
  }));
  EXPECT_STREQ(settings_.homeDirectoryName.get(), "old name");
  EXPECT_EQ(ParsingName(settings_.homeDirectory.get()), First());
}

TEST_F(HomeDirectoryBrowseTest, AHomeThatHasChangedSinceIsSelectedAllTheSame) {
  // The list that was made before carries the folder's old date.
  const HANDLE folder = CreateFileA(First().c_str(), FILE_WRITE_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  ASSERT_NE(folder, INVALID_HANDLE_VALUE);
  const FILETIME longAgo = {0, 0x01C00000};
  EXPECT_TRUE(SetFileTime(folder, nullptr, nullptr, &longAgo));
  CloseHandle(folder);
  EXPECT_FALSE(Choose(IDCANCEL, [this](HWND dialog) { EXPECT_TRUE(ShowsText(dialog, First())); }));
}

TEST_F(HomeDirectoryBrowseTest, FoldersOfNoFileSystemCannotBeChosenAndNoHomeIsNeeded) {
  settings_.homeDirectory.reset();
  settings_.homeDirectoryName.reset();
  EXPECT_FALSE(Choose(IDCANCEL, [](HWND dialog) {
    unique_pidl drives;
    ASSERT_TRUE(SUCCEEDED(SHGetSpecialFolderLocation(nullptr, CSIDL_DRIVES, drives.put())));
    SendMessageA(dialog, BFFM_SETSELECTIONA, FALSE, reinterpret_cast<LPARAM>(drives.get()));
    EXPECT_TRUE(test_support::WaitUntil([&] { return !IsWindowEnabled(GetDlgItem(dialog, IDOK)); }));
  }));
  EXPECT_FALSE(settings_.homeDirectory);
  EXPECT_FALSE(settings_.homeDirectoryName);
}

}  // namespace
}  // namespace file_explorer
