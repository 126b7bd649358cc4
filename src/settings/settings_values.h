// The values of the explorer's options, without what Windows owns.
#pragma once

#include <cstdint>

#include "src/filter/file_category.h"

namespace file_explorer {

// Options kept as numbers. The booleans hold what the profile holds: 0 is off, everything else on. Nothing is clamped.
struct SettingsValues {
  std::uint16_t newWindowCreationMethod = 5;   // 0 or 5 from the dialog; other values survive
  std::uint16_t newWindowDockingPosition = 3;  // 0 left, 1 right, 2 top, 3 bottom
  std::int32_t groupRelatedFilesTogether = 1;
  std::int32_t oneNewWindowPerZipFile = 0;
  std::int32_t treeViewShowsFiles = 0;
  std::int32_t treeViewShowsVirtualFolders = 1;
  std::int32_t treeViewAllowsDragAndDrop = 1;
  std::int32_t treeViewShowsHiddenFiles = 0;
  std::int32_t fileViewShowsFolders = 1;
  std::int32_t fileViewShowsVirtualFolders = 1;
  std::int32_t fileViewAllowsDragAndDrop = 1;
  std::int32_t fileViewShowsHiddenItems = 0;
  std::int32_t fileViewShowsGridLines = 1;
  std::int32_t singleClickFileLoading = 0;
  std::int32_t comboViewShowsFullPath = 1;
  std::int32_t comboViewShowsVirtualFolders = 1;
  std::int32_t comboViewFilenameCompletion = 1;
  CategoryColors colors = {};
  std::uint16_t fileExtensionFilteringMethod = 0;  // position in the list of type filters, 0 to 11

  bool operator==(const SettingsValues&) const = default;
};

}  // namespace file_explorer
