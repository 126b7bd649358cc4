// The text form in which a window's place is remembered in the profile: "name=value" pairs separated by
// blanks. Reading accepts whatever it finds: unknown names are skipped, and a text whose values make no sense
// is refused as a whole, so that a damaged profile costs the remembered place and nothing else.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "workbench/app/layout/dock_model.h"

namespace workbench {

struct Placement {
  Area area = Area::Bottom;
  int slot = 0;             // which group of the area
  int order = 0;            // which tab of the group
  int extent = 240;         // thickness of the side, in pixels at 96 DPI
  int weight = 1000;        // share of the side's length
  bool pinned = true;       // expanded, not collapsed to the edge
  bool front = true;        // the tab in front
  int requestedMethod = 5;  // what the window asked for when the place was remembered
  int requestedPosition = 3;
  Rect floating;  // screen pixels; empty when it never floated
  bool operator==(const Placement&) const = default;
};

std::string WritePlacement(const Placement& placement);
std::optional<Placement> ReadPlacement(std::string_view text);

// Whole numbers with a sign, the whole text; nothing else is accepted.
std::optional<int> ReadNumber(std::string_view text);

}  // namespace workbench
