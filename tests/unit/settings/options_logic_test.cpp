#include "src/settings/options_logic.h"

#include <gmock/gmock.h>

#include <set>
#include <string>
#include <vector>

#include "src/settings/settings_table.h"

namespace file_explorer {
namespace {

using testing::ElementsAre;

TEST(OptionsLists, OfferTheMethodsAndPositionsInTheirOrder) {
  EXPECT_THAT(CreationMethodEntries(), ElementsAre(testing::StrEq("Tabbed MDI Document Window"),
                                                   testing::StrEq("Tabbed Collapsible Pop-up Window")));
  EXPECT_THAT(DockingPositionEntries(), ElementsAre(testing::StrEq("Left"), testing::StrEq("Right"),
                                                    testing::StrEq("Top"), testing::StrEq("Bottom")));
}

TEST(OptionsLists, TheSecondMethodIsFiveAndNeverOne) {
  EXPECT_EQ(CreationMethodOf(0), 0);
  EXPECT_EQ(CreationMethodOf(1), 5);
  EXPECT_EQ(CreationMethodOf(-1), 0);  // nothing selected
}

TEST(OptionsLists, AnyMethodButFiveIsShownAsTheFirst) {
  EXPECT_EQ(CreationMethodIndex(5), 1);
  for (const std::uint16_t method : {0, 1, 3, 4, 6, 65535})
    EXPECT_EQ(CreationMethodIndex(method), 0) << method;
}

TEST(OptionsCheckBoxes, EachEditsTheOptionOfItsProfileKey) {
  struct Row {
    int id;
    const char* key;
  };
  const Row rows[] = {
      {915, "GroupRelatedFilesTogetherOnFileView"},
      {914, "CreateOneNewWindowPerZIPFile"},
      {913, "TreeView_ShowFiles"},
      {912, "TreeView_ShowVirtualFolders"},
      {911, "TreeView_ShowHiddenFiles"},
      {910, "TreeView_AllowDragandDrop"},
      {909, "FileView_ShowFolders"},
      {908, "FileView_ShowVirtualFolders"},
      {907, "FileView_ShowHiddenItems"},
      {905, "FileView_AllowDragandDrop"},
      {906, "FileView_ShowGridLines"},
      {922, "FileView_SingleClickFileLoading"},
      {903, "ComboView_ShowFullPath"},
      {904, "ComboView_ShowVirtualFolders"},
      {902, "ComboView_EnaFilenameCompletion"},
  };
  EXPECT_EQ(OptionsCheckBoxes().size(), std::size(rows));
  for (const Row& row : rows) {
    const OptionsCheckBox* const box = FindOptionsCheckBox(row.id);
    ASSERT_NE(box, nullptr) << row.id;
    for (const IntegerSetting& setting : IntegerSettings()) {
      EXPECT_EQ(setting.flag == box->flag, std::string(setting.key) == row.key)
          << row.id << ' ' << setting.key;
    }
  }
}

TEST(OptionsCheckBoxes, CoverEveryFlagOnceAndNoOtherControl) {
  std::set<int> ids;
  for (const OptionsCheckBox& box : OptionsCheckBoxes()) ids.insert(box.id);
  EXPECT_EQ(ids.size(), 15U);
  for (const int id : {0, 1, 2, 901, 916, 917, 918, 919, 920, 921, 923, 1000, 1001, 1015}) {
    EXPECT_EQ(FindOptionsCheckBox(id), nullptr) << id;
  }
}

TEST(OptionsCheckBoxes, FlippingInvertsWhateverIsOn) {
  SettingsValues values;
  const OptionsCheckBox& box = *FindOptionsCheckBox(913);
  FlipOption(&values, box);
  EXPECT_EQ(values.treeViewShowsFiles, 1);
  FlipOption(&values, box);
  EXPECT_EQ(values.treeViewShowsFiles, 0);
  values.treeViewShowsFiles = -7;  // from a profile that somebody edited
  FlipOption(&values, box);
  EXPECT_EQ(values.treeViewShowsFiles, 0);
}

TEST(OptionsCheckBoxes, FlippingChangesNothingElse) {
  for (const OptionsCheckBox& box : OptionsCheckBoxes()) {
    SettingsValues values;
    FlipOption(&values, box);
    EXPECT_NE(values, SettingsValues()) << box.id;
    FlipOption(&values, box);
    EXPECT_EQ(values, SettingsValues()) << box.id;
  }
}

TEST(OfferedCategories, WithEveryTypeRegisteredAreAllTenInOrder) {
  const std::vector<FileCategory> offered = OfferedCategories([](std::uint32_t) { return true; });
  ASSERT_EQ(offered.size(), 10U);
  for (int i = 0; i < kFileCategoryCount; ++i)
    EXPECT_EQ(static_cast<int>(offered[static_cast<size_t>(i)]), i);
}

TEST(OfferedCategories, WithNoTypeRegisteredAreObjectsAndBitmaps) {
  EXPECT_THAT(OfferedCategories([](std::uint32_t) { return false; }),
              ElementsAre(FileCategory::Object3D, FileCategory::Bitmap2D));
}

TEST(OfferedCategories, KeepTheirNumbersWhenOthersAreLeftOut) {
  const auto withoutText = [](std::uint32_t typeBit) { return typeBit != 64; };
  EXPECT_THAT(OfferedCategories(withoutText),
              ElementsAre(FileCategory::Object3D, FileCategory::Bitmap2D, FileCategory::Vector2D,
                          FileCategory::Archive, FileCategory::Video, FileCategory::Audio,
                          FileCategory::Spreadsheet, FileCategory::Database, FileCategory::Presentation));
}

TEST(OfferedCategories, AskForEachTypeBitButTheFirstTwo) {
  std::vector<std::uint32_t> asked;
  OfferedCategories([&](std::uint32_t typeBit) {
    asked.push_back(typeBit);
    return false;
  });
  EXPECT_THAT(asked, ElementsAre(1024, 64, 32, 8, 16, 128, 256, 512));
}

}  // namespace
}  // namespace file_explorer
