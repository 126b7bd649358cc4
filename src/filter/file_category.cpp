#include "src/filter/file_category.h"

#include <cstdio>

namespace file_explorer {
namespace {

std::uint32_t ColorByte(float part) {
  const double value = static_cast<double>(part) * 255.0;
  // Nothing checks the numbers of a profile: what no whole number can hold is no colour.
  constexpr double kLimit = 9e18;
  if (!(value > -kLimit && value < kLimit)) return 0;
  return static_cast<std::uint32_t>(static_cast<std::int64_t>(value) & 0xFF);
}

}  // namespace

const std::array<FileCategoryInfo, kFileCategoryCount>& FileCategories() {
  static constexpr std::array<FileCategoryInfo, kFileCategoryCount> kCategories = {{
      {FileCategory::Object3D, "3D object files", 0x0004, "default_color_3D_object_files",
       "3D File Items Color"},
      {FileCategory::Bitmap2D, "2D bitmap files", 0x0002, "default_color_2D_bitmap_files",
       "2D Bitmap File Items Color"},
      {FileCategory::Vector2D, "2D Vector files", 0x0400, "default_color_2D_vector_files",
       "2D Vector File Items Color"},
      {FileCategory::Text, "Text files", 0x0040, "default_color_Text_files", "Text Files Color"},
      {FileCategory::Archive, "ZIP and archive files", 0x0020, "default_color_ZIP_and_archive_files",
       "Archive Files Color"},
      {FileCategory::Video, "Video files", 0x0008, "default_color_Video_files", "Video Files Color"},
      {FileCategory::Audio, "Audio files", 0x0010, "default_color_Audio_files", "Audio Files Color"},
      {FileCategory::Spreadsheet, "Spreadsheet files", 0x0080, "default_color_Spreadsheet_files",
       "Spreadsheet Files Color"},
      {FileCategory::Database, "Database files", 0x0100, "default_color_Database_files",
       "Database Files Color"},
      {FileCategory::Presentation, "Presentation files", 0x0200, "default_color_Presentation_files",
       "Presentation Files Color"},
  }};
  return kCategories;
}

std::uint32_t ColorReference(const CategoryColor& color) {
  return ColorByte(color.red) | (ColorByte(color.green) << 8) | (ColorByte(color.blue) << 16);
}

std::string FormatCategoryColor(const CategoryColor& color) {
  char text[96];
  std::snprintf(text, sizeof(text), "%g %g %g", static_cast<double>(color.red),
                static_cast<double>(color.green), static_cast<double>(color.blue));
  return text;
}

void ParseCategoryColor(const std::string& text, CategoryColor* color) {
  // Straight into the slot: a part that does not parse keeps the value it has.
  [[maybe_unused]] const int parts =
      std::sscanf(text.c_str(), "%g %g %g", &color->red, &color->green, &color->blue);
}

}  // namespace file_explorer
