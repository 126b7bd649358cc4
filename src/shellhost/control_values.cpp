#include "src/shellhost/control_values.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <utility>

namespace file_explorer {
namespace {

constexpr double kHimetricPerInch = 2540.0;

constexpr std::array<std::pair<std::string_view, std::int32_t>, 5> kDisplayModes = {
    {{"SmallIcon", 2}, {"LargeIcon", 0}, {"List", 3}, {"Report", 1}, {"Thumbnails", 4}}};

// Stock events that the file view and the folder view raise. The keypress event (-603) is deliberately not
// among them.
constexpr std::array<std::int32_t, 7> kStockEvents = {-600, -601, -602, -604, -605, -606, -607};
constexpr std::array<std::int32_t, 3> kComboStockEvents = {-602, -604, -606};

template <std::size_t size>
bool KnowsEvent(std::int32_t id, std::int32_t last, const std::array<std::int32_t, size>& stock) {
  return (id >= 1 && id <= last) || std::find(stock.begin(), stock.end(), id) != stock.end();
}

}  // namespace

double PidlBitsAsDouble(std::uint64_t address) noexcept {
  return std::bit_cast<double>(address);
}

std::uint64_t AddressFromNumber(double number) noexcept {
  constexpr double kLimit = 9223372036854775808.0;  // 2^63
  if (!(number >= -kLimit && number < kLimit)) return 0;
  return static_cast<std::uint64_t>(static_cast<std::int64_t>(number));
}

std::optional<std::int32_t> ViewValueOfDisplayMode(std::string_view name) noexcept {
  for (const auto& [mode, value] : kDisplayModes) {
    if (mode == name) return value;
  }
  return std::nullopt;
}

std::int64_t EventNumber(std::int32_t value) noexcept {
  return static_cast<std::int16_t>(value);
}

std::int64_t EventFlag(std::int16_t value) noexcept {
  return value ? -1 : 0;
}

bool IsFileViewEvent(std::int32_t id) noexcept {
  return KnowsEvent(id, 25, kStockEvents);
}
bool IsFolderViewEvent(std::int32_t id) noexcept {
  return KnowsEvent(id, 21, kStockEvents);
}
bool IsComboViewEvent(std::int32_t id) noexcept {
  return KnowsEvent(id, 6, kComboStockEvents);
}

std::int32_t PixelsToHimetric(double pixels, int pixelsPerInch) noexcept {
  if (pixelsPerInch <= 0) return 0;
  const double himetric = std::round(pixels * kHimetricPerInch / pixelsPerInch);
  if (std::isnan(himetric)) return 0;
  return static_cast<std::int32_t>(std::clamp(himetric, -2147483648.0, 2147483647.0));
}

double HimetricToPixels(std::int32_t himetric, int pixelsPerInch) noexcept {
  return himetric * static_cast<double>(std::max(pixelsPerInch, 0)) / kHimetricPerInch;
}

}  // namespace file_explorer
