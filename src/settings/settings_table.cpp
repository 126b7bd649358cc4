#include "src/settings/settings_table.h"

namespace file_explorer {
namespace {

using V = SettingsValues;

constexpr IntegerSetting kSettings[] = {
    {"NewWindowCreationMethod", &V::newWindowCreationMethod, nullptr, 5, 5},
    {"NewWindowDockingPosition", &V::newWindowDockingPosition, nullptr, 3, 3},
    {"GroupRelatedFilesTogetherOnFileView", nullptr, &V::groupRelatedFilesTogether, 1, 1},
    {"CreateOneNewWindowPerZIPFile", nullptr, &V::oneNewWindowPerZipFile, 0, 0},
    {"TreeView_ShowFiles", nullptr, &V::treeViewShowsFiles, 0, 0},
    {"TreeView_ShowVirtualFolders", nullptr, &V::treeViewShowsVirtualFolders, 1, 1},
    {"TreeView_AllowDragandDrop", nullptr, &V::treeViewAllowsDragAndDrop, 1, 1},
    // Hidden files and items start concealed in a fresh profile, and Reset shows them: the two defaults differ.
    {"TreeView_ShowHiddenFiles", nullptr, &V::treeViewShowsHiddenFiles, 0, 1},
    {"FileView_ShowFolders", nullptr, &V::fileViewShowsFolders, 1, 1},
    {"FileView_ShowVirtualFolders", nullptr, &V::fileViewShowsVirtualFolders, 1, 1},
    {"FileView_AllowDragandDrop", nullptr, &V::fileViewAllowsDragAndDrop, 1, 1},
    {"FileView_ShowHiddenItems", nullptr, &V::fileViewShowsHiddenItems, 0, 1},
    {"FileView_ShowGridLines", nullptr, &V::fileViewShowsGridLines, 1, 1},
    {"FileView_SingleClickFileLoading", nullptr, &V::singleClickFileLoading, 0, 0},
    {"ComboView_ShowFullPath", nullptr, &V::comboViewShowsFullPath, 1, 1},
    {"ComboView_ShowVirtualFolders", nullptr, &V::comboViewShowsVirtualFolders, 1, 1},
    {"ComboView_EnaFilenameCompletion", nullptr, &V::comboViewFilenameCompletion, 1, 1},
    {"FileExtensionFilteringMethod", &V::fileExtensionFilteringMethod, nullptr, 0, kNoReset},
};

void Store(SettingsValues* values, const IntegerSetting& setting, unsigned number) {
  if (setting.word != nullptr) {
    values->*setting.word = static_cast<std::uint16_t>(number);
  } else {
    values->*setting.flag = static_cast<std::int32_t>(number);
  }
}

}  // namespace

std::span<const IntegerSetting> IntegerSettings() { return kSettings; }

int ProfileNumber(const SettingsValues& values, const IntegerSetting& setting) {
  return setting.word != nullptr ? static_cast<std::int16_t>(values.*setting.word)
                                 : static_cast<std::int16_t>(values.*setting.flag);
}

void SetFromProfile(SettingsValues* values, const IntegerSetting& setting, unsigned number) {
  Store(values, setting, number);
}

const std::array<FileCategory, kFileCategoryCount>& ColorSaveOrder() {
  static constexpr std::array<FileCategory, kFileCategoryCount> kOrder = {
      FileCategory::Object3D, FileCategory::Vector2D, FileCategory::Bitmap2D,    FileCategory::Text,
      FileCategory::Archive,  FileCategory::Video,    FileCategory::Audio,       FileCategory::Spreadsheet,
      FileCategory::Database, FileCategory::Presentation};
  return kOrder;
}

void ResetOptions(SettingsValues* values) {
  for (const IntegerSetting& setting : kSettings) {
    if (setting.resetDefault != kNoReset) Store(values, setting, static_cast<unsigned>(setting.resetDefault));
  }
}

}  // namespace file_explorer
