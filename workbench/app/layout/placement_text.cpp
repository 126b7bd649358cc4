#include "workbench/app/layout/placement_text.h"

#include <charconv>
#include <functional>

namespace workbench {
namespace {

constexpr std::string_view kAreaNames[] = {"left", "right", "top", "bottom", "document", "floating"};
constexpr int kLargestSize = 32767;
constexpr int kLargestIndex = 1000;

bool TakeNumber(std::string_view text, int low, int high, int& value) {
  const std::optional<int> number = ReadNumber(text);
  if (!number || *number < low || *number > high) return false;
  value = *number;
  return true;
}

bool TakeFlag(std::string_view text, bool& value) {
  int number = 0;
  if (!TakeNumber(text, 0, 1, number)) return false;
  value = number != 0;
  return true;
}

bool TakeArea(std::string_view text, Area& area) {
  for (size_t i = 0; i < std::size(kAreaNames); ++i) {
    if (text != kAreaNames[i]) continue;
    area = static_cast<Area>(i);
    return true;
  }
  return false;
}

bool TakeRect(std::string_view text, Rect& rect) {
  int* const parts[] = {&rect.left, &rect.top, &rect.right, &rect.bottom};
  for (size_t i = 0; i < 4; ++i) {
    const size_t comma = text.find(',');
    if ((comma == std::string_view::npos) != (i == 3)) return false;
    if (!TakeNumber(text.substr(0, comma), -kLargestSize, kLargestSize, *parts[i])) return false;
    if (i < 3) text.remove_prefix(comma + 1);
  }
  return true;
}

struct Field {
  std::string_view name;
  bool (*read)(std::string_view text, Placement& placement);
};

constexpr Field kFields[] = {
    {"area", [](std::string_view text, Placement& p) { return TakeArea(text, p.area); }},
    {"group", [](std::string_view text, Placement& p) { return TakeNumber(text, 0, kLargestIndex, p.slot); }},
    {"tab", [](std::string_view text, Placement& p) { return TakeNumber(text, 0, kLargestIndex, p.order); }},
    {"size", [](std::string_view text, Placement& p) { return TakeNumber(text, 1, kLargestSize, p.extent); }},
    {"share",
     [](std::string_view text, Placement& p) { return TakeNumber(text, 1, kLargestSize, p.weight); }},
    {"expanded", [](std::string_view text, Placement& p) { return TakeFlag(text, p.pinned); }},
    {"front", [](std::string_view text, Placement& p) { return TakeFlag(text, p.front); }},
    {"method",
     [](std::string_view text, Placement& p) { return TakeNumber(text, 0, 0xFFFF, p.requestedMethod); }},
    {"position",
     [](std::string_view text, Placement& p) { return TakeNumber(text, 0, 0xFFFF, p.requestedPosition); }},
    {"float", [](std::string_view text, Placement& p) { return TakeRect(text, p.floating); }},
};

bool ReadPair(std::string_view pair, Placement& placement, bool& hasArea) {
  const size_t equals = pair.find('=');
  if (equals == std::string_view::npos) return false;
  for (const Field& field : kFields) {
    if (pair.substr(0, equals) != field.name) continue;
    hasArea = hasArea || field.name == "area";
    return field.read(pair.substr(equals + 1), placement);
  }
  return true;
}

}  // namespace

std::optional<int> ReadNumber(std::string_view text) {
  int number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::string WritePlacement(const Placement& placement) {
  std::string text = "area=" + std::string(kAreaNames[static_cast<size_t>(placement.area)]);
  const auto add = [&](const char* name, int value) {
    text += std::string(" ") + name + "=" + std::to_string(value);
  };
  add("group", placement.slot);
  add("tab", placement.order);
  add("size", placement.extent);
  add("share", placement.weight);
  add("expanded", placement.pinned);
  add("front", placement.front);
  add("method", placement.requestedMethod);
  add("position", placement.requestedPosition);
  if (!placement.floating.empty()) {
    const Rect& rect = placement.floating;
    add("float", rect.left);
    for (const int part : {rect.top, rect.right, rect.bottom}) text += "," + std::to_string(part);
  }
  return text;
}

std::optional<Placement> ReadPlacement(std::string_view text) {
  Placement placement;
  bool hasArea = false;
  while (!text.empty()) {
    const size_t blank = text.find(' ');
    const std::string_view pair = text.substr(0, blank);
    if (!pair.empty() && !ReadPair(pair, placement, hasArea)) return std::nullopt;
    if (blank == std::string_view::npos) break;
    text.remove_prefix(blank + 1);
  }
  const bool floatsNowhere = placement.area == Area::Floating && placement.floating.empty();
  if (!hasArea || floatsNowhere) return std::nullopt;
  return placement;
}

}  // namespace workbench
