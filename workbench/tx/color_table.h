// The colour of each of the ten file categories.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace workbench::tx {

struct Color {
  float red, green, blue;  // 0.0 to 1.0
};
inline bool operator==(const Color& a, const Color& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

inline constexpr size_t kCategoryCount = 10;
// The categories' type bits, the most specific category first: a file of several takes the colour of the
// first.
extern const std::array<uint32_t, kCategoryCount> kCategoriesBySpecificness;

class ColorTable {
 public:
  ColorTable();
  void Reset();
  // The colour of the mask's most specific category; null when it has none.
  const Color* Of(uint32_t typeMask) const;
  // Parts outside 0.0 to 1.0 are clamped, no number counts as 0. False when typeBit is no single category.
  bool Set(uint32_t typeBit, Color color);

 private:
  std::array<Color, kCategoryCount> colors_;
};

}  // namespace workbench::tx
