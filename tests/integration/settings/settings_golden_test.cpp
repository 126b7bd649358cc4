// Profiles as files, and the values that they stand for.
#include "tests/integration/settings/settings_store_fixture.h"

#include <cstdio>

#include "src/filter/category_colors.h"
#include "src/settings/directory_links.h"
#include "src/settings/settings_table.h"

namespace file_explorer {
namespace {

std::string ReadDataFile(const std::string& name) {
  std::ifstream file(std::string(TEST_DATA_DIR) + "/" + name, std::ios::binary);
  EXPECT_TRUE(file.good()) << name;
  std::stringstream text;
  text << file.rdbuf();
  return text.str();
}

// A part of a colour; "host" where it is the host's own.
std::string PartText(float part, float hostPart) {
  if (part == hostPart) return "host";
  char text[32];
  std::snprintf(text, sizeof(text), "%g", static_cast<double>(part));
  return text;
}

// Every value, one a line.
std::string ValuesText(const ExplorerSettings& settings, const CategoryColors& hostColors) {
  std::string text;
  for (const IntegerSetting& setting : IntegerSettings()) {
    const int value = setting.word != nullptr ? settings.*setting.word : settings.*setting.flag;
    text += std::string(setting.key) + "=" + std::to_string(value) + "\n";
  }
  for (const FileCategoryInfo& category : FileCategories()) {
    const auto slot = static_cast<size_t>(category.category);
    const CategoryColor& color = settings.colors[slot];
    text += std::string(category.colorKey) + "=" + PartText(color.red, hostColors[slot].red) + " " +
            PartText(color.green, hostColors[slot].green) + " " +
            PartText(color.blue, hostColors[slot].blue) + "\n";
  }
  const auto textOf = [](const unique_host_text& value) {
    return std::string(value ? value.get() : "<none>");
  };
  return text + "home=" + textOf(settings.homeDirectoryName) +
         "\nFileInclusionList=" + textOf(settings.fileInclusionList) +
         "\nFileExclusionList=" + textOf(settings.fileExclusionList) + "\n";
}

class SettingsGoldenTest : public SettingsStoreTest {
 protected:
  void SetUp() override {
    SettingsStoreTest::SetUp();
    Tx_Set_Environment("TS_WORKING_DIR", "C:\\");
    ResetAndFetchCategoryColors(&hostColors_);
  }
  void TearDown() override {
    Tx_Set_Environment("TS_WORKING_DIR", nullptr);
    SettingsStoreTest::TearDown();
  }
  void UseProfile(const std::string& name) { WriteProfile(ReadDataFile(name)); }
  std::string LoadedValues() {
    Store().Load(&settings_);
    return ValuesText(settings_, hostColors_);
  }

