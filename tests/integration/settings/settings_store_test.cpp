#include "tests/integration/settings/settings_store_fixture.h"

#include <gmock/gmock.h>

#include <array>
#include <fstream>

#include "src/filter/category_colors.h"
#include "src/host/vc64_imp.h"
#include "src/settings/directory_links.h"
#include "src/settings/settings_table.h"
#include "src/settings/shell_link.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

TEST_F(SettingsStoreTest, FreshProfileGivesTheLoadDefaults) {
  Store().Load(&settings_);
  SettingsValues expected;
  ResetAndFetchCategoryColors(&expected.colors);
  EXPECT_EQ(static_cast<SettingsValues&>(settings_), expected);
  EXPECT_EQ(Text(settings_.fileInclusionList), "<none>");
  EXPECT_EQ(Text(settings_.fileExclusionList), "<none>");
  EXPECT_FALSE(std::ifstream(profile_).good());
}

TEST_F(SettingsStoreTest, AsksForTheProfilePathAfreshForEveryAccess) {
  Store().Load(&settings_);
  EXPECT_EQ(accesses_, 18 + 10 + 3);
  accesses_ = 0;
  Store().Save(settings_);
  EXPECT_EQ(accesses_, 18 + 10 + 1 + 2);
}

TEST_F(SettingsStoreTest, NumbersAreKeptAsTheyStand) {
  WriteProfile("[Explore]\nNewWindowCreationMethod=3\nNewWindowDockingPosition=9\nTreeView_ShowFiles=7\n"
               "FileView_ShowFolders=-1\nFileExtensionFilteringMethod=200\nFileView_ShowGridLines=text\n");
  Store().Load(&settings_);
  EXPECT_EQ(settings_.newWindowCreationMethod, 3);
  EXPECT_EQ(settings_.newWindowDockingPosition, 9);
  EXPECT_EQ(settings_.treeViewShowsFiles, 7);
  EXPECT_EQ(settings_.fileViewShowsFolders, -1);
  EXPECT_EQ(settings_.fileExtensionFilteringMethod, 200);
  EXPECT_EQ(settings_.fileViewShowsGridLines, 0);  // text reads as 0
  Store().Save(settings_);
  EXPECT_EQ(ProfileValue("NewWindowCreationMethod"), "3");
  EXPECT_EQ(ProfileValue("FileView_ShowFolders"), "-1");
}

TEST_F(SettingsStoreTest, TwoOfThreeColourNumbersKeepTheHostsBlue) {
  WriteProfile("[Explore]\ndefault_color_Text_files=0.5 0.25\ndefault_color_Audio_files=\n");
  Store().Load(&settings_);
  CategoryColors host = {};
  ResetAndFetchCategoryColors(&host);
  const size_t text = static_cast<size_t>(FileCategory::Text);
  const size_t audio = static_cast<size_t>(FileCategory::Audio);
  EXPECT_FLOAT_EQ(settings_.colors[text].red, 0.5F);
  EXPECT_FLOAT_EQ(settings_.colors[text].green, 0.25F);
  EXPECT_FLOAT_EQ(settings_.colors[text].blue, host[text].blue);
  EXPECT_EQ(settings_.colors[audio], host[audio]);
}

TEST_F(SettingsStoreTest, LoadingDoesNotPushTheColoursToTheHost) {
  WriteProfile("[Explore]\ndefault_color_Text_files=1 0 0\n");
  Store().Load(&settings_);
  float red = -1.0F;
  float green = -1.0F;
  float blue = -1.0F;
  ASSERT_TRUE(Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(kTxTypeText, &red, &green, &blue));
  EXPECT_FALSE(red == 1.0F && green == 0.0F && blue == 0.0F);
}

