#include "workbench/tx/color_table.h"

#include "src/host/vc64_tx.h"

namespace workbench::tx {
namespace {

// Backgrounds of black text: light, soft, and told apart at a glance. In the order of
// kCategoriesBySpecificness.
constexpr std::array<Color, kCategoryCount> kFactoryColors = {{
    {0.70f, 0.84f, 1.00f},  // 3D objects: light blue
    {0.74f, 0.95f, 0.72f},  // bitmaps: light green
    {0.62f, 0.95f, 0.93f},  // vector drawings: aqua
    {1.00f, 0.72f, 0.87f},  // presentations: pink
    {0.78f, 0.86f, 0.50f},  // spreadsheets: olive
    {0.84f, 0.84f, 0.84f},  // databases: light grey
    {1.00f, 0.72f, 0.70f},  // video: light red
    {0.84f, 0.76f, 1.00f},  // audio: lavender
    {1.00f, 0.83f, 0.58f},  // archives: light orange
    {1.00f, 1.00f, 0.74f},  // text: light yellow
}};

float Clamp(float part) {
  return part >= 1.0f ? 1.0f : (part > 0.0f ? part : 0.0f);
}

}  // namespace

const std::array<uint32_t, kCategoryCount> kCategoriesBySpecificness = {
    kTxTypeObject3D, kTxTypeBitmap2D, kTxTypeVector2D, kTxTypePresentation, kTxTypeSpreadsheet,
    kTxTypeDatabase, kTxTypeVideo,    kTxTypeAudio,    kTxTypeArchive,      kTxTypeText};

ColorTable::ColorTable() : colors_(kFactoryColors) {}

void ColorTable::Reset() {
  colors_ = kFactoryColors;
}

const Color* ColorTable::Of(uint32_t typeMask) const {
  for (size_t i = 0; i < kCategoryCount; ++i) {
    if (typeMask & kCategoriesBySpecificness[i]) return &colors_[i];
  }
  return nullptr;
}

bool ColorTable::Set(uint32_t typeBit, Color color) {
  for (size_t i = 0; i < kCategoryCount; ++i) {
    if (typeBit != kCategoriesBySpecificness[i]) continue;
    colors_[i] = {Clamp(color.red), Clamp(color.green), Clamp(color.blue)};
    return true;
  }
  return false;
}

}  // namespace workbench::tx
