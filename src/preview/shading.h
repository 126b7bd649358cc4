// Light and material of rendered surfaces.
#pragma once

#include <cstdint>

#include "src/preview/mesh.h"

namespace file_explorer::preview {

// Shares of 0 to 1 of what the screen can show; sums may be larger.
struct Color {
  float red = 0;
  float green = 0;
  float blue = 0;
};
constexpr Color operator+(const Color& a, const Color& b) {
  return {a.red + b.red, a.green + b.green, a.blue + b.blue};
}
constexpr Color operator*(const Color& a, float factor) {
  return {a.red * factor, a.green * factor, a.blue * factor};
}

inline constexpr Color kWarmGrey = {0.86f, 0.815f, 0.745f};

// From 0xRRGGBB.
Color ColorFrom(std::uint32_t rgb);

// The material's colour under our lights. normal: the surface's direction in the eye's axes (right, up,
// towards the eye), of length one; both sides of a surface look the same.
Color Shade(const Color& material, const Point& normal);

// A pixel of which `covered` of `samples` samples show a surface; sum adds their colours up.
std::uint32_t PremultipliedPixel(const Color& sum, int covered, int samples);

}  // namespace file_explorer::preview
