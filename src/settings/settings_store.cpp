#include "src/settings/settings_store.h"

#include <array>
#include <utility>

#include "src/filter/category_colors.h"
#include "src/host/vc64_imp.h"
#include "src/settings/directory_links.h"
#include "src/settings/settings_table.h"
#include "src/settings/shell_link.h"

namespace file_explorer {
namespace {

constexpr DWORD kTextSize = 2048;  // longer texts are cut when they are read

unique_host_text CopyText(const std::string& text) {
  return unique_host_text(text.empty() ? nullptr : Import_IO_Copy_String(text.c_str()));
}

}  // namespace

SettingsStore::SettingsStore(std::function<std::string()> profilePath, std::function<HWND()> hostWindow)
    : profilePath_(std::move(profilePath)), hostWindow_(std::move(hostWindow)) {}

unsigned SettingsStore::ReadNumber(const char* key, int defaultValue) const {
  const std::string path = profilePath_();
  if (path.empty()) return static_cast<unsigned>(defaultValue);
  return GetPrivateProfileIntA(kExploreSection, key, defaultValue, path.c_str());
}

bool SettingsStore::WriteNumber(const char* key, int value) const { return WriteText(key, std::to_string(value)); }

std::string SettingsStore::ReadText(const char* key) const {
  const std::string path = profilePath_();
  if (path.empty()) return {};
  std::array<char, kTextSize> buffer = {};
  const DWORD length = GetPrivateProfileStringA(kExploreSection, key, "", buffer.data(), kTextSize, path.c_str());
  return std::string(buffer.data(), length);
}

bool SettingsStore::WriteText(const char* key, const std::string& text) const {
  const std::string path = profilePath_();
  return !path.empty() && WritePrivateProfileStringA(kExploreSection, key, text.c_str(), path.c_str()) != FALSE;
}

void SettingsStore::Load(ExplorerSettings* settings) const {
  // 1. Whole numbers, the filtering method (last in the table) first.
  const auto table = IntegerSettings();
  const IntegerSetting& filteringMethod = table.back();
  SetFromProfile(settings, filteringMethod, ReadNumber(filteringMethod.key, filteringMethod.loadDefault));
  for (const IntegerSetting& setting : table.first(table.size() - 1)) {
    SetFromProfile(settings, setting, ReadNumber(setting.key, setting.loadDefault));
  }
  // 2. The host's own colours stand where the profile has none.
  ResetAndFetchCategoryColors(&settings->colors);
  // 3. Colours of the profile, in category order.
  for (const FileCategoryInfo& category : FileCategories()) {
    ParseCategoryColor(ReadText(category.colorKey), &settings->colors[static_cast<size_t>(category.category)]);
  }
  // 4. Texts.
  settings->homeDirectoryName = CopyText(ReadText(kHomeDirectoryNameKey));
  settings->fileInclusionList = CopyText(ReadText(kInclusionListKey));
  settings->fileExclusionList = CopyText(ReadText(kExclusionListKey));
  // 5. The home directory. The display name that step 4 read is discarded on purpose: it is always worked out from the
  // folder itself, so that a stale name in the profile is never shown.
  settings->homeDirectory.reset();
  const std::string linkPath = UserFilePath(hostWindow_(), kHomeDirectoryLink);
  settings->homeDirectoryName.reset();
  settings->homeDirectory = ResolveDirectoryLink(linkPath);
  RefreshHomeDirectoryName(settings);
}

bool SettingsStore::SaveColors(const ExplorerSettings& settings) const {
  for (const FileCategory category : ColorSaveOrder()) {
    const size_t slot = static_cast<size_t>(category);
    if (!WriteText(FileCategories()[slot].colorKey, FormatCategoryColor(settings.colors[slot]))) return false;
  }
  return true;
}

void SettingsStore::Save(const ExplorerSettings& settings) const {
  const auto textOr = [](const unique_host_text& text, const char* otherwise) {
    return std::string(text ? text.get() : otherwise);
  };
  // 1. Whole numbers, each whatever happened to the one before.
  for (const IntegerSetting& setting : IntegerSettings()) WriteNumber(setting.key, ProfileNumber(settings, setting));
  // 2. to 6. One chain: the first write that fails ends the save. The link does not break it.
  if (!SaveColors(settings)) return;
  if (!WriteText(kHomeDirectoryNameKey, textOr(settings.homeDirectoryName, ""))) return;
  WriteShellLink(UserFilePath(hostWindow_(), kHomeDirectoryLink), settings.homeDirectory.get());
  if (!WriteText(kInclusionListKey, textOr(settings.fileInclusionList, "*.*"))) return;
  WriteText(kExclusionListKey, textOr(settings.fileExclusionList, ""));
}

void ResetToPowerUpDefaults(ExplorerSettings* settings) {
  ResetOptions(settings);
  ResetAndFetchCategoryColors(&settings->colors);
}

void RefreshHomeDirectoryName(ExplorerSettings* settings) {
  settings->homeDirectoryName = CopyText(ParsingName(settings->homeDirectory.get()));
}

}  // namespace file_explorer
