// The ten categories of files, with the names and numbers under which the host, the profile and the dialogs
// know them.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace file_explorer {

inline constexpr int kFileCategoryCount = 10;

// In the order of the colour slots and of the category lists.
enum class FileCategory : int {
  Object3D,
  Bitmap2D,
  Vector2D,
  Text,
  Archive,
  Video,
  Audio,
  Spreadsheet,
  Database,
  Presentation,
};

// Type masks below this value name no category: no handler, or the bit that belongs to none.
inline constexpr std::uint32_t kFirstCategoryMask = 2;

struct FileCategoryInfo {
  FileCategory category;
  const char* label;         // as the category lists show it
  std::uint32_t typeBit;     // the host registry's handler-type bit
  const char* colorKey;      // profile key of the colour
  const char* chooserTitle;  // title of the colour chooser
};

const std::array<FileCategoryInfo, kFileCategoryCount>& FileCategories();

// A category's colour; each part from 0.0 to 1.0.
struct CategoryColor {
  float red = 0.0F;
  float green = 0.0F;
  float blue = 0.0F;
  bool operator==(const CategoryColor&) const = default;
};

using CategoryColors = std::array<CategoryColor, kFileCategoryCount>;

// The colour as the system's drawing calls take it, 0x00BBGGRR. Each part times 255 is cut to a whole number,
// never rounded, and of that the low eight bits count.
std::uint32_t ColorReference(const CategoryColor& color);

// The text in which a colour is kept: three numbers with single blanks between them.
std::string FormatCategoryColor(const CategoryColor& color);

// Reads the numbers of text into color, from the left. Parts that the text does not give keep their value; an
// empty text changes nothing. Neither range nor the rest of the text is checked.
void ParseCategoryColor(const std::string& text, CategoryColor* color);

}  // namespace file_explorer
