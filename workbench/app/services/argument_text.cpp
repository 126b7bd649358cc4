#include "workbench/app/services/argument_text.h"

#include <cstdio>

namespace workbench {

std::string ArgumentText(const char* text) {
  return text == nullptr ? std::string("null") : "\"" + std::string(text) + "\"";
}

std::string ArgumentText(const RECT* rect) {
  if (rect == nullptr) return "null";
  char text[96];
  std::snprintf(text, sizeof text, "[%ld,%ld,%ld,%ld]", rect->left, rect->top, rect->right, rect->bottom);
  return text;
}

std::string ArgumentText(const host::DockedWindowBitmap* bitmap) {
  if (bitmap == nullptr) return "null";
  if (bitmap->hasBitmap == 0) return "no bitmap";
  char text[64];
  std::snprintf(text, sizeof text, "bitmap 0x%06lX", bitmap->transparentColor);
  return text;
}

std::string ArgumentText(float value) {
  char text[32];
  std::snprintf(text, sizeof text, "%g", static_cast<double>(value));
  return text;
}

}  // namespace workbench
