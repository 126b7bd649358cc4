#include "src/settings/options_logic.h"

namespace file_explorer {
namespace {

using V = SettingsValues;

constexpr const char* kCreationMethods[] = {"Tabbed MDI Document Window", "Tabbed Collapsible Pop-up Window"};
constexpr std::uint16_t kDocumentMethod = 0;
constexpr std::uint16_t kCollapsibleMethod = 5;

constexpr const char* kDockingPositions[] = {"Left", "Right", "Top", "Bottom"};

constexpr OptionsCheckBox kCheckBoxes[] = {
    {915, &V::groupRelatedFilesTogether},
    {914, &V::oneNewWindowPerZipFile},
    {913, &V::treeViewShowsFiles},
    {912, &V::treeViewShowsVirtualFolders},
    {kOptionsTreeShowsHiddenFiles, &V::treeViewShowsHiddenFiles},
    {910, &V::treeViewAllowsDragAndDrop},
    {909, &V::fileViewShowsFolders},
    {908, &V::fileViewShowsVirtualFolders},
    {907, &V::fileViewShowsHiddenItems},
    {905, &V::fileViewAllowsDragAndDrop},
    {906, &V::fileViewShowsGridLines},
    {922, &V::singleClickFileLoading},
    {903, &V::comboViewShowsFullPath},
    {904, &V::comboViewShowsVirtualFolders},
    {902, &V::comboViewFilenameCompletion},
};

bool IsAlwaysOffered(FileCategory category) {
  return category == FileCategory::Object3D || category == FileCategory::Bitmap2D;
}

}  // namespace

std::span<const char* const> CreationMethodEntries() {
  return kCreationMethods;
}
std::span<const char* const> DockingPositionEntries() {
  return kDockingPositions;
}

int CreationMethodIndex(std::uint16_t method) {
  return method == kCollapsibleMethod ? 1 : 0;
}
std::uint16_t CreationMethodOf(int index) {
  return index > 0 ? kCollapsibleMethod : kDocumentMethod;
}

std::span<const OptionsCheckBox> OptionsCheckBoxes() {
  return kCheckBoxes;
}

const OptionsCheckBox* FindOptionsCheckBox(int id) {
  for (const OptionsCheckBox& box : kCheckBoxes) {
    if (box.id == id) return &box;
  }
  return nullptr;
}

void FlipOption(SettingsValues* values, const OptionsCheckBox& box) {
  std::int32_t& option = values->*box.flag;
  option = option == 0 ? 1 : 0;
}

std::vector<FileCategory> OfferedCategories(const std::function<bool(std::uint32_t typeBit)>& isRegistered) {
  std::vector<FileCategory> offered;
  for (const FileCategoryInfo& category : FileCategories()) {
    if (IsAlwaysOffered(category.category) || isRegistered(category.typeBit))
      offered.push_back(category.category);
  }
  return offered;
}

}  // namespace file_explorer