  CategoryColors hostColors_ = {};
};

struct LoadCase {
  const char* profile;
  const char* values;
};

class SettingsLoadTest : public SettingsGoldenTest, public testing::WithParamInterface<LoadCase> {};

TEST_P(SettingsLoadTest, GivesTheValuesOfTheFile) {
  UseProfile(GetParam().profile);
  EXPECT_EQ(LoadedValues(), ReadDataFile(GetParam().values));
}

INSTANTIATE_TEST_SUITE_P(Profiles, SettingsLoadTest,
                         testing::Values(LoadCase{"empty.ini", "fresh.values"},
                                         LoadCase{"other_sections.ini", "fresh.values"},
                                         LoadCase{"broken.ini", "broken.values"},
                                         LoadCase{"long_list.ini", "long_list.values"}),
                         [](const auto& info) {
                           const std::string name = info.param.profile;
                           std::string title;
                           for (const char c : name.substr(0, name.find('.'))) {
                             if (c != '_') title += c;
                           }
                           return title;
                         });

TEST_F(SettingsGoldenTest, AMissingFileGivesTheValuesOfAnEmptyOne) {
  EXPECT_EQ(LoadedValues(), ReadDataFile("fresh.values"));
}

// Every option differs from its default.
void SetEverything(ExplorerSettings* settings) {
  for (const IntegerSetting& setting : IntegerSettings()) {
    SetFromProfile(settings, setting, setting.loadDefault == 0 ? 1U : 0U);
  }
  settings->newWindowDockingPosition = 1;
  settings->fileExtensionFilteringMethod = 11;
  settings->colors = {{{0.0F, 0.5F, 1.0F},
                       {0.1F, 0.2F, 0.3F},
                       {0.25F, 0.125F, 0.0625F},
                       {1.0F, 0.0F, 0.0F},
                       {1.0F / 3.0F, 2.0F / 3.0F, 1.0F},
                       {1e-7F, 0.5F, 0.5F},
                       {0.4F, 0.5F, 0.6F},
                       {0.7F, 0.8F, 0.9F},
                       {0.01F, 0.02F, 0.03F},
                       {1.0F, 1.0F, 1.0F}}};
  settings->homeDirectory = ParsePath("c:\\");
  RefreshHomeDirectoryName(settings);
  settings->fileInclusionList.reset(Import_IO_Copy_String("*.3ds,*.obj|*.stl"));
  settings->fileExclusionList.reset(Import_IO_Copy_String("||test*|*.bak"));
}

TEST_F(SettingsGoldenTest, AFullSaveIsTheFileByteForByte) {
  SetEverything(&settings_);
  Store().Save(settings_);
  EXPECT_EQ(ProfileText(), ReadDataFile("full_save.ini"));
}

TEST_F(SettingsGoldenTest, SavingIsTheSameWhateverTheFileHeldBefore) {
  SetEverything(&settings_);
  WriteProfile("[Explore]\r\n");
  Store().Save(settings_);
  Store().Save(settings_);
  EXPECT_EQ(ProfileText(), ReadDataFile("full_save.ini"));
}

TEST_F(SettingsGoldenTest, AFullFileComesBackByteForByte) {
  UseProfile("full_save.ini");
  hostColors_.fill({-1.0F, -1.0F, -1.0F});  // no colour here is the host's
  EXPECT_EQ(LoadedValues(), ReadDataFile("full_save.values"));
  profile_ = directory_.Join(std::string_view("second.ini"));
  Store().Save(settings_);
  EXPECT_EQ(ProfileText(), ReadDataFile("full_save.ini"));
}

TEST_F(SettingsGoldenTest, VectorColoursAreSavedBeforeBitmapColoursDeliberately) {
  const std::string text = ReadDataFile("full_save.ini");
  EXPECT_LT(text.find("default_color_2D_vector_files"), text.find("default_color_2D_bitmap_files"));
}

TEST_F(SettingsGoldenTest, ABrokenFileIsStableOnceItIsSaved) {
  UseProfile("broken.ini");
  Store().Load(&settings_);
  Store().Save(settings_);
  EXPECT_EQ(ProfileValue("NewWindowDockingPosition"), "99") << "out of range, and kept";
  EXPECT_EQ(ProfileValue("CreateOneNewWindowPerZIPFile"), "-3");
  EXPECT_EQ(ProfileValue("TreeView_ShowHiddenFiles"), "4464") << "70000 as a signed 16-bit number";
  EXPECT_EQ(ProfileValue("FileInclusionList"), "*.*");
  EXPECT_NE(ProfileText().find("this line is no setting"), std::string::npos) << "others' lines stay";
  const std::string saved = ProfileText();
  ExplorerSettings again;
  Store().Load(&again);
  EXPECT_EQ(again.treeViewShowsHiddenFiles, 4464);
  Store().Save(again);
  EXPECT_EQ(ProfileText(), saved);
}

TEST_F(SettingsGoldenTest, ALongListIsWrittenWholeAndCutWhenItIsRead) {
  const std::string list(5000, 'a');
  settings_.fileInclusionList.reset(Import_IO_Copy_String(list.c_str()));
  Store().Save(settings_);
  EXPECT_EQ(ProfileValue("FileInclusionList"), list);
  ExplorerSettings read;
  Store().Load(&read);
  EXPECT_EQ(Text(read.fileInclusionList), list.substr(0, 2047));
}

TEST_F(SettingsGoldenTest, OtherSectionsAndKeysSurviveASave) {
  WriteProfile("; a comment\r\n[History]\r\nMaximum=7\r\n[Explore]\r\ncurr_fileview_display_mode=3\r\n");
  SetEverything(&settings_);
  Store().Save(settings_);
  const std::string text = ProfileText();
  EXPECT_NE(text.find("; a comment\r\n[History]\r\nMaximum=7\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("curr_fileview_display_mode=3\r\n"), std::string::npos) << text;
}

}  // namespace
}  // namespace file_explorer
