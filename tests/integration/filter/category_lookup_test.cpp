// Kinds, colours and import handlers of file names, from the real registry of formats.
#include "src/filter/category_lookup.h"

#include <gtest/gtest.h>

#include "src/filter/category_colors.h"
#include "src/settings/settings_store.h"
#include "tests/integration/filter/registered_formats.h"
#include "tests/support/temp_directory.h"

namespace file_explorer {
namespace {

constexpr char kFirst[] = "{11111111-0000-4000-8000-0000000000F1}";
constexpr char kSecond[] = "{22222222-0000-4000-8000-0000000000F1}";
constexpr char kThird[] = "{33333333-0000-4000-8000-0000000000F1}";

class CategoryLookupTest : public testing::Test {
 protected:
  ~CategoryLookupTest() override { Tx_FileFormatHandler_ResetAssociatedFileTypeHandlerColors(); }
};

TEST_F(CategoryLookupTest, ANameHasTheTypesOfItsImportersAndViewers) {
  const TestFormat importer(kFirst, "importer", ".zq1", kTxTypeObject3D);
  const TestFormat viewer(kSecond, "viewer", ".zq1", kTxTypeBitmap2D);
  const TestFormat exporter(kThird, "exporter", ".zq1", kTxTypeAudio);
  EXPECT_EQ(CategoryTypeMask("Model.ZQ1"), static_cast<std::uint32_t>(kTxTypeObject3D | kTxTypeBitmap2D));
  EXPECT_EQ(CategoryTypeMask("model.zq2"), 0U);
  EXPECT_EQ(CategoryTypeMask(""), 0U);
  EXPECT_EQ(CategoryTypeMask(nullptr), 0U);
}

TEST_F(CategoryLookupTest, ATypeIsRegisteredWhenAnImporterOrViewerHasIt) {
  const WithoutFormats none(kTxTypeVector2D);
  EXPECT_FALSE(IsFormatRegistered(kTxTypeVector2D));
  {
    const TestFormat exporter(kFirst, "exporter", ".zq1", kTxTypeVector2D);
    EXPECT_FALSE(IsFormatRegistered(kTxTypeVector2D));
    const TestFormat viewer(kSecond, "viewer", ".zq1", kTxTypeVector2D);
    EXPECT_TRUE(IsFormatRegistered(kTxTypeVector2D));
  }
  EXPECT_FALSE(IsFormatRegistered(kTxTypeVector2D));
}

TEST_F(CategoryLookupTest, AFileWithoutAHandlerHasNoColour) {
  EXPECT_EQ(CategoryColorFor("readme.zq1"), std::nullopt);
  EXPECT_EQ(CategoryColorFor("readme"), std::nullopt);
  EXPECT_EQ(CategoryColorFor(nullptr), std::nullopt);
}

TEST_F(CategoryLookupTest, TheBitThatBelongsToNoCategoryGivesNoColour) {
  const TestFormat format(kFirst, "viewer", ".zq1", kTxTypeUnknown);
  EXPECT_EQ(CategoryTypeMask("a.zq1"), 1U);
  EXPECT_EQ(CategoryColorFor("a.zq1"), std::nullopt);
}

TEST_F(CategoryLookupTest, AModelHasTheColourOfTheFirstCategory) {
  const TestFormat importer(kFirst, "importer", ".zq1", kTxTypeObject3D);
  const TestFormat viewer(kSecond, "viewer", ".zq1", kTxTypeObject3D);
  CategoryColors colors = {};
  colors[0] = {0.25F, 0.5F, 1.0F};
  PushCategoryColorsToHost(colors);
  EXPECT_EQ(CategoryColorFor("model.zq1"), COLORREF{0xFF7F3F});
}

TEST_F(CategoryLookupTest, TheHostDecidesForAFileOfSeveralTypes) {
  const TestFormat format(kFirst, "viewer", ".zq1", kTxTypeText | kTxTypeBitmap2D | kTxTypeUnknown);
  CategoryColors colors = {};
  colors[static_cast<size_t>(FileCategory::Bitmap2D)] = {0.0F, 1.0F, 0.0F};
  colors[static_cast<size_t>(FileCategory::Text)] = {1.0F, 0.0F, 0.0F};
  PushCategoryColorsToHost(colors);
  EXPECT_EQ(CategoryColorFor("a.zq1"), COLORREF{0x00FF00});
}

TEST_F(CategoryLookupTest, EachCategoryKeepsItsOwnColourInTheHost) {
  CategoryColors colors = {};
  for (int i = 0; i < kFileCategoryCount; ++i)
    colors[static_cast<size_t>(i)].red = static_cast<float>(i) / 16.0F;
  PushCategoryColorsToHost(colors);
  for (const FileCategoryInfo& category : FileCategories()) {
    float red = -1.0F, green = -1.0F, blue = -1.0F;
    ASSERT_TRUE(
        Tx_FileFormatHandler_GetAssociatedFileTypeHandlerColor(category.typeBit, &red, &green, &blue));
    EXPECT_EQ(red, static_cast<float>(static_cast<int>(category.category)) / 16.0F) << category.label;
  }
}

TEST_F(CategoryLookupTest, ResetTakesTheHostsFactoryColours) {
  CategoryColors factory = {};
  ResetAndFetchCategoryColors(&factory);
  CategoryColors red;
  red.fill({1.0F, 0.0F, 0.0F});
  PushCategoryColorsToHost(red);
  CategoryColors fetched = red;
  ResetAndFetchCategoryColors(&fetched);
  EXPECT_EQ(fetched, factory);
  EXPECT_NE(fetched, red);
}

class StoredColorTest : public CategoryLookupTest {
 protected:
  StoredColorTest()
      : store_([this] { return directory_.Join(std::string_view("profile.ini")); }, [] { return HWND{}; }) {
    SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", directory_.narrow().c_str());
  }
  ~StoredColorTest() override { SetEnvironmentVariableA("HALVO_APPLICATION_DIRECTORY", nullptr); }