TEST_F(SettingsStoreTest, SaveWritesEveryKeyInTheFixedOrder) {
  Store().Load(&settings_);
  Store().Save(settings_);
  EXPECT_THAT(ProfileKeys(),
              ElementsAre("NewWindowCreationMethod", "NewWindowDockingPosition", "GroupRelatedFilesTogetherOnFileView",
                          "CreateOneNewWindowPerZIPFile", "TreeView_ShowFiles", "TreeView_ShowVirtualFolders",
                          "TreeView_AllowDragandDrop", "TreeView_ShowHiddenFiles", "FileView_ShowFolders",
                          "FileView_ShowVirtualFolders", "FileView_AllowDragandDrop", "FileView_ShowHiddenItems",
                          "FileView_ShowGridLines", "FileView_SingleClickFileLoading", "ComboView_ShowFullPath",
                          "ComboView_ShowVirtualFolders", "ComboView_EnaFilenameCompletion",
                          "FileExtensionFilteringMethod", "default_color_3D_object_files",
                          "default_color_2D_vector_files", "default_color_2D_bitmap_files", "default_color_Text_files",
                          "default_color_ZIP_and_archive_files", "default_color_Video_files",
                          "default_color_Audio_files", "default_color_Spreadsheet_files",
                          "default_color_Database_files", "default_color_Presentation_files",
                          "CurrHomeDirectoryDisplayNameInAscii", "FileInclusionList", "FileExclusionList"));
}

TEST_F(SettingsStoreTest, MissingListsAreSavedAsEverythingAndNothing) {
  Store().Save(settings_);
  EXPECT_EQ(ProfileValue("FileInclusionList"), "*.*");
  EXPECT_EQ(ProfileValue("FileExclusionList"), "");
  EXPECT_EQ(ProfileValue("CurrHomeDirectoryDisplayNameInAscii"), "");
}

TEST_F(SettingsStoreTest, RoundTripKeepsEveryOption) {
  Store().Load(&settings_);
  settings_.newWindowCreationMethod = 0;
  settings_.newWindowDockingPosition = 1;
  settings_.groupRelatedFilesTogether = 0;
  settings_.singleClickFileLoading = 1;
  settings_.comboViewFilenameCompletion = 0;
  settings_.fileExtensionFilteringMethod = 11;
  settings_.colors[3] = {0.5F, 0.25F, 0.125F};
  settings_.fileInclusionList.reset(Import_IO_Copy_String("*.3ds,*.obj|*.stl"));
  settings_.fileExclusionList.reset(Import_IO_Copy_String("||test*"));
  settings_.homeDirectory = ParsePath(userDirectory_.substr(0, userDirectory_.rfind('\\')));
  Store().Save(settings_);
  ExplorerSettings read;
  Store().Load(&read);
  EXPECT_EQ(static_cast<SettingsValues&>(read), static_cast<SettingsValues&>(settings_));
  EXPECT_EQ(Text(read.fileInclusionList), "*.3ds,*.obj|*.stl");
  EXPECT_EQ(Text(read.fileExclusionList), "||test*");
  ASSERT_TRUE(read.homeDirectory);
  EXPECT_TRUE(ILIsEqual(read.homeDirectory.get(), settings_.homeDirectory.get()));
}

TEST_F(SettingsStoreTest, AnOverlongListIsCutWhenItIsRead) {
  WriteProfile("[Explore]\nFileInclusionList=" + std::string(5000, 'a') + "\n");
  Store().Load(&settings_);
  EXPECT_EQ(Text(settings_.fileInclusionList), std::string(2047, 'a'));
}

TEST_F(SettingsStoreTest, StoredDisplayNameIsNeverUsedDeliberately) {
  const std::string home = directory_.Join(std::string_view("home"));
  directory_.AddFolder(L"home");
  settings_.homeDirectory = ParsePath(home);
  Store().Save(settings_);
  WritePrivateProfileStringA("Explore", "CurrHomeDirectoryDisplayNameInAscii", "c:\\elsewhere", profile_.c_str());
  ExplorerSettings read;
  Store().Load(&read);
  EXPECT_EQ(Text(read.homeDirectoryName), home);
}

TEST_F(SettingsStoreTest, WithoutALinkTheHomeIsTheWorkingDirectoryOrTheDesktop) {
  directory_.AddFolder(L"work");
  const std::string work = directory_.Join(std::string_view("work"));
  Tx_Set_Environment("TS_WORKING_DIR", work.c_str());
  Store().Load(&settings_);
  EXPECT_EQ(ParsingName(settings_.homeDirectory.get()), work);
  Tx_Set_Environment("TS_WORKING_DIR", "q:\\no such folder");
  Store().Load(&settings_);
  unique_pidl desktop;
  ASSERT_TRUE(SUCCEEDED(SHGetSpecialFolderLocation(nullptr, CSIDL_DESKTOP, desktop.put())));
  ASSERT_TRUE(settings_.homeDirectory);
  EXPECT_TRUE(ILIsEqual(settings_.homeDirectory.get(), desktop.get()));
}

