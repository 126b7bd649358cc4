// The go-to menu, and where each of its entries leads.
#include "src/host/vc64_tx.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>
#include <shlobj.h>

#include <array>
#include <string>

#include "tests/integration/explorer/running_explorer.h"
#include "tests/support/wait_until.h"

namespace explorer_tests {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

constexpr int kGoTo = 924;

class GoToMenuTest : public RunningExplorer {
 protected:
  // A file of a telling name in a folder of the working directory, so that a jump there shows.
  void AddTarget(const std::wstring& folder) {
    fixture_.directory().AddFile(L"files\\" + folder + L"\\in " + folder + L".obj");
  }
  void WriteProfile(const char* key, const std::string& value) {
    WritePrivateProfileStringA("Search-Paths", key, value.c_str(), fixture_.ProfilePath().c_str());
  }
  static std::string SpecialFolder(int folder) {
    std::array<char, MAX_PATH> path = {};
    SHGetSpecialFolderPathA(nullptr, path.data(), folder, FALSE);
    return path.data();
  }
};

TEST_F(GoToMenuTest, HasTheEntriesInTheirOrder) {
  Begin(0);
  std::vector<std::string> texts;
  std::vector<UINT> ids;
  {
    const ModalVisitor visitor([&](HWND window) {
      const HMENU menu = MenuOf(window);
      texts = MenuTexts(menu);
      for (int i = 0; i < GetMenuItemCount(menu); ++i) ids.push_back(GetMenuItemID(menu, i));
    });
    SendToExplorer(kGoTo);
  }
  EXPECT_THAT(
      texts,
      ElementsAre("Go to.. Home directory", "Go to.. Halvo 'Textures' directory",
                  "Go to.. Halvo .bdf 'Scenes' directory", "Go to.. Default '3D objects' import directory",
                  "Go to.. Default '3D objects' export directory",
                  "Go to.. Default 'Open Documents' directory", "Go to.. Rendered images output directory",
                  "Go to.. Halvo 'Downloaded files' directory", "-", "Go to.. Windows Desktop",
                  "Go to.. 'My Documents'", "Go to.. 'My Application Data'",
                  "Go to.. 'My Halvo Application Data'", "-", "Modify 'Home Directory' path..",
                  "Modify default directory paths.."));
  EXPECT_THAT(ids, ElementsAre(2000U, 2002U, 2003U, 2004U, 2005U, 2006U, 2007U, 2008U, 0U, 2009U, 2010U,
                               2013U, 2014U, 0U, 2012U, 2011U));
}

TEST_F(GoToMenuTest, OpensBelowItsButtonWhichIsPressedMeanwhile) {
  Begin(0);
  RECT button = {};
  SendMessageA(Toolbar(kCommandToolbar), TB_GETRECT, kGoTo, reinterpret_cast<LPARAM>(&button));
  MapWindowPoints(Toolbar(kCommandToolbar), nullptr, reinterpret_cast<POINT*>(&button), 2);
  RECT menu = {};
  bool pressed = false;
  {
    const ModalVisitor visitor([&](HWND window) {
      GetWindowRect(window, &menu);
      pressed = IsPressed(kCommandToolbar, kGoTo);
    });
    EXPECT_EQ(SendToExplorer(kGoTo), 1);
  }
  EXPECT_TRUE(pressed);
  EXPECT_FALSE(IsPressed(kCommandToolbar, kGoTo));
  EXPECT_EQ(menu.left, button.left);
  EXPECT_EQ(menu.top, button.bottom + 1);
  // The host may redraw what the menu covered.
  EXPECT_EQ(fixture_.services().CountCalls("RedrawBracket"), 1);
}

TEST_F(GoToMenuTest, APressOnTheButtonOpensIt) {
  Begin(0);
  {
    const ModalVisitor visitor([&](HWND window) { EXPECT_NE(MenuOf(window), nullptr); });
    Press(kCommandToolbar, kGoTo);
  }
  EXPECT_FALSE(IsPressed(kCommandToolbar, kGoTo));
}

TEST_F(GoToMenuTest, AnEntryChosenWithTheKeyboardIsCarriedOut) {
  AddTarget(L"textures");
  Begin(1);
  {
    const ModalVisitor visitor([&](HWND) {
      for (int i = 0; i < 2; ++i) PostMessageA(fixture_.ExplorerWindow(), WM_KEYDOWN, VK_DOWN, 0);
      PostMessageA(fixture_.ExplorerWindow(), WM_KEYDOWN, VK_RETURN, 0);
    });
    SendToExplorer(kGoTo);
  }
  EXPECT_TRUE(fixture_.WaitForFile("in textures.obj"));
}

// ---- The host's directories
// -------------------------------------------------------------------------------------

struct ProfileRow {
  int command;
  const char* key;
  const wchar_t* defaultFolder;
};

constexpr ProfileRow kProfileRows[] = {
    {2002, "Default-Textures-Directory", L"textures"},
    {2003, "Default-Halvo-BDF-Directory", L"scenes"},
    {2004, "Default-FileImport-Directory", L"objects"},
    {2005, "Default-FileExport-Directory", L"objects"},
    {2006, "Default-Documents-Directory", L"objects"},
    {2007, "Default-Rendered-Images-Directory", L"images"},
};

std::string Narrow(const wchar_t* text) {
  return std::string(text, text + wcslen(text));
}

TEST_F(GoToMenuTest, DirectoriesThatTheProfileDoesNotNameAreTheDefaultOnes) {
  for (const wchar_t* const folder : {L"textures", L"scenes", L"objects", L"images"}) AddTarget(folder);
  Begin(4);
  for (const ProfileRow& row : kProfileRows) {
    SendToExplorer(2014);  // somewhere else first
    ASSERT_TRUE(test_support::WaitUntil(
        [&] { return fixture_.IndexOf("in " + Narrow(row.defaultFolder) + ".obj") < 0; }));
    SendToExplorer(row.command);
    EXPECT_TRUE(fixture_.WaitForFile("in " + Narrow(row.defaultFolder) + ".obj")) << row.key;
  }
}

TEST_F(GoToMenuTest, DirectoriesOfTheProfileAreAbsoluteOrCountFromTheWorkingDirectory) {
  AddTarget(L"mine");
  fixture_.directory().AddFile(L"elsewhere\\there.obj");
  Begin(1);
  for (const ProfileRow& row : kProfileRows) {
    WriteProfile(row.key, "mine");
    SendToExplorer(row.command);
    EXPECT_TRUE(fixture_.WaitForFile("in mine.obj")) << row.key;
    WriteProfile(row.key, fixture_.directory().Join(std::string_view("elsewhere")));
    SendToExplorer(row.command);
    EXPECT_TRUE(fixture_.WaitForFile("there.obj")) << row.key;
  }
}

TEST_F(GoToMenuTest, AnEmptyOrMissingDirectoryIsNoJump) {
  Begin(0);
  const std::string before = ShownPath();
  for (const char* const value : {"", "no such folder", "q:\\nowhere"}) {
    WriteProfile("Default-Textures-Directory", value);
    SendToExplorer(2002);
    test_support::PumpMessages();
    EXPECT_EQ(ShownPath(), before) << value;
  }
  EXPECT_TRUE(fixture_.boxes().boxes().empty());
}

TEST_F(GoToMenuTest, ADirectoryOfMoreThanTheBufferIsCutAndThenNoJump) {
  Begin(0);
  const std::string before = ShownPath();
  WriteProfile("Default-Textures-Directory", std::string(3000, 'x'));
  SendToExplorer(2002);
  test_support::PumpMessages();
  EXPECT_EQ(ShownPath(), before);
}

// ---- The other entries
// ------------------------------------------------------------------------------------------

TEST_F(GoToMenuTest, HomeIsTheHomeDirectory) {
  fixture_.directory().AddFile(L"files\\below\\inner.obj");
  Begin(1);
  const std::string home = ShownPath();
  fixture_.DoubleClickFile("below");
  ASSERT_TRUE(fixture_.WaitForFile("inner.obj"));
  SendToExplorer(2000);
  EXPECT_TRUE(WaitForPath(home));
}

TEST_F(GoToMenuTest, DownloadsAreAFolderOfTheUserThatIsMadeWhenItIsMissing) {
  Begin(0);
  const std::string folder = fixture_.UserDirectory() + "\\downloaded_files";
  ASSERT_FALSE(Tx_File_Exists(folder.c_str()));
  SendToExplorer(2008);
  EXPECT_TRUE(Tx_File_Exists(folder.c_str()));
  EXPECT_TRUE(WaitForPath(folder));
  fixture_.directory().AddFile(L"user\\downloaded_files\\fetched.obj");
  EXPECT_TRUE(fixture_.WaitForFile("fetched.obj"));
}

TEST_F(GoToMenuTest, TheUsersShellFoldersAreShown) {
  Begin(0);
  SendToExplorer(2010);
  EXPECT_TRUE(WaitForPath(SpecialFolder(CSIDL_PERSONAL))) << ShownPath();
  SendToExplorer(2013);
  EXPECT_TRUE(WaitForPath(SpecialFolder(CSIDL_APPDATA))) << ShownPath();
  SendToExplorer(2009);
  // The desktop is the one folder that has no parent.
  EXPECT_TRUE(test_support::WaitUntil([&] { return !IsEnabled(kCommandToolbar, 101); })) << ShownPath();
}

TEST_F(GoToMenuTest, TheHostsOwnDataOfTheUserIsShown) {
  Begin(0);
  SendToExplorer(2014);
  EXPECT_TRUE(WaitForPath(fixture_.UserDirectory())) << ShownPath();
}

TEST_F(GoToMenuTest, WithoutAPerUserDirectoryThereIsNoJump) {
  Begin(0);
  const std::string before = ShownPath();
  // A file stands where the directory should be.
  fixture_.directory().AddFile(L"in the way");
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY",
                          fixture_.directory().Join(std::string_view("in the way\\user")).c_str());
  for (const int command : {2008, 2014}) {
    SendToExplorer(command);
    test_support::PumpMessages();
    EXPECT_EQ(ShownPath(), before) << command;
  }
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", fixture_.UserDirectory().c_str());
}

TEST_F(GoToMenuTest, TheDirectoryPathsAreAPageOfTheHost) {
  Begin(0);
  HWND owner = nullptr;
  std::string keyword;
  fixture_.services().Override<host::op::ShowHostDialog>([&](const char* word, HWND window,
                                                             const char* argument, std::intptr_t a,
                                                             std::intptr_t b, std::intptr_t c) {
    keyword = word;
    owner = window;
    EXPECT_EQ(argument, nullptr);
    EXPECT_EQ(a, 0);
    EXPECT_EQ(b, 0);
    EXPECT_EQ(c, 0);
    return 1;
  });
  SendToExplorer(2011);
  EXPECT_EQ(keyword, "EnvVariablesDialog-DirectoryPaths-Tab");
  EXPECT_EQ(owner, fixture_.ExplorerWindow());
}

TEST_F(GoToMenuTest, ItsCommandsCountAsHandled) {
  Begin(0);
  for (const int command : {2000, 2002, 2009}) EXPECT_EQ(SendToExplorer(command), 1) << command;
  for (const int command : {1999, 2001, 2015}) EXPECT_EQ(SendToExplorer(command), 0) << command;
}

}  // namespace
}  // namespace explorer_tests