  void WriteKey(const char* key, const char* text) {
    WritePrivateProfileStringA("Explore", key, text,
                               directory_.Join(std::string_view("profile.ini")).c_str());
  }
  CategoryColors LoadAndPush() {
    ExplorerSettings settings;
    store_.Load(&settings);
    PushCategoryColorsToHost(settings.colors);
    return settings.colors;
  }

  test_support::TempDirectory directory_;
  SettingsStore store_;
};

TEST_F(StoredColorTest, AKeyGivesTheBackground) {
  const TestFormat text(kFirst, "viewer", ".zq1", kTxTypeText);
  WriteKey("default_color_Text_files", "1 0 0");
  LoadAndPush();
  EXPECT_EQ(CategoryColorFor("a.zq1"), COLORREF{0x0000FF});
  WriteKey("default_color_Text_files", "0.5 0.5 0.5");
  LoadAndPush();
  EXPECT_EQ(CategoryColorFor("a.zq1"), COLORREF{0x7F7F7F});
}

TEST_F(StoredColorTest, AnEmptyKeyAndAMissingOneKeepTheHostsColour) {
  CategoryColors factory = {};
  ResetAndFetchCategoryColors(&factory);
  WriteKey("default_color_Audio_files", "");
  EXPECT_EQ(LoadAndPush(), factory);
}

TEST_F(StoredColorTest, ALoadBeginsWithTheFactoryColours) {
  CategoryColors factory = {};
  ResetAndFetchCategoryColors(&factory);
  CategoryColors red;
  red.fill({1.0F, 0.0F, 0.0F});
  PushCategoryColorsToHost(red);
  WriteKey("default_color_Audio_files", "0.5 x");
  CategoryColors expected = factory;
  expected[static_cast<size_t>(FileCategory::Audio)].red = 0.5F;
  EXPECT_EQ(LoadAndPush(), expected);
}

TEST_F(StoredColorTest, WhatIsSavedIsLoadedAgain) {
  ExplorerSettings settings;
  store_.Load(&settings);
  settings.colors[3] = {1.0F, 0.25F, 0.125F};
  store_.Save(settings);
  char text[64] = "";
  GetPrivateProfileStringA("Explore", "default_color_Text_files", "", text, sizeof text,
                           directory_.Join(std::string_view("profile.ini")).c_str());
  EXPECT_STREQ(text, "1 0.25 0.125");
  EXPECT_EQ(LoadAndPush()[3], settings.colors[3]);
}

TEST_F(CategoryLookupTest, AnEnabledImporterTakesItsExtensionsInAnyCase) {
  const TestFormat format(kFirst, "importer", ".ZQ1;.zq2", kTxTypeObject3D);
  std::string guid;
  EXPECT_TRUE(FindImportHandler("C:\\Models\\Cube.zq1", &guid));
  EXPECT_EQ(guid, kFirst);
  EXPECT_TRUE(FindImportHandler("CUBE.ZQ2", &guid));
  EXPECT_EQ(guid, kFirst);
}

TEST_F(CategoryLookupTest, OfTwoImportersTheFirstInPlugInOrderWins) {
  // Their names and GUIDs order them the other way round.
  const TestFormat first(kThird, "importer", ".zq1", kTxTypeObject3D);
  const TestFormat second(kFirst, "importer", ".zq1", kTxTypeObject3D);
  Tx_FileFormatHandler_SortList(Token("byname"), 0, 0);
  std::string guid;
  EXPECT_TRUE(FindImportHandler("cube.zq1", &guid));
  EXPECT_EQ(guid, kThird);
}

TEST_F(CategoryLookupTest, ADisabledImporterIsNeverGiven) {
  const TestFormat disabled(kFirst, "importer", ".zq1", kTxTypeObject3D, "off");
  std::string guid = "old";
  EXPECT_FALSE(FindImportHandler("cube.zq1", &guid));
  EXPECT_EQ(guid, "");
  const TestFormat enabled(kSecond, "importer", ".zq1", kTxTypeObject3D);
  EXPECT_TRUE(FindImportHandler("cube.zq1", &guid));
  EXPECT_EQ(guid, kSecond);
}

TEST_F(CategoryLookupTest, OnlyImportersImport) {
  const TestFormat viewer(kFirst, "viewer", ".zq1", kTxTypeObject3D);
  const TestFormat exporter(kSecond, "exporter", ".zq1", kTxTypeObject3D);
  std::string guid = "old";
  EXPECT_FALSE(FindImportHandler("cube.zq1", &guid));
  EXPECT_EQ(guid, "");
  EXPECT_FALSE(FindImportHandler(nullptr, &guid));
  EXPECT_FALSE(FindImportHandler("", &guid));
}

TEST_F(CategoryLookupTest, TheImportLookUpFreesWhatItGets) {
  const TestFormat format(kFirst, "importer", ".zq1", kTxTypeObject3D);
  std::string guid;
  FindImportHandler("cube.zq1", &guid);
  const size_t before = Tx_Inquire_Allocated_Blocks();
  EXPECT_TRUE(FindImportHandler("cube.zq1", &guid));
  EXPECT_FALSE(FindImportHandler("cube.zq9", &guid));
  EXPECT_EQ(Tx_Inquire_Allocated_Blocks(), before);
}

}  // namespace
}  // namespace file_explorer
