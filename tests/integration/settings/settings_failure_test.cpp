// Saving when writing fails: at each single write, and altogether.
#include "tests/integration/settings/settings_store_fixture.h"

#include "src/settings/directory_links.h"
#include "src/settings/settings_table.h"
#include "src/settings/shell_link.h"

namespace file_explorer {
namespace {

// The writes of a save in their order.
constexpr const char* kWrites[] = {
    "NewWindowCreationMethod",
    "NewWindowDockingPosition",
    "GroupRelatedFilesTogetherOnFileView",
    "CreateOneNewWindowPerZIPFile",
    "TreeView_ShowFiles",
    "TreeView_ShowVirtualFolders",
    "TreeView_AllowDragandDrop",
    "TreeView_ShowHiddenFiles",
    "FileView_ShowFolders",
    "FileView_ShowVirtualFolders",
    "FileView_AllowDragandDrop",
    "FileView_ShowHiddenItems",
    "FileView_ShowGridLines",
    "FileView_SingleClickFileLoading",
    "ComboView_ShowFullPath",
    "ComboView_ShowVirtualFolders",
    "ComboView_EnaFilenameCompletion",
    "FileExtensionFilteringMethod",
    "default_color_3D_object_files",
    "default_color_2D_vector_files",
    "default_color_2D_bitmap_files",
    "default_color_Text_files",
    "default_color_ZIP_and_archive_files",
    "default_color_Video_files",
    "default_color_Audio_files",
    "default_color_Spreadsheet_files",
    "default_color_Database_files",
    "default_color_Presentation_files",
    "CurrHomeDirectoryDisplayNameInAscii",
    "FileInclusionList",
    "FileExclusionList",
};
constexpr int kNumbers = 18;      // each written on its own
constexpr int kDisplayName = 29;  // the link follows it
constexpr int kAll = 31;
constexpr char kOld[] = "77";  // what every key held before

class SettingsFailureTest : public SettingsStoreTest {
 protected:
  void SetUp() override {
    SettingsStoreTest::SetUp();
    directory_.AddFolder(L"user");
    directory_.AddFolder(L"old home");
    directory_.AddFolder(L"new home");
    for (const char* const key : kWrites) WritePrivateProfileStringA("Explore", key, kOld, profile_.c_str());
    WriteShellLink(Link(), ParsePath(directory_.Join(std::string_view("old home"))).get());
    settings_.homeDirectory = ParsePath(directory_.Join(std::string_view("new home")));
    RefreshHomeDirectoryName(&settings_);
  }
  std::string Link() const { return userDirectory_ + "/" + kHomeDirectoryLink; }
  std::string LinkTarget() const {
    const std::string path = ParsingName(ReadShellLink(Link()).get());
    return path.substr(path.rfind('\\') + 1);
  }
  bool IsNew(int write) const { return ProfileValue(kWrites[write - 1]) != kOld; }
  void ExpectNothingChanged() {
    for (int write = 1; write <= kAll; ++write) EXPECT_FALSE(IsNew(write)) << kWrites[write - 1];
    EXPECT_EQ(LinkTarget(), "old home");
  }
};

class SettingsFailedWriteTest : public SettingsFailureTest, public testing::WithParamInterface<int> {};

TEST_P(SettingsFailedWriteTest, LosesNothingButWhatFollowsItInTheChain) {
  failAt_ = GetParam();
  Store().Save(settings_);
  const bool inChain = failAt_ > kNumbers;
  for (int write = 1; write <= kAll; ++write) {
    const bool skipped = inChain && write > failAt_;
    EXPECT_EQ(IsNew(write), write != failAt_ && !skipped) << kWrites[write - 1];
  }
  EXPECT_EQ(LinkTarget(), inChain && failAt_ <= kDisplayName ? "old home" : "new home");
}

INSTANTIATE_TEST_SUITE_P(EachWrite, SettingsFailedWriteTest, testing::Range(1, kAll + 1),
                         [](const auto& info) { return std::string(kWrites[info.param - 1]); });

TEST_F(SettingsFailureTest, AWholeSaveChangesEverything) {
  Store().Save(settings_);
  for (int write = 1; write <= kAll; ++write) EXPECT_TRUE(IsNew(write)) << kWrites[write - 1];
  EXPECT_EQ(LinkTarget(), "new home");
}

TEST_F(SettingsFailureTest, AProfileThatSomebodyHoldsOpenStaysAsItIs) {
  const std::string before = ProfileText();
  const HANDLE held = CreateFileA(profile_.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr);
  ASSERT_NE(held, INVALID_HANDLE_VALUE);
  Store().Save(settings_);
  CloseHandle(held);
  EXPECT_EQ(ProfileText(), before);
  ExpectNothingChanged();
}

TEST_F(SettingsFailureTest, AMissingDirectoryIsNotMadeAndTheLinkStays) {
  const std::string kept = profile_;
  profile_ = directory_.Join(std::string_view("missing\\profile.ini"));
  Store().Save(settings_);
  EXPECT_EQ(GetFileAttributesA(directory_.Join(std::string_view("missing")).c_str()),
            INVALID_FILE_ATTRIBUTES);
  ExplorerSettings read;
  Store().Load(&read);
  EXPECT_EQ(read.newWindowCreationMethod, 5);
  profile_ = kept;
  ExpectNothingChanged();
}

TEST_F(SettingsFailureTest, ADirectoryInThePlaceOfTheProfileStays) {
  const std::string kept = profile_;
  directory_.AddFolder(L"folder.ini");
  profile_ = directory_.Join(std::string_view("folder.ini"));
  Store().Save(settings_);
  EXPECT_NE(GetFileAttributesA(profile_.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
  profile_ = kept;
  ExpectNothingChanged();
}

TEST_F(SettingsFailureTest, AReadOnlyProfileIsReadAndNotChanged) {
  ASSERT_TRUE(SetFileAttributesA(profile_.c_str(), FILE_ATTRIBUTE_READONLY));
  const std::string before = ProfileText();
  // An administrator's rights may go beyond the attribute: only where the system itself refuses is there a
  // failure.
  const bool refused = WritePrivateProfileStringA("Explore", "Probe", "1", profile_.c_str()) == FALSE;
  ExplorerSettings read;
  Store().Load(&read);
  EXPECT_EQ(read.newWindowCreationMethod, 77);
  Store().Save(settings_);
  EXPECT_EQ(ProfileText() == before, refused);
  EXPECT_EQ(LinkTarget(), refused ? "old home" : "new home");
  SetFileAttributesA(profile_.c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(SettingsFailureTest, ALinkThatCannotBeWrittenKeepsNothingElseBack) {
  DeleteFileA(Link().c_str());
  directory_.AddFolder(L"user\\ExploreHomeDirectory.lnk");
  Store().Save(settings_);
  for (int write = 1; write <= kAll; ++write) EXPECT_TRUE(IsNew(write)) << kWrites[write - 1];
}

TEST_F(SettingsFailureTest, WithoutAPerUserDirectoryTheLinkLiesUnderItsBareName) {
  directory_.AddFile(L"file", "no directory");
  SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY",
                          directory_.Join(std::string_view("file\\below")).c_str());
  std::array<char, MAX_PATH> before = {};
  GetCurrentDirectoryA(MAX_PATH, before.data());
  ASSERT_TRUE(SetCurrentDirectoryA(directory_.narrow().c_str()));
  Store().Save(settings_);
  ExplorerSettings read;
  Store().Load(&read);
  SetCurrentDirectoryA(before.data());
  EXPECT_EQ(ParsingName(ReadShellLink(directory_.Join(std::string_view(kHomeDirectoryLink))).get()),
            directory_.Join(std::string_view("new home")));
  EXPECT_EQ(Text(read.homeDirectoryName), directory_.Join(std::string_view("new home")));
  EXPECT_EQ(LinkTarget(), "old home") << "the one in the per-user directory is somebody else's now";
}

TEST_F(SettingsFailureTest, WithoutAHomeDirectoryTheLinkStays) {
  settings_.homeDirectory.reset();
  settings_.homeDirectoryName.reset();
  Store().Save(settings_);
  EXPECT_EQ(ProfileValue("CurrHomeDirectoryDisplayNameInAscii"), "");
  EXPECT_EQ(LinkTarget(), "old home");
}

}  // namespace
}  // namespace file_explorer
