#include "src/preview/shading.h"

#include <algorithm>
#include <cmath>

#include "src/preview/vector_math.h"

namespace file_explorer::preview {
namespace {

// Directions towards the lights in the eye's axes, of length one.
constexpr Point kKeyLight = {-0.3994f, 0.4993f, 0.7689f};
constexpr Point kFillLight = {0.86f, -0.05f, 0.5078f};
constexpr float kKeyStrength = 0.68f;
constexpr float kFillStrength = 0.12f;
constexpr float kSkyStrength = 0.38f;     // from above
constexpr float kGroundStrength = 0.21f;  // from below
constexpr float kShine = 0.16f;
constexpr int kShineSquarings = 5;  // the shine's exponent is 2 to this
constexpr float kRimShare = 0.62f;  // of the light at the rim of a round body; makes it stand out from white

std::uint32_t Channel(float value) {
  return static_cast<std::uint32_t>(std::clamp(value, 0.0f, 1.0f) * 255 + 0.5f);
}

}  // namespace

Color ColorFrom(std::uint32_t rgb) {
  const auto channel = [rgb](int shift) { return static_cast<float>((rgb >> shift) & 0xFF) / 255; };
  return {channel(16), channel(8), channel(0)};
}

Color Shade(const Color& material, const Point& normal) {
  const Point facing = normal.z < 0 ? normal * -1 : normal;
  const float key = std::max(0.0f, Dot(facing, kKeyLight));
  const float fill = std::max(0.0f, Dot(facing, kFillLight));
  const float height = facing.y * 0.5f + 0.5f;
  const float ambient = kSkyStrength * height + kGroundStrength * (1 - height);
  const float rim = kRimShare + (1 - kRimShare) * std::min(1.0f, facing.z * 1.6f);
  // The eye looks along z, so half way between it and the key light lies:
  const Point half = Unit(kKeyLight + Point{0, 0, 1});
  float shine = std::max(0.0f, Dot(facing, half));
  for (int i = 0; i < kShineSquarings; ++i) shine *= shine;
  const float light = (ambient + kKeyStrength * key + kFillStrength * fill) * rim;
  const float gloss = kShine * shine;
  return material * light + Color{gloss, gloss, gloss};
}

std::uint32_t PremultipliedPixel(const Color& sum, int covered, int samples) {
  if (covered == 0) return 0;
  const float share = 1 / static_cast<float>(samples);
  const std::uint32_t alpha = Channel(static_cast<float>(covered) * share);
  const auto channel = [&](float value) { return std::min(alpha, Channel(value * share)); };
  return alpha << 24 | channel(sum.red) << 16 | channel(sum.green) << 8 | channel(sum.blue);
}

}  // namespace file_explorer::preview
