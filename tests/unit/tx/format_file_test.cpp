#include "workbench/tx/format_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <set>
#include <string>

#include "workbench/tx/color_table.h"

namespace workbench::tx {
namespace {

constexpr char kLine[] = "{47EAA099-2CB6-416D-86DC-283CF0480FF9} | importer | 3d text | .3ds;.obj | 3DS mesh";

TEST(FormatFile, ReadsALine) {
  size_t skipped = 99;
  const auto formats = ParseFormatFile(kLine, &skipped);
  ASSERT_EQ(formats.size(), 1u);
  EXPECT_EQ(formats[0].guid, "{47EAA099-2CB6-416D-86DC-283CF0480FF9}");
  EXPECT_EQ(formats[0].function, HandlerFunction::kImporter);
  EXPECT_EQ(formats[0].types, kTxTypeObject3D | kTxTypeText);
  EXPECT_EQ(formats[0].fileTypes, ".3ds;.obj");
  EXPECT_EQ(formats[0].name, "3DS mesh");
  EXPECT_TRUE(formats[0].enabled);
  EXPECT_EQ(skipped, 0u);
}

TEST(FormatFile, TakesEveryLineEndABlankLineAndAByteOrderMark) {
  const std::string line = kLine;
  size_t skipped = 99;
  const auto formats = ParseFormatFile(
      "\xEF\xBB\xBF# comment\r\n\r\n  \t\n" + line + "\r\n\t" + line + " \r" + line, &skipped);
  EXPECT_EQ(formats.size(), 3u);
  EXPECT_EQ(skipped, 0u);
}

TEST(FormatFile, SkipsBadLinesAndKeepsTheOthers) {
  const std::string good = kLine;
  const std::string guid = "{47EAA099-2CB6-416D-86DC-283CF0480FF9}";
  const std::string bad[] = {
      "nonsense",
      guid + " | importer | 3d | .3ds",                // a field is missing
      guid + " | importer | 3d | .3ds | name | more",  // one too many
      guid + " | importer | 3d |  | name",             // an empty one
      guid + " | importer | 3d | *.* | name",          // no extension
      guid + " | reader | 3d | .3ds | name",           // unknown function
      guid + " | importer | 4d | .3ds | name",         // unknown type
      guid + " | importer | 3d 4d | .3ds | name",      // one of two unknown
      "47EAA099-2CB6-416D-86DC-283CF0480FF9 | importer | 3d | .3ds | name",
      "{47EAA099-2CB6-416D-86DC-283CF0480FFG} | importer | 3d | .3ds | name",
      "{47EAA099-2CB6-416D-86DC-283CF0480FF9 | importer | 3d | .3ds | name",
      guid + " | importer | 3d | .3ds | na\x01me",
      std::string("\0\xFF\x80\n", 4),
  };
  for (const std::string& line : bad) {
    size_t skipped = 0;
    EXPECT_EQ(ParseFormatFile(good + "\n" + line + "\n" + good, &skipped).size(), 2u) << line;
    EXPECT_EQ(skipped, 1u) << line;
  }
}

TEST(FormatFile, AnEmptyFileIsAnEmptyList) {
  EXPECT_TRUE(ParseFormatFile("").empty());
  EXPECT_TRUE(ParseFormatFile("\xEF\xBB\xBF").empty());
}

TEST(FormatFile, ReadsNoMoreThanItsLimits) {
  std::string many;
  for (size_t i = 0; i < kFormatLimit + 10; ++i) many += std::string(kLine) + "\n";
  EXPECT_EQ(ParseFormatFile(many).size(), kFormatLimit);
  EXPECT_TRUE(ParseFormatFile(std::string(kFormatFileSize, ' ') + "\n" + kLine).empty());
}

class ShippedFormats : public testing::Test {
 protected:
  ShippedFormats() {
    std::ifstream file(FORMAT_FILE, std::ios::binary);
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    formats = ParseFormatFile(content, &skipped);
  }
  std::vector<Handler> formats;
  size_t skipped = 99;
};

TEST_F(ShippedFormats, AreAtLeastEightyAndEveryLineIsGood) {
  EXPECT_GE(formats.size(), 80u);
  EXPECT_EQ(skipped, 0u);
}

TEST_F(ShippedFormats, HaveAGuidEach) {
  std::set<std::string> guids;
  for (const Handler& format : formats) guids.insert(format.guid);
  EXPECT_EQ(guids.size(), formats.size());
}

TEST_F(ShippedFormats, CoverAllTenCategories) {
  HandlerRegistry registry;
  for (const Handler& format : formats) registry.Register(format);
  for (const uint32_t bit : kCategoriesBySpecificness) {
    EXPECT_GT(registry.CountOfType(HandlerList::kImportAndViewer, bit), 2) << bit;
  }
}

TEST_F(ShippedFormats, ClassifyWhatAUserExpects) {
  HandlerRegistry registry;
  for (const Handler& format : formats) registry.Register(format);
  const auto types = [&](const char* name) {
    return registry.TypesOfName(HandlerList::kImportAndViewer, name);
  };
  EXPECT_EQ(types("model.3ds"), kTxTypeObject3D + 0u);
  EXPECT_EQ(types("Picture.JPG"), kTxTypeBitmap2D + 0u);
  EXPECT_EQ(types("logo.svg"), kTxTypeVector2D + 0u);
  EXPECT_EQ(types("readme.txt"), kTxTypeText + 0u);
  EXPECT_EQ(types("old.tar.gz"), kTxTypeArchive + 0u);
  EXPECT_EQ(types("film.avi"), kTxTypeVideo + 0u);
  EXPECT_EQ(types("sound.wav"), kTxTypeAudio + 0u);
  EXPECT_EQ(types("table.xlsx"), kTxTypeSpreadsheet + 0u);
  EXPECT_EQ(types("data.sqlite"), kTxTypeDatabase + 0u);
  EXPECT_EQ(types("talk.pptx"), kTxTypePresentation + 0u);
  EXPECT_EQ(types("paper.pdf"), kTxTypeVector2D + 0u + kTxTypeText);
  EXPECT_EQ(types("program.dat"), kTxTypeUnknown + 0u);
  EXPECT_EQ(types("program.exe"), 0u);
  EXPECT_EQ(types("models.zip"), 0u) << "the explorer registers itself for these";
}

}  // namespace
}  // namespace workbench::tx
