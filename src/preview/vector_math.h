// The little vector arithmetic that the renderer needs.
#pragma once

#include <cmath>

#include "src/preview/mesh.h"

namespace file_explorer::preview {

constexpr Point operator+(const Point& a, const Point& b) {
  return {a.x + b.x, a.y + b.y, a.z + b.z};
}
constexpr Point operator-(const Point& a, const Point& b) {
  return {a.x - b.x, a.y - b.y, a.z - b.z};
}
constexpr Point operator*(const Point& a, float factor) {
  return {a.x * factor, a.y * factor, a.z * factor};
}

constexpr float Dot(const Point& a, const Point& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}
constexpr Point Cross(const Point& a, const Point& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}
// Of length one; a vector without length stays as it is.
inline Point Unit(const Point& a) {
  const float length = std::sqrt(Dot(a, a));
  return length > 0 ? a * (1 / length) : a;
}

}  // namespace file_explorer::preview