TEST_F(SettingsStoreTest, AFailedNumberDoesNotKeepTheOthersFromBeingWritten) {
  failAt_ = 2;
  Store().Save(settings_);
  EXPECT_EQ(ProfileValue("NewWindowDockingPosition"), "<missing>");
  EXPECT_EQ(ProfileValue("NewWindowCreationMethod"), "5");
  EXPECT_EQ(ProfileValue("FileExclusionList"), "");
}

// The chain of colours, display name, link and lists ends with the first write that fails.
struct ChainCase {
  int failAt;            // access that fails, counted from 1
  const char* lastKey;   // last key that is written
  bool linkWritten;
};

class SettingsChainTest : public SettingsStoreTest, public testing::WithParamInterface<ChainCase> {};

TEST_P(SettingsChainTest, EndsAtTheFirstWriteThatFails) {
  directory_.AddFolder(L"home");
  settings_.homeDirectory = ParsePath(directory_.Join(std::string_view("home")));
  failAt_ = GetParam().failAt;
  Store().Save(settings_);
  EXPECT_EQ(ProfileKeys().back(), GetParam().lastKey);
  EXPECT_EQ(static_cast<bool>(ReadShellLink(UserFilePath(nullptr, kHomeDirectoryLink))), GetParam().linkWritten);
}

INSTANTIATE_TEST_SUITE_P(FailedWrites, SettingsChainTest,
                         testing::Values(ChainCase{19, "FileExtensionFilteringMethod", false},
                                         ChainCase{20, "default_color_3D_object_files", false},
                                         ChainCase{28, "default_color_Database_files", false},
                                         ChainCase{29, "default_color_Presentation_files", false},
                                         ChainCase{30, "CurrHomeDirectoryDisplayNameInAscii", true},
                                         ChainCase{31, "FileInclusionList", true}, ChainCase{0, "FileExclusionList", true}),
                         [](const auto& info) { return "Access" + std::to_string(info.param.failAt); });

TEST_F(SettingsStoreTest, AFailedLinkDoesNotBreakTheChain) {
  directory_.AddFile(L"user", "a file where the per-user directory should be");
  settings_.homeDirectory = ParsePath("c:\\");
  // Without a per-user directory the link goes to the current directory under its bare name; there it can't be written.
  std::array<char, MAX_PATH> before = {};
  GetCurrentDirectoryA(MAX_PATH, before.data());
  directory_.AddFolder(std::wstring(L"cwd\\ExploreHomeDirectory.lnk"));
  SetCurrentDirectoryA(directory_.Join(std::string_view("cwd")).c_str());
  Store().Save(settings_);
  SetCurrentDirectoryA(before.data());
  EXPECT_EQ(ProfileKeys().back(), "FileExclusionList");
}

TEST_F(SettingsStoreTest, AHostWithoutAProfileGivesDefaultsAndLosesNothing) {
  const SettingsStore store([] { return std::string(); }, [] { return HWND(nullptr); });
  store.Load(&settings_);
  EXPECT_EQ(settings_.newWindowCreationMethod, 5);
  store.Save(settings_);
  EXPECT_FALSE(store.WriteNumber("curr_fileview_display_mode", 3));
}

TEST_F(SettingsStoreTest, ResetFetchesTheHostsColoursAndKeepsTheLists) {
  Store().Load(&settings_);
  settings_.colors[0] = {9.0F, 9.0F, 9.0F};
  settings_.fileInclusionList.reset(Import_IO_Copy_String("*.obj"));
  settings_.fileExtensionFilteringMethod = 4;
  ResetToPowerUpDefaults(&settings_);
  CategoryColors host = {};
  ResetAndFetchCategoryColors(&host);
  EXPECT_EQ(settings_.colors, host);
  EXPECT_EQ(Text(settings_.fileInclusionList), "*.obj");
  EXPECT_EQ(settings_.fileExtensionFilteringMethod, 4);
  EXPECT_EQ(settings_.fileViewShowsHiddenItems, 1);
}

}  // namespace
}  // namespace file_explorer
