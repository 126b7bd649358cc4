#include "src/settings/settings_table.h"

#include <gmock/gmock.h>

#include <string>
#include <vector>

namespace file_explorer {
namespace {

using testing::ElementsAre;

TEST(SettingsTable, SavesInTheFixedOrder) {
  std::vector<std::string> keys;
  for (const IntegerSetting& setting : IntegerSettings()) keys.emplace_back(setting.key);
  EXPECT_THAT(keys, ElementsAre("NewWindowCreationMethod", "NewWindowDockingPosition",
                                "GroupRelatedFilesTogetherOnFileView", "CreateOneNewWindowPerZIPFile",
                                "TreeView_ShowFiles", "TreeView_ShowVirtualFolders", "TreeView_AllowDragandDrop",
                                "TreeView_ShowHiddenFiles", "FileView_ShowFolders", "FileView_ShowVirtualFolders",
                                "FileView_AllowDragandDrop", "FileView_ShowHiddenItems", "FileView_ShowGridLines",
                                "FileView_SingleClickFileLoading", "ComboView_ShowFullPath",
                                "ComboView_ShowVirtualFolders", "ComboView_EnaFilenameCompletion",
                                "FileExtensionFilteringMethod"));
}

TEST(SettingsTable, LoadDefaultsAreTheFieldsInitialValues) {
  SettingsValues loaded;
  for (const IntegerSetting& setting : IntegerSettings()) {
    SetFromProfile(&loaded, setting, static_cast<unsigned>(setting.loadDefault));
  }
  EXPECT_EQ(loaded, SettingsValues());
}

TEST(SettingsTable, FreshProfileConcealsHiddenItemsAndResetShowsThemDeliberately) {
  SettingsValues values;
  EXPECT_EQ(values.treeViewShowsHiddenFiles, 0);
  EXPECT_EQ(values.fileViewShowsHiddenItems, 0);
  ResetOptions(&values);
  EXPECT_EQ(values.treeViewShowsHiddenFiles, 1);
  EXPECT_EQ(values.fileViewShowsHiddenItems, 1);
}

TEST(SettingsTable, ResetLeavesTheFilteringMethodAlone) {
  SettingsValues values;
  values.fileExtensionFilteringMethod = 7;
  values.newWindowCreationMethod = 0;
  values.newWindowDockingPosition = 1;
  values.singleClickFileLoading = 1;
  values.fileViewShowsGridLines = 0;
  ResetOptions(&values);
  EXPECT_EQ(values.fileExtensionFilteringMethod, 7);
  EXPECT_EQ(values.newWindowCreationMethod, 5);
  EXPECT_EQ(values.newWindowDockingPosition, 3);
  EXPECT_EQ(values.singleClickFileLoading, 0);
  EXPECT_EQ(values.fileViewShowsGridLines, 1);
}

TEST(SettingsTable, NumbersGoToTheProfileAsSigned16BitOnes) {
  SettingsValues values;
  const auto settings = IntegerSettings();
  SetFromProfile(&values, settings[0], 0xFFFF);
  EXPECT_EQ(ProfileNumber(values, settings[0]), -1);
  SetFromProfile(&values, settings[2], 0x12345);
  EXPECT_EQ(values.groupRelatedFilesTogether, 0x12345);
  EXPECT_EQ(ProfileNumber(values, settings[2]), 0x2345);
}

TEST(SettingsTable, OutOfRangeCreationMethodSurvives) {
  SettingsValues values;
  SetFromProfile(&values, IntegerSettings()[0], 3);
  EXPECT_EQ(ProfileNumber(values, IntegerSettings()[0]), 3);
}

TEST(SettingsTable, ColoursAreSavedInAnOrderOfTheirOwnDeliberately) {
  EXPECT_THAT(ColorSaveOrder(),
              ElementsAre(FileCategory::Object3D, FileCategory::Vector2D, FileCategory::Bitmap2D, FileCategory::Text,
                          FileCategory::Archive, FileCategory::Video, FileCategory::Audio, FileCategory::Spreadsheet,
                          FileCategory::Database, FileCategory::Presentation));
}

}  // namespace
}  // namespace file_explorer
